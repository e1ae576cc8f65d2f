#include "ui/models/result_list_model.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "engine/backup_thread.h"
#include "engine/remedy.h"
#include "engine/value_texts.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

using my::ListAlign;

constexpr bool kNotStored = false;  // the settings file has no place for the width

constexpr CColumnSpec kColumns[] = {{IDS_COL_TASK_ID, 104},
                                    {IDS_COL_RESULT_PATH, 160},
                                    {IDS_COL_DST_TYPE, 90},
                                    {IDS_COL_RESULT_TIME, 140},
                                    {IDS_COL_RESULT_FILES, 80, ListAlign::Right, kNotStored},
                                    {IDS_COL_RESULT_BYTES, 96, ListAlign::Right, kNotStored},
                                    {IDS_COL_RESULT_DURATION, 60, ListAlign::Right, kNotStored},
                                    {IDS_COL_RESULT_SPEED, 90, ListAlign::Right, kNotStored},
                                    {IDS_COL_RESULT_MESSAGE, 280}};

constexpr size_t kMostFolders = 1000;  // in the text about a row

bool IsCreated(const CResult& row) {
  return !row.error && row.phase == Phase::Created;
}

}  // namespace

CResultListModel::CResultListModel(const CUISetting& setting, const my::IMessageTexts& texts,
                                   const my::IClock& clock)
    : CSortableModel(texts, kColumns), m_setting(setting), m_clock(clock) {}

void CResultListModel::ShowResults(size_t firstRow, const CResults& rows) {
  m_rows.resize(std::max(m_rows.size(), firstRow + rows.size()));
  m_counts.resize(m_rows.size());
  for (size_t i = 0; i < rows.size(); ++i) {
    const size_t row = firstRow + i;
    const CResultPtr before = std::exchange(m_rows[row], rows[i]);
    if (!before || before->targets != rows[i]->targets) Count(row);
  }
}

// The rows of a job share their list, which may have a million entries.
void CResultListModel::Count(size_t row) {
  const bool shared = row != 0 && m_rows[row - 1] && m_rows[row - 1]->targets == m_rows[row]->targets;
  m_counts[row] = shared ? m_counts[row - 1] : CountTargets(*m_rows[row]->targets);
}

void CResultListModel::Clear() {
  m_rows.clear();
  m_counts.clear();
}

size_t CResultListModel::ErrorCount() const {
  const auto failed = [](const CResultPtr& row) { return static_cast<bool>(row->error); };
  return static_cast<size_t>(std::count_if(m_rows.begin(), m_rows.end(), failed));
}

size_t CResultListModel::UnlistedCount() const {
  size_t count = 0;
  const CTargets* last = nullptr;  // all rows of a job share one list
  for (const CResultPtr& row : m_rows) {
    if (row->targets.get() != last) count += row->targets->Unlisted().size();
    last = row->targets.get();
  }
  return count;
}

std::wstring CResultListModel::TotalsText() const {
  size_t created = 0;
  size_t files = 0;
  uint64_t bytes = 0;
  uint64_t ms = 0;
  for (size_t row = 0; row < m_rows.size(); ++row) {
    if (!IsCreated(Row(row))) continue;
    ++created;
    files += m_counts[row].counted;
    bytes += m_counts[row].bytes;
    ms += Row(row).transferMs;
  }
  if (created == 0) return m_texts.Text(IDS_RESULT_NO_TOTALS);
  const my::CMsgArg args[] = {GroupedText(created), GroupedText(files), SizeText(m_texts, bytes),
                              ElapsedText(ms), SpeedText(m_texts, bytes, ms)};
  return my::MakeText(m_texts, IDS_RESULT_TOTALS, args);
}

std::wstring CResultListModel::Detail(size_t row) const {
  const CResult& result = Row(row);
  const CTargetCounts& counts = m_counts[row];
  const auto text = [this](uint32_t id, const std::vector<my::CMsgArg>& args) {
    return my::MakeText(m_texts, id, args);
  };
  std::vector<std::wstring> lines{FullResultText(m_texts, result), RemedyLine(m_texts, result.error),
                                  text(IDS_DETAIL_SOURCE, {result.task->path})};
  if (!result.destinationPath.empty())
    lines.push_back(text(IDS_DETAIL_DESTINATION, {result.destinationPath}));
  if (IsListed(row))
    lines.push_back(text(IDS_DETAIL_COUNTS, {GroupedText(counts.counted), SizeText(m_texts, counts.bytes),
                                             GroupedText(counts.excluded)}));
  if (IsCreated(result))
    lines.push_back(text(IDS_DETAIL_TIME, {ElapsedText(result.transferMs),
                                           SpeedText(m_texts, counts.bytes, result.transferMs)}));
  std::ranges::copy(UnlistedLines(result), std::back_inserter(lines));
  return my::JoinLines(lines);
}

std::vector<std::wstring> CResultListModel::UnlistedLines(const CResult& result) const {
  const std::vector<CUnlistedFolder>& folders = result.targets->Unlisted();
  if (folders.empty()) return {};
  const auto count = [this](uint32_t id, size_t number) {
    const my::CMsgArg arg = GroupedText(number);
    return my::MakeText(m_texts, id, {&arg, 1});
  };
  std::vector<std::wstring> lines{count(IDS_DETAIL_UNLISTED, folders.size())};
  const size_t named = std::min(folders.size(), kMostFolders);
  for (size_t i = 0; i < named; ++i) {
    lines.push_back(L"  " + my::OneLine(UnlistedText(m_texts, *result.task, folders[i])));
  }
  if (named != folders.size()) lines.push_back(L"  " + count(IDS_DETAIL_MORE, folders.size() - named));
  return lines;
}

std::wstring CResultListModel::Text(size_t row, size_t column) const {
  const CResult& result = Row(row);
  const CTargetCounts& counts = m_counts[row];
  switch (column) {
    case Id: return result.task->id;
    case Path: return result.destinationPath;
    case Type: return result.Dst() ? m_texts.Text(kDstTypeTexts[result.Dst()->type]) : std::wstring();
    case Time: return my::LocalTimeText(m_clock, result.newestWriteTime);
    case Files: return IsListed(row) ? GroupedText(counts.counted) : std::wstring();
    case Bytes: return IsListed(row) ? GroupedText(counts.bytes) : std::wstring();
    case Duration: return IsCreated(result) ? ElapsedText(result.transferMs) : std::wstring();
    case Speed:
      return IsCreated(result) ? SpeedText(m_texts, counts.bytes, result.transferMs) : std::wstring();
    default: return RowText(m_texts, result);
  }
}

CSortKey CResultListModel::SortKey(size_t row, size_t column) const {
  const CResult& result = Row(row);
  switch (column) {
    case Type: return {result.Dst() ? static_cast<uint64_t>(result.Dst()->type) + 1 : 0};
    case Time: return {result.newestWriteTime.ticks};
    case Files: return {m_counts[row].counted};
    case Bytes: return {m_counts[row].bytes};
    case Duration: return {result.transferMs};
    case Speed: return {BytesPerSecond(m_counts[row].bytes, result.transferMs)};
    default: return CSortableModel::SortKey(row, column);
  }
}

bool CResultListModel::IsProblem(size_t row) const {
  const ResultState state = StateOf(Row(row));
  return state == ResultState::Failed || state == ResultState::Incomplete;
}

}  // namespace qlm
