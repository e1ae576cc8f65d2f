#include "platform/win32/win32_shell.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>

#include "platform/win32/com.h"
#include "platform/win32/last_error.h"
#include "platform/win32/win32_threads.h"
#include "support/exception.h"
#include "text_ids.h"

namespace my {
namespace {

// Returns whether the items end in a terminator within the bytes: the shell follows their sizes without a
// limit. A size includes itself; that of the terminator is 0.
bool IsComplete(const CShellIdList& idList) {
  using Size = decltype(SHITEMID::cb);
  Size size = 0;
  for (size_t at = 0; at + sizeof(size) <= idList.size(); at += size) {
    std::memcpy(&size, idList.data() + at, sizeof(size));
    if (size < sizeof(size)) return size == 0;
  }
  return false;
}

void Execute(const std::wstring& file, const wchar_t* parameters) {
  SHELLEXECUTEINFOW execution{};
  execution.cbSize = sizeof(execution);
  execution.fMask = SEE_MASK_FLAG_NO_UI;
  execution.lpFile = file.c_str();
  execution.lpParameters = parameters;
  execution.nShow = SW_SHOWNORMAL;
  if (::ShellExecuteExW(&execution)) return;
  throw CException(IDS_SHELL_OPEN_FAILED, {LastError(), file});
}

// Returns whether the volume of the path has a recycle bin. Only fixed drives have one; for others, the shell
// would delete at once. Nor does the shell recycle a path that is too long for it.
bool HasRecycleBin(const std::wstring& path) {
  wchar_t volume[MAX_PATH]{};
  if (path.size() >= MAX_PATH || !::GetVolumePathNameW(path.c_str(), volume, MAX_PATH)) return false;
  return ::GetDriveTypeW(volume) == DRIVE_FIXED;
}

}  // namespace

std::wstring CWin32Shell::PathOf(const CShellIdList& idList) {
  wchar_t path[MAX_PATH];
  // The function sets no error code; it refuses a list that is not a file-system path.
  if (IsComplete(idList) && ::SHGetPathFromIDListW(reinterpret_cast<LPCITEMIDLIST>(idList.data()), path)) {
    return path;
  }
  throw CException(IDS_ID_LIST_TO_PATH_FAILED, {CSystemError{E_INVALIDARG}});
}

void CWin32Shell::Open(const std::wstring& what) {
  Execute(what, nullptr);
}

void CWin32Shell::Run(const std::wstring& program, const std::wstring& parameters) {
  Execute(program, parameters.c_str());
}

// On a thread of its own, which nobody waits for: the shell looks at the file and writes a shortcut.
void CWin32Shell::AddRecent(const std::wstring& path) {
  const auto add = [path] {
    const CComApartment com;
    ::SHAddToRecentDocs(SHARD_PATHW, path.c_str());
  };
  try {
    CWin32Threads().Start(add, {});
  } catch (const CException&) {
    // The list of recent documents lacks this one.
  }
}

// Some systems report success for a file that is missing, so existence is checked before and afterwards. With
// the warning, the shell asks before it deletes what is too large for the recycle bin, or what a policy
// keeps out of it. Without it, FOF_NOCONFIRMATION would confirm that question.
bool CWin32Shell::Recycle(const std::wstring& path) {
  if (!HasRecycleBin(path)) throw CException(IDS_RECYCLE_NO_BIN, {path});
  const auto exists = [&path] { return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; };
  if (!exists()) throw CException(IDS_RECYCLE_FAILED, {LastError(), path});
  const std::wstring list = path + L'\0';  // the shell expects a double null-terminated list
  SHFILEOPSTRUCTW operation{};
  operation.hwnd = ::GetActiveWindow();
  operation.wFunc = FO_DELETE;
  operation.pFrom = list.c_str();
  operation.fFlags = FOF_ALLOWUNDO | FOF_WANTNUKEWARNING | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
  int error = ::SHFileOperationW(&operation);
  constexpr int kCancelled[] = {ERROR_CANCELLED, 0x75};  // the second is one of the shell's own codes
  if (operation.fAnyOperationsAborted || std::ranges::count(kCancelled, error) != 0) return false;
  if (error == 0 && !exists()) return true;
  if (error == 0) error = ERROR_FUNCTION_FAILED;
  throw CException(IDS_RECYCLE_FAILED, {CSystemError::FromWin32(static_cast<uint32_t>(error)), path});
}

}  // namespace my
