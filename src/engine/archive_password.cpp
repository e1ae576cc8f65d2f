#include "engine/archive_password.h"

#include <algorithm>

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {

void CheckPassword(const std::wstring& password) {
  const auto isBad = [](wchar_t c) { return c <= L' ' || c == L'"' || c == 0x7F; };
  if (std::any_of(password.begin(), password.end(), isBad)) throw my::CException(IDS_PASSWORD_BAD_CHARACTER);
}

}  // namespace qlm
