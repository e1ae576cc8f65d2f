// The file-system port. Paths are wide and absolute, with "\" as separator. A failed operation throws
// CException with the message id of the operation, the system error captured at the failing call, and the
// paths. Any thread may call. Other threads, programs and machines may use the same paths at the same time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "support/file_time.h"

namespace my {

// FILE_ATTRIBUTE_ values.
inline constexpr uint32_t kAttributeFolder = 0x10;
inline constexpr uint32_t kAttributeLink = 0x400;  // of a folder: a junction or symbolic link, which leads
                                                   // elsewhere; of a file: also one in the cloud

// An entry of a folder as reported by the enumeration.
struct CFindData {
  std::wstring_view name;  // valid until the next call of Next
  CFileTime lastWriteTime;
  uint64_t size = 0;  // bytes; 0 for a symbolic link, whatever its target
  uint32_t attributes = 0;
};

// An enumeration of one folder, ended by the destructor.
class IFindFiles {
 public:
  virtual ~IFindFiles() = default;

  // Returns false at the end. Throws IDS_LIST_FOLDER_FAILED.
  virtual bool Next(CFindData& entry) = 0;
};

// A file being written, from the end of its content. The destructor closes it.
class INewFile {
 public:
  virtual ~INewFile() = default;
  virtual void Write(std::string_view bytes) = 0;  // throws IDS_WRITE_FILE_FAILED
  virtual void Flush() = 0;                        // flushes to the device; throws IDS_WRITE_FILE_FAILED
  virtual void Close() = 0;                        // throws IDS_WRITE_FILE_FAILED
};

// Receives the bytes of a file that have been copied so far, on the thread of the copy. Must not throw.
using CCopyProgress = std::function<void(uint64_t)>;

enum class PathKind { None, File, Folder };

// What a copy of a symbolic link to a file is: a copy of the target, or a link. Creating links needs a
// privilege, so the copy as a link may fail.
enum class LinkCopy { Target, Link };

// Keeps a folder in its place until it is destroyed.
class IHeldFolder {
 public:
  virtual ~IHeldFolder() = default;
};

// The lifetime of a new file. UntilClosed: the file is hidden, cannot be opened by others, and is deleted by
// the system when it is closed, also if the program is killed.
enum class FileLife { Kept, UntilClosed };

// The extent of a flush. WriteOut sends the cached data of one file to its device. Device also flushes the
// cache of the device, with everything sent before.
enum class FlushDepth { WriteOut, Device };

// What a path is on, as far as it matters for work by several threads. Seeks: a disk that loses time when it
// alternates between files.
enum class DiskKind { Unknown, Seeks, NoSeeks, Network };

class IFileSystem {
 public:
  virtual ~IFileSystem() = default;

  // Returns the absolute path. A relative path refers to the current folder of the process, which the
  // system's dialogs change. The path need not exist. Throws the system error.
  virtual std::wstring FullPath(const std::wstring& path) = 0;

  // Starts an enumeration of all entries of a folder, in the order of the file system. Never returns null.
  // Throws IDS_LIST_FOLDER_FAILED.
  virtual std::unique_ptr<IFindFiles> Find(const std::wstring& folder) = 0;

  // Returns what exists at the path. None means that nothing exists; an unreachable share, a locked drive or
  // a denied folder throws IDS_PATH_UNREADABLE instead.
  virtual PathKind Kind(const std::wstring& path) = 0;

  // Returns whether the path itself is a junction or symbolic link. False if this cannot be determined: the
  // failure of the operation that follows says more.
  virtual bool IsLink(const std::wstring& path) = 0;

  // Keeps others from renaming, deleting or replacing a folder; a link is held itself. They may still change
  // its contents. Returns null if the folder cannot be held, for example because another program has it open
  // to delete it, and where the system cannot enforce this.
  virtual std::unique_ptr<IHeldFolder> HoldFolder(const std::wstring& path) = 0;

  // Returns the size in bytes, following links. Throws IDS_READ_FILE_FAILED.
  virtual uint64_t FileSize(const std::wstring& path) = 0;

  // Creates the folder and its missing ancestors. Does nothing if it exists. Throws IDS_CREATE_FOLDER_FAILED.
  virtual void CreateFolders(const std::wstring& path) = 0;

  // Creates one folder in an existing parent. Returns false if the name is taken; if several programs try the
  // same name, exactly one gets true. Throws IDS_CREATE_FOLDER_FAILED.
  virtual bool CreateNewFolder(const std::wstring& path) = 0;

  // Copies a file with its attributes and last-write time. Never overwrites. Calls `progress` from time to
  // time. Throws IDS_COPY_FILE_FAILED.
  virtual void Copy(const std::wstring& from, const std::wstring& to, const CCopyProgress& progress = {},
                    LinkCopy link = LinkCopy::Target) = 0;

  // Flushes the cached data of a file and returns its size in bytes. On file systems that cannot write a file
  // out without a device flush, WriteOut skips small files, which the system writes later; WriteOut does not
  // follow a link, whose size is 0. Throws IDS_WRITE_FILE_FAILED.
  virtual uint64_t FlushFile(const std::wstring& path, FlushDepth depth) = 0;

  // Renames a file or folder on its volume; never overwrites. Throws IDS_MOVE_FILE_FAILED.
  virtual void Move(const std::wstring& from, const std::wstring& to) = 0;

  // Renames a file and atomically replaces an existing target. Throws IDS_MOVE_FILE_FAILED.
  virtual void MoveOver(const std::wstring& from, const std::wstring& to) = 0;

  // Throws IDS_DELETE_FAILED.
  virtual void RemoveFile(const std::wstring& path) = 0;

  // Deletes a folder and its contents. Throws IDS_DELETE_FAILED.
  virtual void RemoveFolder(const std::wstring& path) = 0;

  // Creates a file. Returns null if the name is taken; if several programs try the same name, exactly one
  // gets the file. Throws IDS_CREATE_FILE_FAILED.
  virtual std::unique_ptr<INewFile> CreateNewFile(const std::wstring& path,
                                                  FileLife life = FileLife::Kept) = 0;

  // Opens a file to write at its end; creates it if it is missing. Until it is closed, also by the end of the
  // program, others may read it but not write it: their call fails with "sharing violation", on a share for
  // other machines too. Throws IDS_OPEN_FILE_FAILED.
  virtual std::unique_ptr<INewFile> OpenToAppend(const std::wstring& path) = 0;

  // Returns the bytes of a file from `offset`, at most `most`. Throws IDS_OPEN_FILE_FAILED or
  // IDS_READ_FILE_FAILED.
  virtual std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) = 0;

  // Returns the bytes that the user may still write to the volume of an existing folder. A quota may be
  // smaller than the volume. Throws IDS_PATH_UNREADABLE.
  virtual uint64_t FreeSpace(const std::wstring& folder) = 0;

  // Returns the kind of disk of a path, which need not exist; Unknown if the disk does not tell. May be as of
  // a minute ago. Never throws.
  virtual DiskKind Disk(const std::wstring& path) = 0;

  // Returns the system's folder for temporary files. Throws IDS_TEMP_PATH_FAILED.
  virtual std::wstring TemporaryFolder() = 0;
};

// Returns IFileSystem::Kind as a hint: nullopt if it cannot be determined.
std::optional<PathKind> KindIfKnown(IFileSystem& files, const std::wstring& path);

}  // namespace my
