#include "ui/models/history_models.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "engine/backup_thread.h"
#include "engine/remedy.h"
#include "engine/run_state.h"
#include "engine/value_texts.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

using my::ListAlign;

constexpr CColumnSpec kRunColumns[] = {{IDS_COL_HISTORY_START, 150},
                                       {IDS_COL_RESULT_DURATION, 64, ListAlign::Right},
                                       {IDS_COL_HISTORY_DOCUMENT, 180},
                                       {IDS_COL_HISTORY_PROGRAM, 80},
                                       {IDS_COL_TASK_STATE, 110},
                                       {IDS_OUTCOME_CREATED, 64, ListAlign::Right},
                                       {IDS_OUTCOME_SKIPPED, 64, ListAlign::Right},
                                       {IDS_OUTCOME_FAILED, 56, ListAlign::Right},
                                       {IDS_COL_HISTORY_UNLISTED, 170, ListAlign::Right}};

constexpr CColumnSpec kRowColumns[] = {{IDS_COL_TASK_ID, 120},
                                       {IDS_COL_RESULT_PATH, 240},
                                       {IDS_COL_HISTORY_OUTCOME, 80},
                                       {IDS_COL_RESULT_FILES, 80, ListAlign::Right},
                                       {IDS_COL_RESULT_BYTES, 100, ListAlign::Right},
                                       {IDS_COL_RESULT_MESSAGE, 320}};

constexpr CColumnSpec kTaskColumns[] = {{IDS_COL_TASK_ID, 160},
                                        {IDS_COL_HISTORY_DOCUMENT, 300},
                                        {IDS_COL_LAST_SUCCESS, 150},
                                        {IDS_COL_TASK_STATE, 280}};

constexpr uint64_t kTicksPerMs = 10'000;

uint64_t DurationMs(const CHistoryRun& run) {
  return run.end < run.start ? 0 : (run.end.ticks - run.start.ticks) / kTicksPerMs;
}

std::wstring DocumentText(const my::IMessageTexts& texts, const std::wstring& path) {
  return path.empty() ? texts.Text(IDS_UNTITLED) : path;
}

ResultState StateOf(const CHistoryRow& row) {
  switch (row.outcome) {
    case RowOutcome::FAILED: return ResultState::Failed;
    case RowOutcome::STOPPED: return ResultState::Incomplete;
    default: break;
  }
  if (row.unlisted != 0) return ResultState::Incomplete;
  return row.outcome == RowOutcome::CREATED ? ResultState::Created : ResultState::NotUpdated;
}

ResultState StateOf(const CHistoryRun& run, const CHistoryCounts& counts) {
  if (counts.failed != 0) return ResultState::Failed;
  if (run.stopped || counts.stopped != 0 || counts.unlisted != 0) return ResultState::Incomplete;
  return counts.created != 0 ? ResultState::Created : ResultState::NotUpdated;
}

// A run with errors ends normally too, but must not look so.
std::wstring StateText(const my::IMessageTexts& texts, const CHistoryRun& run, const CHistoryCounts& counts) {
  if (run.stopped) return TextOf(texts, RunState::Stopped);
  return counts.failed != 0 ? texts.Text(IDS_OUTCOME_FAILED) : TextOf(texts, RunState::Ended);
}

constexpr bool IsProblemState(ResultState state) {
  return state == ResultState::Failed || state == ResultState::Incomplete;
}

std::wstring Line(const my::IMessageTexts& texts, uint32_t id, const std::vector<my::CMsgArg>& args) {
  return my::MakeText(texts, id, args);
}

}  // namespace

CHistoryRunsModel::CHistoryRunsModel(const CHistoryTexts& with)
    : CSortableModel(with.texts, kRunColumns), m_with(with) {}

void CHistoryRunsModel::Show(const std::vector<const CHistoryRun*>& runs) {
  m_runs.clear();
  std::ranges::transform(runs, std::back_inserter(m_runs), [](const CHistoryRun* run) {
    return CRun{run, CountRows(*run)};
  });
}

std::wstring CHistoryRunsModel::Detail(size_t row) const {
  const CHistoryRun& run = Run(row);
  return Line(m_texts, IDS_HISTORY_RUN,
              {my::LocalTimeText(m_with.clock, run.start), my::LocalTimeText(m_with.clock, run.end),
               DocumentText(m_texts, run.document)});
}

std::wstring CHistoryRunsModel::Text(size_t row, size_t column) const {
  const auto& [run, counts] = m_runs[row];
  switch (column) {
    case Start: return my::LocalTimeText(m_with.clock, run->start);
    case Duration: return ElapsedText(DurationMs(*run));
    case Document: return DocumentText(m_texts, std::wstring(my::LastComponent(run->document)));
    case Program: return m_texts.Text(kRunProgramTexts[run->program]);
    case State: return StateText(m_texts, *run, counts);
    case Created: return GroupedText(counts.created);
    case Skipped: return GroupedText(counts.skipped);
    case Failed: return GroupedText(counts.failed);
    default: return GroupedText(counts.unlisted);
  }
}

CSortKey CHistoryRunsModel::SortKey(size_t row, size_t column) const {
  const auto& [run, counts] = m_runs[row];
  switch (column) {
    case Start: return {run->start.ticks};
    case Duration: return {DurationMs(*run)};
    case Created: return {counts.created};
    case Skipped: return {counts.skipped};
    case Failed: return {counts.failed};
    case Unlisted: return {counts.unlisted};
    default: return CSortableModel::SortKey(row, column);
  }
}

bool CHistoryRunsModel::IsProblem(size_t row) const {
  return IsProblemState(StateOf(*m_runs[row].run, m_runs[row].counts));
}

my::CListLook CHistoryRunsModel::Look(size_t row) const {
  return StateLook(m_with.setting, StateOf(*m_runs[row].run, m_runs[row].counts));
}

CHistoryRowsModel::CHistoryRowsModel(const CHistoryTexts& with)
    : CSortableModel(with.texts, kRowColumns), m_with(with) {}

std::wstring CHistoryRowsModel::Detail(size_t row) const {
  const CHistoryRow& shown = Row(row);
  std::vector<std::wstring> lines{shown.error == 0 ? Text(row, Outcome) : shown.message,
                                  RemedyLine(m_texts, {shown.error, shown.detail, shown.message}),
                                  Line(m_texts, IDS_DETAIL_SOURCE, {shown.source})};
  if (!shown.destination.empty()) lines.push_back(Line(m_texts, IDS_DETAIL_DESTINATION, {shown.destination}));
  lines.push_back(
      Line(m_texts, IDS_DETAIL_COUNTS,
           {GroupedText(shown.files), SizeText(m_texts, shown.bytes), GroupedText(shown.excluded)}));
  if (shown.unlisted != 0) lines.push_back(Line(m_texts, IDS_UNLISTED_COUNT, {GroupedText(shown.unlisted)}));
  return my::JoinLines(lines);
}

std::wstring CHistoryRowsModel::Text(size_t row, size_t column) const {
  const CHistoryRow& shown = Row(row);
  switch (column) {
    case Id: return shown.taskId;
    case Path: return shown.destination;
    case Outcome: return m_texts.Text(kRowOutcomeTexts[shown.outcome]);
    case Files: return GroupedText(shown.files);
    case Bytes: return GroupedText(shown.bytes);
    default: return shown.message;
  }
}

CSortKey CHistoryRowsModel::SortKey(size_t row, size_t column) const {
  const CHistoryRow& shown = Row(row);
  switch (column) {
    case Outcome: return {static_cast<uint64_t>(shown.outcome)};
    case Files: return {shown.files};
    case Bytes: return {shown.bytes};
    default: return CSortableModel::SortKey(row, column);
  }
}

bool CHistoryRowsModel::IsProblem(size_t row) const {
  return IsProblemState(StateOf(Row(row)));
}

my::CListLook CHistoryRowsModel::Look(size_t row) const {
  return StateLook(m_with.setting, StateOf(Row(row)));
}

CHistoryTasksModel::CHistoryTasksModel(const CHistoryTexts& with)
    : CSortableModel(with.texts, kTaskColumns), m_with(with) {}

std::wstring CHistoryTasksModel::Detail(size_t row) const {
  return my::JoinLines(
      {Text(row, Document), Line(m_texts, IDS_LAST_SUCCESS_TIP, {Text(row, LastSuccess)}), Text(row, State)});
}

std::wstring CHistoryTasksModel::Text(size_t row, size_t column) const {
  const auto& [key, task] = *m_tasks[row];
  switch (column) {
    case Id: return key.taskId;
    case Document: return DocumentText(m_texts, key.document);
    case LastSuccess: return LastSuccessText(m_texts, m_with.clock, task);
    default: return IsProblem(row) ? m_texts.Text(IDS_HISTORY_OVERDUE) : std::wstring();
  }
}

CSortKey CHistoryTasksModel::SortKey(size_t row, size_t column) const {
  if (column == LastSuccess) return {m_tasks[row]->second.lastSuccess.ticks};
  return CSortableModel::SortKey(row, column);
}

bool CHistoryTasksModel::IsProblem(size_t row) const {
  return IsOverdue(m_tasks[row]->second, m_with.clock.Now());
}

my::CListLook CHistoryTasksModel::Look(size_t row) const {
  return StateLook(m_with.setting, IsProblem(row) ? ResultState::Incomplete : ResultState::Created);
}

std::wstring LastSuccessText(const my::IMessageTexts& texts, const my::IClock& clock,
                             const CTaskHistory& task) {
  if (!task.lastSuccess) return texts.Text(IDS_LAST_SUCCESS_NONE);
  return my::LocalTimeText(clock, task.lastSuccess);
}

}  // namespace qlm
