#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace my {
class IFileSystem;
class IStopQuery;
}  // namespace my

namespace qlm {

class CTargets;

// How the files of a backup folder differ from those that would be backed up now.
struct CBackupDifference {
  size_t missing = 0;  // in the backup
  size_t extra = 0;    // in the backup
  size_t resized = 0;

  bool IsNone() const { return missing + extra + resized == 0; }
};

// Compares names and sizes; nullopt if the backup cannot be read completely. The size of a link is not
// compared. Throws IDS_STOPPED.
std::optional<CBackupDifference> CompareBackup(my::IFileSystem& files, const my::IStopQuery* stop,
                                               const CTargets& targets, const std::wstring& backup);

}  // namespace qlm
