#include "platform/win32/win32_message_texts.h"

#include <windows.h>

#include "support/strings.h"

namespace my {

std::wstring CWin32MessageTexts::Text(uint32_t id) const {
  const wchar_t* text = nullptr;  // size 0 returns a pointer to the resource itself, which has no terminator
  const int length = ::LoadStringW(::GetModuleHandleW(nullptr), id, reinterpret_cast<wchar_t*>(&text), 0);
  if (length <= 0) return {};
  return {text, static_cast<size_t>(length)};
}

std::wstring CWin32MessageTexts::SystemText(int32_t hresult) const {
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  wchar_t buffer[1024];
  const DWORD length = ::FormatMessageW(kFlags, nullptr, static_cast<DWORD>(hresult), 0, buffer,
                                        static_cast<DWORD>(std::size(buffer)), nullptr);
  return OneLine(Trim({buffer, length}, kBlanks));
}

}  // namespace my
