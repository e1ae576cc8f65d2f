// What the history says about each task.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "history/history_record.h"
#include "support/file_time.h"

namespace qlm {

// A task across runs. The case of ASCII letters in the path does not matter, as in the file system.
struct CTaskKey {
  std::wstring document;
  std::wstring taskId;
};

struct CTaskKeyLess {
  bool operator()(const CTaskKey& a, const CTaskKey& b) const;
};

struct CTaskHistory {
  my::CFileTime firstRun;     // the end of the oldest known run of the task
  my::CFileTime lastSuccess;  // the end of the newest run in which it succeeded; zero if there is none
};

using CTaskHistories = std::map<CTaskKey, CTaskHistory, CTaskKeyLess>;

// Returns the tasks of the runs, which may be in any order. A task succeeded if all of its rows are created
// or skipped: a job ends at its first error, so no destination is left out.
CTaskHistories TaskHistories(const std::vector<CHistoryRun>& runs);

// Returns whether the task has not succeeded for seven days. A task without any success counts from its first
// run.
bool IsOverdue(const CTaskHistory& task, my::CFileTime now);

}  // namespace qlm
