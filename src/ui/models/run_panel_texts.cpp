#include "ui/models/run_panel_texts.h"

#include <algorithm>
#include <initializer_list>

#include "engine/backup_thread.h"
#include "engine/run_meter.h"
#include "engine/transfer_counters.h"
#include "engine/value_texts.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"
#include "ui/models/result_list_model.h"

namespace qlm {
namespace {

constexpr std::wstring_view kBetween = L"   ";

std::wstring Make(const my::IMessageTexts& texts, uint32_t id, std::initializer_list<my::CMsgArg> args) {
  return my::MakeText(texts, id, {args.begin(), args.size()});
}

// Builds a line from parts.
class CLine {
 public:
  explicit CLine(const my::IMessageTexts& texts) : m_texts(texts) {}

  void Add(uint32_t id, std::initializer_list<my::CMsgArg> args = {}) {
    if (!m_line.empty()) m_line += kBetween;
    m_line += Make(m_texts, id, args);
  }

  void AddWork(const CWork& done, const std::optional<CWork>& toDo) {
    const std::wstring files = GroupedText(done.files);
    const std::wstring bytes = SizeText(m_texts, done.bytes);
    if (toDo) {
      Add(IDS_METER_FILES_OF, {files, GroupedText(toDo->files)});
      return Add(IDS_METER_BYTES_OF, {bytes, SizeText(m_texts, toDo->bytes)});
    }
    Add(IDS_METER_FILES, {files});
    m_line.append(kBetween).append(bytes);
  }

  void AddLeft(const std::optional<uint64_t>& seconds);

  std::wstring Text() { return std::move(m_line); }

 private:
  const my::IMessageTexts& m_texts;
  std::wstring m_line;
};

// Returns a rounded time as hours and minutes, minutes, or seconds.
std::wstring TimeText(const my::IMessageTexts& texts, uint64_t seconds) {
  const uint64_t minutes = seconds / 60;
  if (minutes == 0) return Make(texts, IDS_METER_SECONDS, {std::to_wstring(seconds)});
  if (minutes < 60) return Make(texts, IDS_METER_MINUTES, {std::to_wstring(minutes)});
  const std::wstring hours = std::to_wstring(minutes / 60);
  if (minutes % 60 == 0) return Make(texts, IDS_METER_HOURS, {hours});
  return Make(texts, IDS_METER_HOURS_MINUTES, {hours, std::to_wstring(minutes % 60)});
}

void CLine::AddLeft(const std::optional<uint64_t>& seconds) {
  if (seconds) Add(IDS_METER_LEFT, {TimeText(m_texts, *seconds)});
}

std::wstring RunLine(const my::IMessageTexts& texts, const CRunMeasure& measure) {
  CLine line(texts);
  line.Add(measure.isExact ? IDS_METER_RUN : IDS_METER_RUN_ABOUT, {std::to_wstring(measure.percent)});
  line.AddWork(measure.done, measure.toDo);
  line.AddLeft(measure.runSecondsLeft);
  return line.Text();
}

std::wstring RowLine(const my::IMessageTexts& texts, const CRunMeasure& measure) {
  if (!measure.row) return {};
  const CRowSample& row = *measure.row;
  CLine line(texts);
  if (row.phase == Phase::Archiving) {
    line.Add(IDS_METER_ARCHIVING);
    line.Add(IDS_METER_ELAPSED, {ElapsedText(row.elapsedMs)});
    if (row.archiveBytes != 0) line.Add(IDS_METER_ARCHIVE_BYTES, {SizeText(texts, row.archiveBytes)});
    return line.Text();
  }
  if (row.phase != Phase::Copying) {
    line.Add(IDS_METER_LISTING);
    return line.Text();
  }
  line.Add(row.IsFlushing() ? IDS_METER_FLUSHING : IDS_METER_COPYING);
  line.AddWork(row.done, row.toDo);
  if (row.IsFlushing()) return line.Text();
  if (measure.speed) line.Add(IDS_METER_SPEED, {SizeText(texts, *measure.speed)});
  line.AddLeft(measure.rowSecondsLeft);
  return line.Text();
}

// Returns the task with its current file, or with its source or destination if there is none.
std::wstring FileLine(const my::IMessageTexts& texts, const CResult& row) {
  std::wstring path = row.destinationPath.empty() ? row.task->path : row.destinationPath;
  const bool copying = row.phase == Phase::Copying && row.transfer;
  if (copying && row.transfer->Target() < row.targets->size())
    path = (*row.targets)[row.transfer->Target()].RelativePath();
  return Make(texts, IDS_METER_SOURCE, {row.task->id, path});
}

// Numbers of rows. A stopped row has not ended.
struct COutcomes {
  size_t created = 0;
  size_t skipped = 0;
  size_t failed = 0;

  size_t Ended() const { return created + skipped + failed; }
};

COutcomes CountOutcomes(const CResults& rows) {
  COutcomes outcomes;
  for (const CResultPtr& row : rows) {
    if (row->error)
      outcomes.failed += row->error.code != IDS_STOPPED;
    else if (row->phase == Phase::Created)
      ++outcomes.created;
    else if (row->phase == Phase::Skipped)
      ++outcomes.skipped;
  }
  return outcomes;
}

}  // namespace

CRunPanelTexts RunPanelTexts(const my::IMessageTexts& texts, const CRunMeasure& measure, const CResult* row) {
  CRunPanelTexts made;
  made.run = RunLine(texts, measure);
  made.row = RowLine(texts, measure);
  if (row) made.file = FileLine(texts, *row);
  return made;
}

CVerdict MakeVerdict(const my::IMessageTexts& texts, const CBackupThread& run,
                     const CResultListModel& results) {
  const COutcomes outcomes = CountOutcomes(results.Rows());
  const size_t unlisted = results.UnlistedCount();
  const size_t notRun = run.Total() - std::min(run.Total(), outcomes.Ended());
  const bool stopped = run.State() == RunState::Stopped;
  CVerdict verdict;
  verdict.text =
      Make(texts, stopped ? IDS_VERDICT_STOPPED : IDS_VERDICT_ENDED,
           {GroupedText(outcomes.created), GroupedText(outcomes.skipped), GroupedText(outcomes.failed)});
  if (unlisted != 0) verdict.text += Make(texts, IDS_VERDICT_UNLISTED, {GroupedText(unlisted)});
  if (notRun != 0) verdict.text += Make(texts, IDS_VERDICT_NOT_RUN, {GroupedText(notRun)});
  if (outcomes.failed != 0)
    verdict.state = ResultState::Failed;
  else if (unlisted != 0 || notRun != 0)
    verdict.state = ResultState::Incomplete;
  CLine totals(texts);
  totals.AddWork(run.Measure().done, {});
  totals.Add(IDS_METER_ELAPSED, {ElapsedText(run.ElapsedMs())});
  verdict.totals = totals.Text();
  return verdict;
}

}  // namespace qlm
