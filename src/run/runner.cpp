#include "run/runner.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "document/document.h"
#include "document/document_file.h"
#include "engine/backup_thread.h"
#include "engine/run_tick.h"
#include "history/run_recorder.h"
#include "platform/console.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "platform/power.h"
#include "run/archive_choice.h"
#include "run/exit_codes.h"
#include "run/plan_session.h"
#include "run/run_output.h"
#include "run/warnings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Returns the tasks to run in document order.
std::vector<CTaskPtr> SelectTasks(const CDocument& document, const COptions& options) {
  std::vector<CTaskPtr> selected;
  for (const std::wstring& id : options.taskIds) {
    if (!document.Tasks().FindId(id)) throw my::CException(IDS_TASK_NOT_FOUND, {id});
  }
  for (const CTaskPtr& task : document.Tasks()) {
    const bool named =
        std::find(options.taskIds.begin(), options.taskIds.end(), task->id) != options.taskIds.end();
    if (!options.taskIds.empty() && !named) continue;
    if (options.listOnly || !task->dsts.empty()) selected.push_back(task);
  }
  if (selected.empty()) throw my::CException(IDS_NO_TASKS);
  return selected;
}

bool IsFinal(const CResult& row, bool listOnly) {
  return row.error || row.phase == Phase::Created || row.phase == Phase::Skipped ||
         (listOnly && row.phase == Phase::Listed);
}

// Runs the jobs and prints each row when it is final.
class CRunSession : private IRunObserver {
 public:
  CRunSession(const CRunnerPorts& ports, const COptions& options, std::wstring document)
      : m_ports(ports),
        m_options(options),
        m_document(std::move(document)),
        m_output(options.json
                     ? MakeJsonOutput(ports.console, ports.engine.texts, options.quiet)
                     : MakeTextOutput(ports.console, ports.engine.texts, options.listOnly, options.quiet)),
        m_controller(ports.threads, ports.engine.clock, ports.engine.texts, *this) {}

  CRunOutcome Run(const std::vector<CTaskPtr>& tasks, const CArchiveChoice& archive) {
    for (const CTaskPtr& task : tasks) {
      const CBackupJob job{*task, archive.archiverPath, archive.password};
      m_controller.Add(boost::make_shared<CBackupTask>(m_ports.engine, job));
    }
    const std::unique_ptr<my::IStayAwake> awake = m_ports.power.KeepAwake();
    m_controller.Start(m_options.listOnly, false);
    while (m_controller.IsActive()) {
      m_controller.WaitForJobs(kRunTickMs);
      if (m_ports.console.InterruptRequested() && m_controller.State() == RunState::Running)
        m_controller.Stop();
      m_controller.Tick();
    }
    m_output->End({m_controller.State(), m_printed, m_errors});
    const int ended = m_errors == 0 ? kExitDone : kExitErrors;
    return {m_controller.State() == RunState::Stopped ? kExitStopped : ended, {}, m_lacksFolders};
  }

 private:
  void OnResults(size_t firstRow, const CResults& rows) override {
    while (m_printed < firstRow + rows.size() && IsFinal(*rows[m_printed - firstRow], m_options.listOnly)) {
      Print(*rows[m_printed - firstRow]);
      ++m_printed;
    }
  }

  void OnStatus() override {
    m_output->Progress({m_controller.StatusText(), m_controller.State(), m_controller.Progress().position,
                        m_controller.Total(), m_controller.ElapsedMs()});
  }
  void OnStateChanged() override {}
  void OnEnded() override {
    const auto record =
        RunRecord(m_ports.engine, m_ports.folders, m_controller, RunProgram::RUNNER, m_document);
    const std::wstring failure = record ? record() : std::wstring();
    if (!failure.empty()) Warn(m_ports, failure);
  }
  void OnPowerOff() override {}

  void Print(const CResult& row) {
    if (row.error) ++m_errors;
    if (row.targets != m_lastTargets) WarnOfUnlisted(m_ports, *row.task, *row.targets);
    m_lastTargets = row.targets;
    m_lacksFolders |= row.phase == Phase::Created && !row.targets->Unlisted().empty();
    m_output->Row(row);
  }

  const CRunnerPorts& m_ports;
  const COptions& m_options;
  std::wstring m_document;
  std::unique_ptr<IRunOutput> m_output;
  size_t m_printed = 0;
  size_t m_errors = 0;
  CTargetsPtr m_lastTargets;
  bool m_lacksFolders = false;
  CBackupThread m_controller;
};

}  // namespace

CRunOutcome RunDocument(const CRunnerPorts& ports, const COptions& options) {
  CRunOutcome outcome{kExitUnusable};
  const my::CSimpleErr error = my::TrapError(ports.engine.texts, [&] {
    const std::wstring path = ports.engine.files.FullPath(options.documentPath);
    const CDocument document = LoadDocument(ports.engine.files, ports.dom, path);
    const std::vector<CTaskPtr> tasks = SelectTasks(document, options);
    if (options.plan) {
      outcome.exitCode = PrintPlan(ports, options, document, tasks);
      return;
    }
    outcome = CRunSession(ports, options, path).Run(tasks, ChooseArchive(ports, options, tasks));
  });
  if (!error) return outcome;
  ports.console.Write(my::IConsole::Stream::Errors, error.message + L"\n");
  outcome.failure = error.message;
  return outcome;
}

}  // namespace qlm
