#include "platform/win32/win32_message_texts.h"

#include <windows.h>

#include "platform/win32/ui_language.h"
#include "support/strings.h"

namespace my {
namespace {

// The string table is stored in blocks of 16 texts, each after its length.
constexpr uint32_t kTextsPerBlock = 16;

std::wstring_view TextBlock(uint32_t id) {
  const auto bytes = LocalResource(RT_STRING, id / kTextsPerBlock + 1);
  return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
}

// Returns the text of a system message; empty if the system does not have it in this language. With 0 the
// system chooses the language.
std::wstring SystemMessage(DWORD code, LANGID language) {
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  wchar_t buffer[1024];
  const DWORD length = ::FormatMessageW(kFlags, nullptr, code, language, buffer,
                                        static_cast<DWORD>(std::size(buffer)), nullptr);
  return {buffer, length};
}

}  // namespace

std::wstring CWin32MessageTexts::Text(uint32_t id) const {
  const std::wstring_view block = TextBlock(id);
  size_t at = 0;
  for (uint32_t i = 0; i < id % kTextsPerBlock && at < block.size(); ++i) at += 1 + block[at];
  if (at >= block.size()) return {};
  return std::wstring(block.substr(at + 1, block[at]));
}

std::wstring CWin32MessageTexts::SystemText(int32_t hresult) const {
  const auto code = static_cast<DWORD>(hresult);
  std::wstring text = SystemMessage(code, static_cast<LANGID>(CurrentUiLanguage()));
  if (text.empty()) text = SystemMessage(code, 0);
  return OneLine(Trim(text, kBlanks));
}

}  // namespace my
