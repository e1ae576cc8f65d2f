// The file-system port. Paths are wide and absolute, with "\" between names. A failing operation throws
// CException with the operation's message id, the system error captured at the failing call, and the paths.
// Any thread may call. Other threads, programs and machines may work on the same paths at the same time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "support/file_time.h"

namespace my {

// Values of the system.
inline constexpr uint32_t kAttributeFolder = 0x10;
inline constexpr uint32_t kAttributeLink = 0x400;  // a reparse point: junction, symbolic link, cloud file

// One entry of a folder, as the enumeration reports it.
struct CFindData {
  std::wstring_view name;  // valid until the next call of Next
  CFileTime lastWriteTime;
  uint64_t size = 0;  // bytes; 0 for a symbolic link, whatever it points to
  uint32_t attributes = 0;
};

// A running enumeration of one folder; ends with its destruction.
class IFindFiles {
 public:
  virtual ~IFindFiles() = default;

  // Returns false at the end. Throws IDS_LIST_FOLDER_FAILED.
  virtual bool Next(CFindData& entry) = 0;
};

// A file being written. Destroying it before Close closes it.
class INewFile {
 public:
  virtual ~INewFile() = default;
  virtual void Write(std::string_view bytes) = 0;  // throws IDS_WRITE_FILE_FAILED
  virtual void Flush() = 0;                        // to the device; throws IDS_WRITE_FILE_FAILED
  virtual void Close() = 0;                        // throws IDS_WRITE_FILE_FAILED
};

enum class PathKind { NONE, FILE, FOLDER };

// How long a new file lasts. UNTIL_CLOSED: it is hidden, nobody else can open it, and the system removes it
// when it is closed, also when the program is killed.
enum class FileLife { KEPT, UNTIL_CLOSED };

// How far a flush goes. WRITE_OUT hands everything cached of one file to its device; DEVICE also makes the
// device write its own cache, and with it all that it was handed before.
enum class FlushDepth { WRITE_OUT, DEVICE };

class IFileSystem {
 public:
  virtual ~IFileSystem() = default;

  // Returns the absolute path: what is relative refers to the process's current folder, which the system's
  // dialogs change. Nothing has to exist. Throws the system's error.
  virtual std::wstring FullPath(const std::wstring& path) = 0;

  // Starts the enumeration of all entries of a folder in the order of the file system. Never null.
  // Throws IDS_LIST_FOLDER_FAILED.
  virtual std::unique_ptr<IFindFiles> Find(const std::wstring& folder) = 0;

  // Returns what exists at the path. NONE means that nothing does: a share that cannot be reached, a locked
  // drive or a denied folder throws IDS_PATH_UNREADABLE instead.
  virtual PathKind Kind(const std::wstring& path) = 0;

  // Returns the bytes that opening the file would give; follows links. Throws IDS_READ_FILE_FAILED.
  virtual uint64_t FileSize(const std::wstring& path) = 0;

  // Creates the folder with all missing ancestors. An existing folder is not a failure.
  // Throws IDS_CREATE_FOLDER_FAILED.
  virtual void CreateFolders(const std::wstring& path) = 0;

  // Creates one folder in an existing parent. Returns false if the name is taken: of several programs that
  // try the same name, exactly one gets true. Throws IDS_CREATE_FOLDER_FAILED.
  virtual bool CreateNewFolder(const std::wstring& path) = 0;

  // Copies a whole file with its attributes and last-write time; follows links, never overwrites.
  // Throws IDS_COPY_FILE_FAILED.
  virtual void Copy(const std::wstring& from, const std::wstring& to) = 0;

  // Writes out what the system caches of a file, and returns the file's size in bytes. WRITE_OUT is best
  // effort where the file system cannot do without a device flush: small files are then left to DEVICE.
  // Throws IDS_WRITE_FILE_FAILED.
  virtual uint64_t FlushFile(const std::wstring& path, FlushDepth depth) = 0;

  // Renames a file or folder on its volume; never overwrites. Throws IDS_MOVE_FILE_FAILED.
  virtual void Move(const std::wstring& from, const std::wstring& to) = 0;

  // Renames a file over one that may exist, in one step. Throws IDS_MOVE_FILE_FAILED.
  virtual void MoveOver(const std::wstring& from, const std::wstring& to) = 0;

  // Throws IDS_DELETE_FAILED.
  virtual void RemoveFile(const std::wstring& path) = 0;

  // Deletes a folder with all it holds. Throws IDS_DELETE_FAILED.
  virtual void RemoveFolder(const std::wstring& path) = 0;

  // Creates a file. Returns null if the name is taken: of several programs that try the same name, exactly
  // one gets the file. Throws IDS_CREATE_FILE_FAILED.
  virtual std::unique_ptr<INewFile> CreateNewFile(const std::wstring& path,
                                                  FileLife life = FileLife::KEPT) = 0;

  // The bytes of a file from an offset on, at most `most` of them.
  // Throws IDS_OPEN_FILE_FAILED or IDS_READ_FILE_FAILED.
  virtual std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) = 0;

  // The system's folder for temporary files. Throws IDS_TEMP_PATH_FAILED.
  virtual std::wstring TemporaryFolder() = 0;
};

// IFileSystem::Kind for callers that only want a hint: empty if it cannot be told.
std::optional<PathKind> KindIfKnown(IFileSystem& files, const std::wstring& path);

}  // namespace my
