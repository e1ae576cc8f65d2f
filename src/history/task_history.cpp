#include "history/task_history.h"

#include <algorithm>
#include <compare>
#include <span>

#include "support/strings.h"

namespace qlm {
namespace {

bool Succeeded(const CHistoryRow& row) {
  return row.outcome == RowOutcome::CREATED || row.outcome == RowOutcome::SKIPPED;
}

// Adds a task's part of a run: the rows up to the first one of another task. Returns the rest.
std::span<const CHistoryRow> AddTask(CTaskHistories& tasks, const CHistoryRun& run,
                                     std::span<const CHistoryRow> rows) {
  const std::wstring& id = rows.front().taskId;
  const auto end = std::ranges::find_if(rows, [&id](const CHistoryRow& row) { return row.taskId != id; });
  const auto own = rows.first(static_cast<size_t>(end - rows.begin()));
  CTaskHistory& task = tasks[{run.document, id}];
  if (!task.firstRun || run.end < task.firstRun) task.firstRun = run.end;
  if (std::ranges::all_of(own, Succeeded)) task.lastSuccess = std::max(task.lastSuccess, run.end);
  return rows.subspan(own.size());
}

}  // namespace

bool CTaskKeyLess::operator()(const CTaskKey& a, const CTaskKey& b) const {
  const auto order = std::lexicographical_compare_three_way(
      a.document.begin(), a.document.end(), b.document.begin(), b.document.end(),
      [](wchar_t x, wchar_t y) { return my::LowerAscii(x) <=> my::LowerAscii(y); });
  return order != 0 ? order < 0 : a.taskId < b.taskId;
}

CTaskHistories TaskHistories(const std::vector<CHistoryRun>& runs) {
  CTaskHistories tasks;
  for (const CHistoryRun& run : runs) {
    for (std::span<const CHistoryRow> rows = run.rows; !rows.empty();) rows = AddTask(tasks, run, rows);
  }
  return tasks;
}

bool IsOverdue(const CTaskHistory& task, my::CFileTime now) {
  constexpr uint64_t kSevenDays = uint64_t{7} * 24 * 60 * 60 * 10'000'000;
  const my::CFileTime since = task.lastSuccess ? task.lastSuccess : task.firstRun;
  return now.ticks >= since.ticks + kSevenDays;
}

}  // namespace qlm
