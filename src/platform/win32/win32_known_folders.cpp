#include "platform/win32/win32_known_folders.h"

#include <windows.h>

#include <shlobj.h>

#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "support/paths.h"
#include "text_ids.h"

namespace my {

std::optional<std::wstring> CWin32KnownFolders::ProgramFiles() const {
  wchar_t path[MAX_PATH];
  if (::SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILESX86, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK)
    return {};
  return path;
}

std::wstring CWin32KnownFolders::RoamingAppData() const {
  wchar_t path[MAX_PATH];
  const HRESULT result =
      ::SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path);
  if (result != S_OK) throw CException(IDS_SETTINGS_LOCATION_FAILED, {CSystemError{result}});
  return path;
}

std::wstring CWin32KnownFolders::ProgramFolder() const {
  for (std::wstring path(MAX_PATH, L'\0');; path.resize(path.size() * 2)) {
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw CException(LastError());
    if (length == path.size()) continue;  // truncated
    path.resize(length);
    return std::wstring(ParentPath(path));
  }
}

}  // namespace my
