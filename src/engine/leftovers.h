// Incomplete backups that an interrupted run has left under temporary names.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace my {
class IStopQuery;
}

namespace qlm {

struct CLeftover {
  std::wstring path;
  my::PathKind kind = my::PathKind::Folder;
  uint64_t bytes = 0;  // with everything below a folder
};

// Returns what the names of all backups of one pattern and task have in common: each run of digits is "0".
std::wstring NameForm(std::wstring_view name);

// Returns the entries of the folder with a temporary name for a backup whose name has one of these forms. An
// archive that is being written is left out; a folder that is being written cannot be told from a leftover.
// Throws IDS_LIST_FOLDER_FAILED, IDS_STOPPED.
std::vector<CLeftover> FindLeftovers(my::IFileSystem& files, const my::IStopQuery* stop,
                                     const std::wstring& folder, const std::set<std::wstring>& forms);

// Returns the leftover at this path; nullopt if there is none (any more), or an archive is being written
// there. Throws what FindLeftovers throws.
std::optional<CLeftover> FindLeftover(my::IFileSystem& files, const my::IStopQuery* stop,
                                      const std::wstring& path);

}  // namespace qlm
