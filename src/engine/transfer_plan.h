// The disk as it will be during a run: what exists now and what the run will have created by then.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "document/dst.h"
#include "platform/file_system.h"
#include "support/exception.h"

namespace qlm {

struct CPlannedTransfer {
  const std::wstring& path;
  DstType type;
  const std::wstring& archiverPath;
};

// Shared by the jobs of one plan, which run one after another. Changes nothing on the disk. The contents of
// planned backups are not known.
class CTransferPlan {
 public:
  explicit CTransferPlan(my::IFileSystem& files) : m_files(files) {}

  // Returns what will exist at the path. Throws IDS_PATH_UNREADABLE.
  my::PathKind Kind(const std::wstring& path);

  // Adds a backup and its missing folders. Throws the failure that the transfer would end with, as far as it
  // can be foreseen: IDS_PATH_UNREADABLE, IDS_CREATE_FOLDER_FAILED, IDS_CREATE_PROCESS_FAILED,
  // IDS_SPACE_IN_ARCHIVE.
  void Add(const CPlannedTransfer& transfer);

  struct CVolume {
    std::wstring key;  // identifies it within the plan
    uint64_t freeBytes = 0;
  };

  // Returns the volume on which the path will be created; nullopt if its free space is not known. The free
  // space is read once for each folder, so it is the same for all backups of a plan.
  std::optional<CVolume> VolumeOf(const std::wstring& path);

 private:
  void CheckFolder(const std::wstring& folder);
  std::optional<uint64_t> FreeSpace(const std::wstring& folder);

  my::IFileSystem& m_files;
  std::map<std::wstring, my::PathKind> m_known;  // by comparable path: existing folders, and what is planned
  std::map<std::wstring, std::optional<uint64_t>> m_freeSpace;  // by comparable path
};

// Returns IDS_SPACE_IN_ARCHIVE with the path that the archiver would split when it creates this archive:
// folder, name or the folder for temporary files.
std::optional<my::CException> FindSplitPath(my::IFileSystem& files, const std::wstring& archivePath);

}  // namespace qlm
