#include "app/run_commands.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "app/password.h"
#include "app/windows.h"
#include "document/document.h"
#include "engine/archive_writer.h"
#include "engine/backup_thread.h"
#include "settings/settings.h"
#include "support/secret.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr uint32_t kTickMs = 100;

template <class Test>
bool AnyDst(const std::vector<CBackupTaskPtr>& jobs, Test test) {
  return std::any_of(jobs.begin(), jobs.end(), [test](const CBackupTaskPtr& job) {
    const CTaskDsts& dsts = job->Task().dsts;
    return std::any_of(dsts.begin(), dsts.end(), [test](const CDstPtr& dst) { return test(dst->type); });
  });
}

void Start(CAppContext& context, const std::vector<CBackupTaskPtr>& jobs, bool listOnly, bool powerOff) {
  context.run.ResetResults();
  for (const CBackupTaskPtr& job : jobs) context.run.Add(job);
  context.window.ClearResults();
  context.run.Start(listOnly, powerOff);
  context.window.StartTimer(kTickMs);
}

}  // namespace

void CCommandExec::Execute(bool run) {
  RefuseDuringReplace(m_context);
  if (m_powerOff) RefuseDuringRun(m_context);
  if (!run) return;
  if (m_context.run.IsActive()) {
    m_context.run.Stop();
    return;
  }
  const std::vector<CBackupTaskPtr> jobs = MakeJobs();
  if (jobs.empty()) throw my::CException(IDS_NO_TASKS);
  StartRun(jobs);
}

std::vector<CBackupTaskPtr> CCommandExec::MakeJobs() const {
  std::vector<CBackupTaskPtr> jobs;
  for (const CTaskPtr& task : m_context.document.Tasks()) {
    if (task->dsts.empty()) continue;
    auto job = boost::make_shared<CBackupTask>(m_context.ports.engine);
    job->SetTask(*task);
    jobs.push_back(std::move(job));
  }
  return jobs;
}

void CCommandExec::StartRun(const std::vector<CBackupTaskPtr>& jobs) {
  CArchiveSetting archive = m_context.settings.archive;
  const my::CWipeAtEnd wipe(archive.password);
  if (AnyDst(jobs, NeedsPassword) && !AskPassword(m_context, archive)) return;
  if (archive.sevenZipPath.empty() && AnyDst(jobs, IsZip)) {
    archive.sevenZipPath = FindArchiver(m_context.ports.engine.files, m_context.ports.folders);
  }
  for (const CBackupTaskPtr& job : jobs) {
    job->SetArchiverPath(archive.sevenZipPath);
    job->SetPassword(archive.password);
  }
  Start(m_context, jobs, false, m_powerOff);
}

void CCommandTaskTargets::Execute(bool run) {
  RefuseDuringRun(m_context);
  RefuseDuringReplace(m_context);  // while it is open nobody could stop the run
  const auto row = m_context.window.TaskList().FocusedRow();
  if (!row || *row >= m_context.document.Tasks().size())
    throw CListException(IDS_NO_ITEM_SELECTED, m_context.window.TaskList());
  if (!run) return;
  auto job = boost::make_shared<CBackupTask>(m_context.ports.engine);
  job->SetTask(*m_context.document.Tasks()[*row]);
  Start(m_context, {job}, true, false);
}

}  // namespace qlm
