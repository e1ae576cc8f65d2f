#include "app/run_commands.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "app/messenger.h"
#include "app/password.h"
#include "app/windows.h"
#include "document/document.h"
#include "engine/archiver_location.h"
#include "engine/backup_thread.h"
#include "engine/run_tick.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/secret.h"
#include "text_ids.h"

namespace qlm {
namespace {

void Start(CAppContext& context, const std::vector<CBackupTaskPtr>& jobs, bool listOnly, bool powerOff) {
  context.run.ResetResults();
  for (const CBackupTaskPtr& job : jobs) context.run.Add(job);
  context.window.ClearResults();
  context.run.Start(listOnly, powerOff);
  context.window.StartTimer(kRunTickMs);
  context.window.ShowRunStatus();
}

// Returns IDS_NO_TASKS with what to do next.
my::CException NoTasks(const CAppContext& context) {
  const CDocument& document = context.document;
  const uint32_t next = document.Tasks().empty()  ? IDS_NEXT_ADD_TASK
                        : document.Dsts().empty() ? IDS_NO_TASKS_ADD_DST
                                                  : IDS_NO_TASKS_CHECK_DST;
  my::CException failure(IDS_NO_TASKS);
  failure.SetWhere(context.ports.engine.texts.Text(next));
  return failure;
}

}  // namespace

void CCommandExec::Execute(bool run) {
  RefuseDuringReplace(m_context);
  if (m_kind != RunKind::Document) RefuseDuringRun(m_context);
  const CTasks& all = m_context.document.Tasks();
  std::vector<CTaskPtr> tasks(all.begin(), all.end());
  if (m_kind == RunKind::SelectedTasks) {
    tasks.clear();
    for (const size_t row : RequireSelectedTasks(m_context)) tasks.push_back(all[row]);
  }
  if (!run) return;
  if (m_context.run.IsActive()) {
    m_context.run.Stop();
    return;
  }
  RequireDst(m_context, tasks);
  std::erase_if(tasks, [](const CTaskPtr& task) { return task->dsts.empty(); });
  StartRun(tasks);
}

void CCommandExec::StartRun(const std::vector<CTaskPtr>& tasks) {
  CArchiveSetting archive = m_context.settings.archive;
  const my::CWipeAtEnd wipe(archive.password);
  if (AnyDst(tasks, IsZip) && !PrepareArchives(tasks, archive)) return;
  std::vector<CBackupTaskPtr> jobs;
  for (const CTaskPtr& task : tasks) {
    const CBackupJob job{*task, archive.sevenZipPath, archive.password};
    jobs.push_back(boost::make_shared<CBackupTask>(m_context.ports.engine, job));
  }
  Start(m_context, jobs, false, m_kind == RunKind::DocumentThenPowerOff);
}

// Returns false if the user cancelled. A missing archiver is not refused, because the run may have other
// destinations too.
bool CCommandExec::PrepareArchives(const std::vector<CTaskPtr>& tasks, CArchiveSetting& archive) {
  const CAppPorts& ports = m_context.ports;
  const bool missing = IsArchiverMissing(ports.engine.files, ports.folders, archive.sevenZipPath);
  if (missing && !m_context.messenger.Ask(IDS_ASK_NO_ARCHIVER)) return false;
  if (AnyDst(tasks, NeedsPassword) && !AskPassword(m_context, archive, PasswordDsts(tasks))) return false;
  if (archive.sevenZipPath.empty()) archive.sevenZipPath = FindArchiver(ports.engine.files, ports.folders);
  return true;
}

std::vector<size_t> RequireSelectedTasks(const CAppContext& context) {
  IListState& list = context.window.TaskList();
  std::vector<size_t> rows = list.SelectedRows();
  // The control may have rows that were removed from the document since the last refresh.
  std::erase_if(rows, [&](size_t row) { return row >= context.document.Tasks().size(); });
  if (rows.empty()) throw CListException(IDS_SELECT_TASKS, list);
  return rows;
}

void RequireDst(const CAppContext& context, const std::vector<CTaskPtr>& tasks) {
  const auto hasDst = [](const CTaskPtr& task) { return !task->dsts.empty(); };
  if (std::ranges::none_of(tasks, hasDst)) throw NoTasks(context);
}

void CCommandKeepPower::Execute(bool run) {
  if (!m_context.run.WillPowerOff()) throw my::CException(IDS_NOT_RUNNING);
  if (!run) return;
  m_context.run.KeepPower();
  m_context.window.ShowRunStatus();
}

void CCommandTaskTargets::Execute(bool run) {
  RefuseDuringRun(m_context);
  RefuseDuringReplace(m_context);  // while the replace tool is open, the run could not be stopped
  const auto row = m_context.window.TaskList().FocusedRow();
  if (!row || *row >= m_context.document.Tasks().size())
    throw CListException(IDS_NO_ITEM_SELECTED, m_context.window.TaskList());
  if (!run) return;
  const CBackupJob job{*m_context.document.Tasks()[*row]};
  Start(m_context, {boost::make_shared<CBackupTask>(m_context.ports.engine, job)}, true, false);
}

}  // namespace qlm
