// The backup job: runs one task for all of its destinations.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

#include "document/filter.h"
#include "document/task.h"
#include "engine/auto_lock.h"
#include "engine/engine_ports.h"
#include "engine/fresh_files.h"
#include "engine/result.h"
#include "engine/task_base.h"
#include "support/secret.h"

namespace qlm {

class CBackupTask;
class CTransferPlan;

// Receives notifications on the worker thread of the job; must not use windows.
class CBackupTaskClient {
 public:
  virtual ~CBackupTaskClient() = default;
  virtual void OnProgress(const boost::shared_ptr<CBackupTask>& job) = 0;
  virtual void OnEnd(const boost::shared_ptr<CBackupTask>& job) = 0;
};

// The description of a job.
struct CBackupJob {
  qlm::CTask task;
  std::wstring archiverPath = {};  // needed for archives only; empty if not found
  std::wstring password = {};      // of archives; empty if not needed

  ~CBackupJob() { my::Wipe(password); }
};

class CBackupTask : public my::CTask<CBackupTask, CBackupTaskClient, my::CSimpleErr> {
 public:
  CBackupTask(const CEnginePorts& ports, const CBackupJob& job);
  ~CBackupTask() override { my::Wipe(m_password); }

  // The constructor calls SetTask, SetArchiverPath and SetPassword. They may be called again before the run,
  // in any order.

  // Copies the task and replaces all rows with one in Phase::Listing.
  void SetTask(const qlm::CTask& task);

  // Only list and compute the destination path; transfer nothing.
  void SetListOnly(bool listOnly) { m_listOnly = listOnly; }
  // Lists, computes and checks as a run does, for all destinations, but only plans what would be created. The
  // plan must outlive the run; other jobs may share it.
  void SetPlan(CTransferPlan* plan) { m_plan = plan; }

  void SetArchiverPath(std::wstring path) { m_archiverPath = std::move(path); }
  void SetPassword(const std::wstring& password);

  // Runs the job once; never throws. A failure ends the job and is stored in the last row.
  void Run();

  const qlm::CTask& Task() const { return *m_task; }

  // Returns the rows at the last notification. Any thread may call.
  CResults Results() const;

 private:
  void MainRun();
  void ListTargets();
  [[noreturn]] void ThrowNoFiles(const std::optional<my::CException>& unreadable) const;
  void FillRow(const CTaskDsts& dsts);
  std::wstring RowPath(const CResult& row) const;
  void CheckDestinationNames() const;
  void BackUpTo(const CDst& dst);
  bool IsUpToDate(const CDst& dst) const;
  void Transfer(const CDst& dst, const std::wstring& temporaryPath);
  bool TakeFinalName(const CDst& dst, const std::wstring& temporaryPath);
  void AddRow();
  void SetPhase(Phase phase);
  void Publish();
  void Notify();

  CResult& LastRow() { return m_rows.back(); }
  CTransferPorts TransferPorts() const { return {m_ports.files, m_ports.clock, m_stop}; }

  CEnginePorts m_ports;
  bool m_listOnly = false;
  CTransferPlan* m_plan = nullptr;
  boost::shared_ptr<const qlm::CTask> m_task;  // a copy owned by the job
  std::wstring m_archiverPath;
  std::wstring m_password;
  boost::shared_ptr<const CFilter> m_filter = boost::make_shared<CFilter>();
  CTargetsPtr m_targets = boost::make_shared<CTargets>();
  my::CFileTime m_newest;
  std::optional<CTargetCounts> m_counts;  // of m_targets; computed for the first transfer
  std::vector<CResult> m_rows;            // used by the worker only

  mutable my::CAutoCriticalSection m_publishedLock;
  CResults m_published;  // copies of m_rows for other threads
};

using CBackupTaskPtr = boost::shared_ptr<CBackupTask>;

}  // namespace qlm
