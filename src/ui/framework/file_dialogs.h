// The system's dialogs for choosing files and folders.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <optional>
#include <string>
#include <vector>

namespace my {

struct CFileKind {
  std::wstring name;     // as shown
  std::wstring pattern;  // L"*.a;*.b"
};

struct CFileDialogParams {
  std::wstring title;  // empty: the system's
  std::vector<CFileKind> kinds;
  std::wstring defaultExtension;  // without the dot
  std::wstring initialPath;       // of a file; one longer than the system takes is left out
  std::wstring initialFolder;     // empty: that of the path, or the system's
  DWORD flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
};

// Full path; empty when the user chose none. Throws the system's error.
std::optional<std::wstring> AskOpenPath(HWND owner, const CFileDialogParams& params);
std::optional<std::wstring> AskSavePath(HWND owner, const CFileDialogParams& params);

// `initialFolder` may be empty or gone. COM must be set up on the thread.
std::optional<std::wstring> AskFolder(HWND owner, const std::wstring& title,
                                      const std::wstring& initialFolder);

}  // namespace my
