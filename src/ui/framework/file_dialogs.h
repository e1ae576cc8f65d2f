// The system's dialogs for choosing files and folders.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <optional>
#include <string>
#include <vector>

namespace my {

struct CFileKind {
  std::wstring name;     // shown to the user
  std::wstring pattern;  // L"*.a;*.b"
};

struct CFileDialogParams {
  std::wstring title;  // empty: the default title
  std::vector<CFileKind> kinds;
  std::wstring defaultExtension;  // without the dot
  std::wstring initialPath;       // of a file; ignored if longer than MAX_PATH
  std::wstring initialFolder;     // empty: the folder of initialPath, or the system's choice
  DWORD flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
};

// Return the full path, or nullopt if the user cancelled. Throw the system error.
std::optional<std::wstring> AskOpenPath(HWND owner, const CFileDialogParams& params);
std::optional<std::wstring> AskSavePath(HWND owner, const CFileDialogParams& params);

// `initialFolder` may be empty or missing. COM must be initialized on the thread.
std::optional<std::wstring> AskFolder(HWND owner, const std::wstring& title,
                                      const std::wstring& initialFolder);

}  // namespace my
