#include "history/run_recorder.h"

#include "engine/backup_thread.h"
#include "history/history_file.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

RowOutcome OutcomeOf(const CResult& row) {
  if (row.error) return row.error.code == IDS_STOPPED ? RowOutcome::STOPPED : RowOutcome::FAILED;
  if (row.phase == Phase::Created) return RowOutcome::CREATED;
  return row.phase == Phase::Skipped ? RowOutcome::SKIPPED : RowOutcome::STOPPED;
}

CHistoryRow MakeRow(const my::IMessageTexts& texts, const CResult& row, const CTargetCounts& counts) {
  CHistoryRow made;
  made.taskId = row.task->id;
  made.source = row.task->path;
  made.destination = row.destinationPath;
  made.outcome = OutcomeOf(row);
  made.files = counts.counted;
  made.bytes = counts.bytes;
  made.excluded = counts.excluded;
  made.unlisted = row.targets->Unlisted().size();
  made.error = row.error.code;
  made.detail = row.error.detail;
  if (row.error) made.message = ResultText(texts, row);
  return made;
}

CHistoryRun MakeRun(const CEnginePorts& ports, const CBackupThread& run) {
  CHistoryRun made;
  made.start = run.StartTime();
  made.end = ports.clock.Now();
  made.stopped = run.State() == RunState::Stopped;
  CTargetsPtr counted;
  CTargetCounts counts;
  for (const CResultPtr& row : run.Rows()) {
    if (row->targets != counted) counts = CountTargets(*row->targets);  // the rows of a job share their list
    counted = row->targets;
    made.rows.push_back(MakeRow(ports.texts, *row, counts));
  }
  return made;
}

}  // namespace

std::wstring RecordRun(const CEnginePorts& ports, const my::IKnownFolders& folders, const CBackupThread& run,
                       RunProgram program, const std::wstring& document) {
  if (run.IsListOnly()) return {};
  const my::CSimpleErr error = my::TrapError(ports.texts, [&] {
    CHistoryRun record = MakeRun(ports, run);
    record.program = program;
    record.document = document;
    AppendHistory(ports.files, ports.clock, HistoryPath(folders, ports.texts), record);
  });
  if (!error) return {};
  const my::CMsgArg reason = error.message;
  return my::OneLine(my::MakeText(ports.texts, IDS_HISTORY_NOT_WRITTEN, {&reason, 1}));
}

}  // namespace qlm
