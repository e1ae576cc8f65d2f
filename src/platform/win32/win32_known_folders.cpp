#include "platform/win32/win32_known_folders.h"

#include <windows.h>

#include <shlobj.h>

#include "resource.h"
#include "support/exception.h"

namespace my {

std::optional<std::wstring> CWin32KnownFolders::ProgramFiles() const {
  wchar_t path[MAX_PATH];
  if (::SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK) return {};
  return path;
}

std::wstring CWin32KnownFolders::RoamingAppData() const {
  wchar_t path[MAX_PATH];
  const HRESULT result =
      ::SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path);
  if (result != S_OK) throw CException(IDS_SETTINGS_LOCATION_FAILED, {CSystemError{result}});
  return path;
}

}  // namespace my
