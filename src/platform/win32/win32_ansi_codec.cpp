#include "platform/win32/win32_ansi_codec.h"

#include <windows.h>

#include <algorithm>

#include "support/strings.h"

namespace my {
namespace {

// Appends the decoded bytes. Returns false and appends nothing if a byte is invalid.
bool AppendDecoded(std::wstring& out, UINT codePage, std::string_view bytes) {
  if (bytes.empty()) return true;
  const auto size = static_cast<int>(bytes.size());
  const int length = ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  if (length <= 0) return false;
  const size_t before = out.size();
  out.resize(before + static_cast<size_t>(length));
  ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, out.data() + before, length);
  return true;
}

size_t LongestCharacter(UINT codePage) {
  CPINFO information{};
  return ::GetCPInfo(codePage, &information) ? information.MaxCharSize : 1;
}

// Appends the first character and returns its length in bytes; 0 if it is invalid.
size_t AppendCharacter(std::wstring& out, UINT codePage, std::string_view bytes, size_t longest) {
  // Only double-byte code pages have lead bytes; in others every length is tried.
  const bool lead = ::IsDBCSLeadByteEx(codePage, static_cast<BYTE>(bytes[0]));
  for (size_t length = lead ? 2 : 1; length <= std::min(longest, bytes.size()); ++length) {
    if (AppendDecoded(out, codePage, bytes.substr(0, length))) return length;
  }
  return 0;
}

}  // namespace

std::wstring CWin32AnsiCodec::Decode(std::string_view bytes) const {
  std::wstring out;
  if (AppendDecoded(out, m_codePage, bytes)) return out;
  const size_t longest = LongestCharacter(m_codePage);
  while (!bytes.empty()) {
    const size_t length = AppendCharacter(out, m_codePage, bytes, longest);
    if (length == 0) out += static_cast<wchar_t>(kReplacementChar);
    bytes.remove_prefix(std::max<size_t>(length, 1));
  }
  return out;
}

// Compares instead of asking the system for missing characters, which it refuses for some code pages.
std::optional<std::string> CWin32AnsiCodec::Encode(std::wstring_view text) const {
  const auto size = static_cast<int>(text.size());
  const int length = ::WideCharToMultiByte(m_codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<size_t>(length), '\0');
  ::WideCharToMultiByte(m_codePage, 0, text.data(), size, bytes.data(), length, nullptr, nullptr);
  return Decode(bytes) == text ? std::optional(bytes) : std::nullopt;
}

}  // namespace my
