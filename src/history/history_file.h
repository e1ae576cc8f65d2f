// The file with the history of runs. Several programs, also on several computers, may use it at the same
// time.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "history/history_record.h"

namespace my {
class IClock;
class IFileSystem;
class IKnownFolders;
class IMessageTexts;
}  // namespace my

namespace qlm {

// The runs that the file keeps. It keeps fewer if their records take more than 64 MB.
inline constexpr size_t kMostHistoryRuns = 500;

struct CHistory {
  std::vector<CHistoryRun> runs;  // newest first
  size_t damagedLines = 0;        // skipped
};

// Returns the path of the user's history, in the folder of the settings. Throws IDS_SETTINGS_LOCATION_FAILED.
std::wstring HistoryPath(const my::IKnownFolders& folders, const my::IMessageTexts& texts);

// Appends a record, creating the file and its folder if they are missing, and drops the oldest records above
// the limit. Waits up to 5 s for other programs that write the file. Throws the failure of a step; the other
// records are then unchanged, and at most a part of this one is written, which counts as a damaged line.
void AppendHistory(my::IFileSystem& files, const my::IClock& clock, const std::wstring& path,
                   const CHistoryRun& run);

// Returns no runs if there is no file. A record that is being written may count as damaged. Throws
// IDS_PATH_UNREADABLE, IDS_OPEN_FILE_FAILED, IDS_READ_FILE_FAILED.
CHistory LoadHistory(my::IFileSystem& files, const my::IClock& clock, const std::wstring& path);

}  // namespace qlm
