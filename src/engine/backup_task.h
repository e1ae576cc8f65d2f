// The backup job: one run of one task against all of its destinations.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>
#include <vector>

#include "document/filter.h"
#include "document/task.h"
#include "engine/auto_lock.h"
#include "engine/fresh_files.h"
#include "engine/result.h"
#include "engine/task_base.h"
#include "support/secret.h"

namespace my {
class IAnsiCodec;
class IClock;
class IFileSystem;
class IMessageTexts;
class IProcess;
}  // namespace my

namespace qlm {

class CBackupTask;

// Hears of a job on the job's worker thread; must not touch windows there.
class CBackupTaskClient {
 public:
  virtual ~CBackupTaskClient() = default;
  virtual void OnProgress(const boost::shared_ptr<CBackupTask>& job) = 0;
  virtual void OnEnd(const boost::shared_ptr<CBackupTask>& job) = 0;
};

// What a job works with; all of it outlives the job.
struct CEnginePorts {
  my::IFileSystem& files;
  const my::IClock& clock;
  const my::IAnsiCodec& ansi;
  const my::IMessageTexts& texts;
  my::IProcess& process;
};

// What a job is to do.
struct CBackupJob {
  qlm::CTask task;
  std::wstring archiverPath = {};  // empty if there is none; only archives need it
  std::wstring password = {};      // of archives; empty if none needs one

  ~CBackupJob() { my::Wipe(password); }
};

class CBackupTask : public my::CTask<CBackupTask, CBackupTaskClient, my::CSimpleErr> {
 public:
  CBackupTask(const CEnginePorts& ports, const CBackupJob& job);
  ~CBackupTask() override { my::Wipe(m_password); }

  // The constructor has called SetTask, SetArchiverPath and SetPassword; until the run they may be called
  // again, in any order.

  // Takes a copy of the task and starts its rows again with one of Phase::LISTING.
  void SetTask(const qlm::CTask& task);

  // List and compute the destination path, transfer nothing.
  void SetListOnly(bool listOnly) { m_listOnly = listOnly; }
  void SetArchiverPath(std::wstring path) { m_archiverPath = std::move(path); }
  void SetPassword(const std::wstring& password);

  // Runs the job, once; never throws. A failure ends it and stands on the last row.
  void Run();

  const qlm::CTask& Task() const { return *m_task; }

  // The rows as they were at the last notification. Callable from any thread.
  CResults Results() const;

 private:
  void MainRun();
  void LoadFilter();
  void ListTargets();
  void FillRow(const CTaskDsts& dsts);
  std::wstring DestinationPath(const CResult& row) const;
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
  boost::shared_ptr<const qlm::CTask> m_task;  // the job's own copy
  std::wstring m_archiverPath;
  std::wstring m_password;
  boost::shared_ptr<const CFilter> m_filter = boost::make_shared<CFilter>();
  CTargetsPtr m_targets = boost::make_shared<CTargets>();
  my::CFileTime m_newest;
  std::vector<CResult> m_rows;  // the worker's own

  mutable my::CAutoCriticalSection m_publishedLock;
  CResults m_published;  // what other threads see of m_rows
};

using CBackupTaskPtr = boost::shared_ptr<CBackupTask>;

}  // namespace qlm
