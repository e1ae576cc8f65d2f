// The door to the disk. Paths are wide, absolute, with "\" between names. A failing operation throws
// CException with the operation's message id, the system's error taken at the failing call, and the paths.
// Any thread may call; two threads must not work on one path.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "support/file_time.h"

namespace my {

inline constexpr uint32_t kAttributeFolder = 0x10;

// One entry of a folder, as the enumeration reports it.
struct CFindData {
  std::wstring_view name;  // valid until the next call of Next
  CFileTime lastWriteTime;
  uint64_t size = 0;  // bytes
  uint32_t attributes = 0;
};

// A running enumeration of one folder; ends with its destruction.
class IFindFiles {
 public:
  enum class Result { ENTRY, END, FAILED };

  virtual ~IFindFiles() = default;
  virtual Result Next(CFindData& entry) = 0;
};

// A file being written; it is closed, not deleted, when destroyed before Close.
class INewFile {
 public:
  virtual ~INewFile() = default;
  virtual void Write(std::string_view bytes) = 0;  // throws IDS_WRITE_FILE_FAILED
  virtual void Flush() = 0;                        // to the disk itself; throws IDS_WRITE_FILE_FAILED
  virtual void Close() = 0;                        // throws IDS_WRITE_FILE_FAILED
};

enum class PathKind { NONE, FILE, FOLDER };

class IFileSystem {
 public:
  virtual ~IFileSystem() = default;

  // Starts the enumeration of all entries of a folder, given with the pattern that matches them ("C:\a\*.*"),
  // in the order of the file system. Empty when it cannot be started (missing folder, no access).
  virtual std::unique_ptr<IFindFiles> Find(const std::wstring& pattern) = 0;

  // What stands at the path; NONE also when that cannot be told.
  virtual PathKind Kind(const std::wstring& path) = 0;

  // The size of a file in bytes. Throws IDS_READ_FILE_FAILED.
  virtual uint64_t FileSize(const std::wstring& path) = 0;

  // Makes the folder with all missing ancestors; one that exists already is fine.
  // Throws IDS_CREATE_FOLDER_FAILED.
  virtual void CreateFolders(const std::wstring& path) = 0;

  // Copies a whole file with its attributes and last-write time; never overwrites.
  // Throws IDS_COPY_FILE_FAILED.
  virtual void Copy(const std::wstring& from, const std::wstring& to) = 0;

  // Renames a file or folder on its volume; never overwrites. Throws IDS_MOVE_FILE_FAILED.
  virtual void Move(const std::wstring& from, const std::wstring& to) = 0;

  // Renames a file over one that may exist, in one step. Throws IDS_MOVE_FILE_FAILED.
  virtual void MoveOver(const std::wstring& from, const std::wstring& to) = 0;

  // Throws IDS_DELETE_FAILED.
  virtual void RemoveFile(const std::wstring& path) = 0;

  // Deletes a folder with all it holds. Throws IDS_DELETE_FAILED.
  virtual void RemoveFolder(const std::wstring& path) = 0;

  // Creates a file that must not exist yet. Throws IDS_CREATE_FILE_FAILED.
  virtual std::unique_ptr<INewFile> CreateNewFile(const std::wstring& path) = 0;

  // The bytes of a file from an offset on, at most `most` of them.
  // Throws IDS_OPEN_FILE_FAILED or IDS_READ_FILE_FAILED.
  virtual std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) = 0;

  // The system's folder for temporary files. Throws IDS_TEMP_PATH_FAILED.
  virtual std::wstring TemporaryFolder() = 0;
};

}  // namespace my
