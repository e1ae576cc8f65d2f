// Clipboard access: Unicode text, and data in a format of the program.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace my {

class CClipboard {
 public:
  // `formatName` identifies the data format in all running instances of the program.
  explicit CClipboard(const wchar_t* formatName);

  // Replaces the contents. `owner` is a window of the calling thread. Throws the system error if, for
  // example, another program holds the clipboard.
  void Set(HWND owner, const std::optional<std::wstring>& text,
           const std::optional<std::string>& bytes) const;

  // Return nullopt if the format is absent or another program holds the clipboard.
  std::optional<std::wstring> Text(HWND owner) const;
  std::optional<std::string> Bytes(HWND owner) const;

  // Returns the files and folders put there by the file manager; empty if there are none.
  std::vector<std::wstring> Paths(HWND owner) const;

  // Do not open the clipboard, so they are cheap enough for the state of commands.
  bool HasBytes() const { return ::IsClipboardFormatAvailable(m_format) != FALSE; }
  bool HasPathsOrText() const {
    return ::IsClipboardFormatAvailable(CF_HDROP) || ::IsClipboardFormatAvailable(CF_UNICODETEXT);
  }

 private:
  UINT m_format;
};

}  // namespace my
