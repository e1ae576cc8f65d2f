// The clipboard: text for everybody, and data of the program's own beside it.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace my {

class CClipboard {
 public:
  // The name under which every running copy of the program knows its data.
  explicit CClipboard(const wchar_t* formatName);

  // Replaces everything there. `owner` is a window of the calling thread.
  // Throws the system's error, as when another program holds the clipboard.
  void Set(HWND owner, const std::optional<std::wstring>& text,
           const std::optional<std::string>& bytes) const;

  // Empty when there is nothing of the kind, or another program holds the clipboard.
  std::optional<std::wstring> Text(HWND owner) const;
  std::optional<std::string> Bytes(HWND owner) const;

  // Cheap, for the state of commands.
  bool HasText() const { return ::IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE; }
  bool HasBytes() const { return ::IsClipboardFormatAvailable(m_format) != FALSE; }

 private:
  UINT m_format;
};

}  // namespace my
