#include "platform/win32/win32_file_system.h"

#include <windows.h>

#include <shellapi.h>
#include <winternl.h>

#include <algorithm>
#include <initializer_list>
#include <optional>

#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "platform/win32/system_function.h"
#include "support/exception.h"
#include "support/paths.h"
#include "text_ids.h"

namespace my {
namespace {

static_assert(kAttributeFolder == FILE_ATTRIBUTE_DIRECTORY && kAttributeLink == FILE_ATTRIBUTE_REPARSE_POINT);
static_assert(kErrorFileNotFound == ERROR_FILE_NOT_FOUND && kErrorPathNotFound == ERROR_PATH_NOT_FOUND);
static_assert(kErrorAccessDenied == ERROR_ACCESS_DENIED);
static_assert(kErrorSharingViolation == ERROR_SHARING_VIOLATION && kErrorDiskFull == ERROR_DISK_FULL);
static_assert(kErrorFileExists == ERROR_FILE_EXISTS && kErrorAlreadyExists == ERROR_ALREADY_EXISTS);
static_assert(kErrorNameTooLong == ERROR_FILENAME_EXCED_RANGE);

// Returns whether the tag of a reparse point is that of a junction or symbolic link. Some file systems report
// none.
bool LeadsElsewhere(DWORD tag) {
  return tag == 0 || IsReparseTagNameSurrogate(tag);
}

using CFindHandle = CHandle<HANDLE, &::FindClose>;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Enumerates a folder through its handle. Entries and order are those of FindFirstFile with "*.*", without
// the cost of short names and of one copy of every entry. The only difference: the root of a drive may also
// have a "." entry.
class CFindFiles : public IFindFiles {
 public:
  // The separator at the end keeps the path from being taken for a device, and keeps its trailing dots.
  explicit CFindFiles(const std::wstring& folder)
      : m_path(JoinPath(folder, {})),
        m_folder(::CreateFileW(m_path.c_str(), FILE_LIST_DIRECTORY, kShareAll, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
    if (!m_folder) throw CException(IDS_LIST_FOLDER_FAILED, {LastError(), m_path});
    Fill();
  }

  bool Next(CFindData& entry) override {
    if (!m_next && !Fill()) return false;
    const auto& found = *reinterpret_cast<const FILE_FULL_DIR_INFO*>(m_next);
    entry.name = {found.FileName, found.FileNameLength / sizeof(wchar_t)};
    entry.lastWriteTime = {static_cast<uint64_t>(found.LastWriteTime.QuadPart)};
    entry.size = static_cast<uint64_t>(found.EndOfFile.QuadPart);
    entry.attributes = Attributes(found);
    m_next = found.NextEntryOffset == 0 ? nullptr : m_next + found.NextEntryOffset;
    return true;
  }

 private:
  static uint32_t Attributes(const FILE_FULL_DIR_INFO& found) {
    constexpr DWORD kFolderLink = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const bool mayBeLink = (found.FileAttributes & kFolderLink) == kFolderLink;
    // The field of a reparse point has its tag instead of a size.
    const bool other = mayBeLink && !LeadsElsewhere(found.EaSize);
    return other ? found.FileAttributes & ~DWORD{FILE_ATTRIBUTE_REPARSE_POINT} : found.FileAttributes;
  }

  // Returns false if there are no more entries.
  bool Fill() {
    if (m_isAtEnd) return false;
    if (::GetFileInformationByHandleEx(m_folder.Get(), FileFullDirectoryInfo, m_buffer, sizeof(m_buffer))) {
      m_next = m_buffer;
      m_isEmpty = false;
      return true;
    }
    // The empty root of a FAT drive has no entries of dots, and answers "not found".
    const DWORD error = ::GetLastError();
    m_isAtEnd = error == ERROR_NO_MORE_FILES || (m_isEmpty && error == ERROR_FILE_NOT_FOUND);
    if (m_isAtEnd) return false;
    throw CException(IDS_LIST_FOLDER_FAILED, {CSystemError::FromWin32(error), m_path});
  }

  std::wstring m_path;
  CKernelHandle m_folder;
  const char* m_next = nullptr;
  bool m_isEmpty = true;  // no entry has been found
  bool m_isAtEnd = false;
  alignas(FILE_FULL_DIR_INFO) char m_buffer[32 * 1024];
};

class CNewFile : public INewFile {
 public:
  CNewFile(const std::wstring& path, CKernelHandle file) : m_path(path), m_file(std::move(file)) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto portion = static_cast<DWORD>(std::min<size_t>(bytes.size(), 1u << 24));
      DWORD written = 0;
      Check(::WriteFile(m_file.Get(), bytes.data(), portion, &written, nullptr));
      bytes.remove_prefix(written);
    }
  }

  void Flush() override { Check(::FlushFileBuffers(m_file.Get())); }
  void Close() override { Check(m_file.Reset()); }

 private:
  void Check(BOOL done) const {
    if (!done) throw CException(IDS_WRITE_FILE_FAILED, {LastError(), m_path});
  }

  std::wstring m_path;
  CKernelHandle m_file;
};

// Returns the last error of a call with these paths. Unless the user has allowed long paths, the system does
// not find one that is too long.
CSystemError PathError(std::initializer_list<std::wstring_view> paths) {
  const DWORD error = ::GetLastError();
  const bool isLong =
      std::any_of(paths.begin(), paths.end(), [](auto path) { return path.size() >= MAX_PATH; });
  const bool tooLong = isLong && error == ERROR_PATH_NOT_FOUND;
  return CSystemError::FromWin32(tooLong ? ERROR_FILENAME_EXCED_RANGE : error);
}

void MovePath(const std::wstring& from, const std::wstring& to, DWORD flags) {
  if (::MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH)) return;
  throw CException(IDS_MOVE_FILE_FAILED, {PathError({from, to}), from, to});
}

// A progress routine of CopyFileEx.
DWORD CALLBACK ReportCopied(LARGE_INTEGER, LARGE_INTEGER copied, LARGE_INTEGER, LARGE_INTEGER, DWORD stream,
                            DWORD, HANDLE, HANDLE, void* progress) {
  constexpr DWORD kContents = 1;  // later streams are alternate ones
  if (stream == kContents)
    (*static_cast<const CCopyProgress*>(progress))(static_cast<uint64_t>(copied.QuadPart));
  return PROGRESS_CONTINUE;
}

bool MeansAbsent(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME;
}

bool MeansTaken(DWORD error) {
  return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
}

// Returns the size of an open file. Throws `messageId`.
uint64_t SizeOf(const CKernelHandle& file, const std::wstring& path, uint32_t messageId) {
  LARGE_INTEGER size{};
  if (!::GetFileSizeEx(file.Get(), &size)) throw CException(messageId, {LastError(), path});
  return static_cast<uint64_t>(size.QuadPart);
}

// Removes the read-only attribute, which a copy gets from its source, and restores it when destroyed.
class CReadOnlyLift {
 public:
  explicit CReadOnlyLift(const std::wstring& path)
      : m_path(path), m_attributes(::GetFileAttributesW(path.c_str())) {
    if (!IsReadOnly()) return;
    const DWORD others = m_attributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    ::SetFileAttributesW(m_path.c_str(),
                         others != 0 ? others : FILE_ATTRIBUTE_NORMAL);  // 0 would change nothing
  }
  CReadOnlyLift(const CReadOnlyLift&) = delete;
  CReadOnlyLift& operator=(const CReadOnlyLift&) = delete;
  ~CReadOnlyLift() {
    if (IsReadOnly()) ::SetFileAttributesW(m_path.c_str(), m_attributes);
  }

 private:
  bool IsReadOnly() const {
    return m_attributes != INVALID_FILE_ATTRIBUTES && (m_attributes & FILE_ATTRIBUTE_READONLY) != 0;
  }

  const std::wstring& m_path;
  DWORD m_attributes;
};

// Flushing needs write access although nothing is written.
CKernelHandle OpenForFlush(const std::wstring& path, FlushDepth depth) {
  const DWORD flags =
      depth == FlushDepth::WriteOut ? FILE_FLAG_OPEN_REPARSE_POINT : DWORD{FILE_ATTRIBUTE_NORMAL};
  return CKernelHandle(
      ::CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

class CHeldFolder : public IHeldFolder {
 public:
  explicit CHeldFolder(CKernelHandle folder) : m_folder(std::move(folder)) {}

 private:
  CKernelHandle m_folder;
};

// Writes out data and metadata of a file without flushing the device. Returns the Win32 code:
// ERROR_NOT_SUPPORTED if the system (before Windows 8) or the file system (not NTFS) does not support this.
DWORD FlushWithoutSync(const CKernelHandle& file) {
  using Function = NTSTATUS NTAPI(HANDLE, ULONG flags, void* parameters, ULONG size, IO_STATUS_BLOCK*);
  constexpr ULONG kNoSync = 2;  // FLUSH_FLAGS_NO_SYNC
  static const auto flush = SystemFunction<Function>(L"ntdll.dll", "NtFlushBuffersFileEx");
  if (!flush) return ERROR_NOT_SUPPORTED;
  IO_STATUS_BLOCK status{};
  const NTSTATUS result = flush(file.Get(), kNoSync, nullptr, 0, &status);
  if (result >= 0) return ERROR_SUCCESS;
  const DWORD error = ::RtlNtStatusToDosError(result);
  const bool unknown = error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_FUNCTION;
  return unknown ? ERROR_NOT_SUPPORTED : error;
}

DWORD FlushFully(const CKernelHandle& file) {
  return ::FlushFileBuffers(file.Get()) ? ERROR_SUCCESS : ::GetLastError();
}

DWORD Flush(const CKernelHandle& file, uint64_t size, FlushDepth depth) {
  constexpr uint64_t kSmall = 1u << 20;  // device flushes for many small files would take hours
  if (depth == FlushDepth::Device) return FlushFully(file);
  const DWORD error = FlushWithoutSync(file);
  if (error != ERROR_NOT_SUPPORTED) return error;
  return size > kSmall ? FlushFully(file) : ERROR_SUCCESS;
}

}  // namespace

std::wstring CWin32FileSystem::FullPath(const std::wstring& path) {
  for (std::wstring full(MAX_PATH, L'\0');;) {
    const DWORD length =
        ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0) throw CException(LastError());
    const bool fits = length < full.size();
    full.resize(length);  // length without the terminator; if the buffer is too small, the required size
    if (fits) return full;
  }
}

std::unique_ptr<IFindFiles> CWin32FileSystem::Find(const std::wstring& folder) {
  return std::make_unique<CFindFiles>(folder);
}

PathKind CWin32FileSystem::Kind(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    return attributes & FILE_ATTRIBUTE_DIRECTORY ? PathKind::Folder : PathKind::File;
  }
  const DWORD error = ::GetLastError();
  if (MeansAbsent(error)) return PathKind::None;
  throw CException(IDS_PATH_UNREADABLE, {CSystemError::FromWin32(error), path});
}

bool CWin32FileSystem::IsLink(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  WIN32_FIND_DATAW found{};
  const CFindHandle find(::FindFirstFileW(path.c_str(), &found));
  return !find || LeadsElsewhere(found.dwReserved0);
}

// A handle takes part in sharing only if it has access to contents.
std::unique_ptr<IHeldFolder> CWin32FileSystem::HoldFolder(const std::wstring& path) {
  CKernelHandle folder(::CreateFileW(path.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!folder) return nullptr;
  return std::make_unique<CHeldFolder>(std::move(folder));
}

uint64_t CWin32FileSystem::FileSize(const std::wstring& path) {
  const CKernelHandle file(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                         OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) throw CException(IDS_READ_FILE_FAILED, {PathError({path}), path});
  return SizeOf(file, path, IDS_READ_FILE_FAILED);
}

void CWin32FileSystem::CreateFolders(const std::wstring& path) {
  if (::CreateDirectoryW(path.c_str(), nullptr)) return;
  DWORD error = ::GetLastError();
  if (error == ERROR_PATH_NOT_FOUND) {
    const std::wstring parent(ParentPath(path));
    if (!parent.empty() && parent != path && Kind(parent) == PathKind::None) {
      CreateFolders(parent);
      if (::CreateDirectoryW(path.c_str(), nullptr)) return;
      error = ::GetLastError();
    }
  }
  // CreateDirectory fails with "access denied" for the root of a drive, and with "exists" if another program
  // created the folder meanwhile.
  if (Kind(path) == PathKind::Folder) return;
  throw CException(IDS_CREATE_FOLDER_FAILED, {CSystemError::FromWin32(error), path});
}

bool CWin32FileSystem::CreateNewFolder(const std::wstring& path) {
  if (::CreateDirectoryW(path.c_str(), nullptr)) return true;
  const DWORD error = ::GetLastError();
  if (MeansTaken(error)) return false;
  throw CException(IDS_CREATE_FOLDER_FAILED, {CSystemError::FromWin32(error), path});
}

void CWin32FileSystem::Copy(const std::wstring& from, const std::wstring& to, const CCopyProgress& progress,
                            LinkCopy link) {
  // CopyFile is this call without a progress routine.
  void* const argument = const_cast<CCopyProgress*>(&progress);
  const DWORD flags = COPY_FILE_FAIL_IF_EXISTS | (link == LinkCopy::Link ? COPY_FILE_COPY_SYMLINK : 0);
  if (::CopyFileExW(from.c_str(), to.c_str(), progress ? ReportCopied : nullptr, argument, nullptr, flags)) {
    return;
  }
  throw CException(IDS_COPY_FILE_FAILED, {PathError({from, to}), from, to});
}

uint64_t CWin32FileSystem::FlushFile(const std::wstring& path, FlushDepth depth) {
  CKernelHandle file = OpenForFlush(path, depth);
  std::optional<CReadOnlyLift> lift;
  if (!file && ::GetLastError() == ERROR_ACCESS_DENIED) {
    lift.emplace(path);
    file = OpenForFlush(path, depth);
  }
  if (!file) throw CException(IDS_WRITE_FILE_FAILED, {PathError({path}), path});
  const uint64_t size = SizeOf(file, path, IDS_WRITE_FILE_FAILED);
  const DWORD error = Flush(file, size, depth);
  if (error != ERROR_SUCCESS) {
    throw CException(IDS_WRITE_FILE_FAILED, {CSystemError::FromWin32(error), path});
  }
  return size;
}

void CWin32FileSystem::Move(const std::wstring& from, const std::wstring& to) {
  MovePath(from, to, 0);
}

void CWin32FileSystem::MoveOver(const std::wstring& from, const std::wstring& to) {
  MovePath(from, to, MOVEFILE_REPLACE_EXISTING);
}

void CWin32FileSystem::RemoveFile(const std::wstring& path) {
  if (!::DeleteFileW(path.c_str())) throw CException(IDS_DELETE_FAILED, {LastError(), path});
}

void CWin32FileSystem::RemoveFolder(const std::wstring& path) {
  const std::wstring list = path + L'\0';  // the shell expects a double null-terminated list
  SHFILEOPSTRUCTW operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = list.c_str();
  operation.fFlags = FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
  const int error = ::SHFileOperationW(&operation);
  if (error != 0) {
    throw CException(IDS_DELETE_FAILED, {CSystemError::FromWin32(static_cast<uint32_t>(error)), path});
  }
}

std::unique_ptr<INewFile> CWin32FileSystem::CreateNewFile(const std::wstring& path, FileLife life) {
  const bool kept = life == FileLife::Kept;
  const DWORD share = kept ? FILE_SHARE_READ : 0;
  const DWORD flags = kept ? FILE_ATTRIBUTE_NORMAL
                           : FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE;
  CKernelHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, share, nullptr, CREATE_NEW, flags, nullptr));
  if (file) return std::make_unique<CNewFile>(path, std::move(file));
  if (MeansTaken(::GetLastError())) return nullptr;
  throw CException(IDS_CREATE_FILE_FAILED, {PathError({path}), path});
}

// With FILE_APPEND_DATA alone the system writes at the end of the file and refuses to overwrite. The share
// mode excludes writers rather than LockFileEx, because file servers enforce it in every version of their
// protocol and the system releases it with the process.
std::unique_ptr<INewFile> CWin32FileSystem::OpenToAppend(const std::wstring& path) {
  CKernelHandle file(::CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) throw CException(IDS_OPEN_FILE_FAILED, {LastError(), path});
  return std::make_unique<CNewFile>(path, std::move(file));
}

std::string CWin32FileSystem::ReadFile(const std::wstring& path, uint64_t most, uint64_t offset) {
  const CKernelHandle file(::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) throw CException(IDS_OPEN_FILE_FAILED, {LastError(), path});
  LARGE_INTEGER start{};
  start.QuadPart = static_cast<LONGLONG>(offset);
  if (!::SetFilePointerEx(file.Get(), start, nullptr, FILE_BEGIN)) {
    throw CException(IDS_READ_FILE_FAILED, {LastError(), path});
  }
  constexpr uint64_t kPortion = 1u << 20;
  std::string bytes;
  while (bytes.size() < most) {
    const size_t before = bytes.size();
    const auto wanted = static_cast<DWORD>(std::min<uint64_t>(most - before, kPortion));
    bytes.resize(before + wanted);
    DWORD read = 0;
    if (!::ReadFile(file.Get(), bytes.data() + before, wanted, &read, nullptr)) {
      throw CException(IDS_READ_FILE_FAILED, {LastError(), path});
    }
    bytes.resize(before + read);
    if (read == 0) break;
  }
  return bytes;
}

uint64_t CWin32FileSystem::FreeSpace(const std::wstring& folder) {
  const std::wstring path = JoinPath(folder, {});  // a share must end in a separator
  ULARGE_INTEGER available{};
  if (::GetDiskFreeSpaceExW(path.c_str(), &available, nullptr, nullptr)) return available.QuadPart;
  throw CException(IDS_PATH_UNREADABLE, {LastError(), path});
}

std::wstring CWin32FileSystem::TemporaryFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  DWORD length = ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  if (length > folder.size()) {
    folder.resize(length);
    length = ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  }
  if (length == 0 || length > folder.size()) throw CException(IDS_TEMP_PATH_FAILED);
  folder.resize(length);
  return folder;
}

}  // namespace my
