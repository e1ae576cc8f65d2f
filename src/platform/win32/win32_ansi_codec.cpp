#include "platform/win32/win32_ansi_codec.h"

#include <windows.h>

#include <algorithm>

#include "support/strings.h"

namespace my {
namespace {

// Appends the bytes as text; answers false, with nothing appended, when a byte among them is no text.
bool AppendDecoded(std::wstring& out, std::string_view bytes) {
  if (bytes.empty()) return true;
  const auto size = static_cast<int>(bytes.size());
  const int length = ::MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  if (length <= 0) return false;
  const size_t before = out.size();
  out.resize(before + static_cast<size_t>(length));
  ::MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), size, out.data() + before, length);
  return true;
}

}  // namespace

std::wstring CWin32AnsiCodec::Decode(std::string_view bytes) const {
  std::wstring out;
  if (AppendDecoded(out, bytes)) return out;
  while (!bytes.empty()) {
    const bool pair = bytes.size() > 1 && ::IsDBCSLeadByteEx(CP_ACP, static_cast<BYTE>(bytes[0]));
    size_t used = pair ? 2 : 1;
    if (!AppendDecoded(out, bytes.substr(0, used))) {
      out += static_cast<wchar_t>(kReplacementChar);
      used = 1;
    }
    bytes.remove_prefix(used);
  }
  return out;
}

}  // namespace my
