#include "support/build_info.h"

#include <string_view>

#include "support/strings.h"

namespace my {

std::wstring BuildText() {
  constexpr std::string_view kCommit = QLM_COMMIT;
  std::string text = QLM_VERSION;
  if (!kCommit.empty()) text.append(" (").append(kCommit).append(")");
  return WideFromUtf8(text);
}

}  // namespace my
