// The run controller: the jobs of a run on the worker, its state, and what the windows show of it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/backup_task.h"
#include "engine/multi_task_thread.h"
#include "engine/run_state.h"

namespace qlm {

// Hears of a run on the thread that ticks.
class IRunObserver {
 public:
  virtual ~IRunObserver() = default;

  // A job's rows, all of them, whenever one has changed. `firstRow` is the place of the first among all rows.
  virtual void OnResults(size_t firstRow, const CResults& rows) = 0;
  virtual void OnStatus() = 0;  // the status text and the progress may have changed
  virtual void OnStateChanged() = 0;
  virtual void OnPowerOff() = 0;  // the run has ended well and power-off was asked for
};

struct CRunProgress {
  size_t position = 0;
  size_t range = 1;
};

// Owned and called by one thread; only the client's two notifications come from the worker.
class CBackupThread : private CBackupTaskClient {
 public:
  using Pool = my::CMultiTaskThreadPool<CBackupTask, my::CMultiTaskThread<CBackupTask, 1>>;

  CBackupThread(my::IThreads& threads, const my::IClock& clock, const my::IMessageTexts& texts,
                IRunObserver& observer);

  // Queues a job for the next run.
  void Add(const CBackupTaskPtr& job);

  // Forgets the rows of the last run.
  void ResetResults();

  // Runs the queued jobs. Throws IDS_ALREADY_RUNNING or IDS_START_THREAD_FAILED.
  void Start(bool listOnly, bool powerOff);

  // Drops the queued jobs; the running job ends at its next check.
  // Throws IDS_ALREADY_STOPPING or IDS_NOT_RUNNING.
  void Stop();

  // Waits for the running jobs to end, at most that many milliseconds. The end shows at the next Tick.
  void WaitForJobs(uint32_t timeOutMs) { m_pool.WaitAll(timeOutMs); }

  // To be called every 100 ms during a run: hands out what has changed and notices the end.
  void Tick();

  RunState State() const { return m_state; }
  bool IsActive() const;
  bool IsListOnly() const { return m_listOnly; }  // of the last run
  size_t Total() const { return m_total; }  // rows that the run will have when all jobs come to their end
  size_t RowCount() const { return m_rowCount; }
  bool HasErrors() const;
  uint64_t ElapsedMs() const { return m_currentTick - m_startTick; }

  // Empty before the first run.
  std::wstring StatusText() const;
  CRunProgress Progress() const;

 private:
  struct CShownJob {
    CBackupTaskPtr job;
    size_t firstRow = 0;
    CResults rows;
  };

  void OnProgress(const CBackupTaskPtr& job) override { NoteChanged(job); }
  void OnEnd(const CBackupTaskPtr& job) override { NoteChanged(job); }
  void NoteChanged(const CBackupTaskPtr& job);
  void Collect();
  void Show(const CBackupTaskPtr& job);
  void SetState(RunState state);
  void Finish();

  const my::IClock& m_clock;
  const my::IMessageTexts& m_texts;
  IRunObserver& m_observer;
  RunState m_state = RunState::NOT_RUN;
  bool m_listOnly = false;
  bool m_powerOff = false;
  uint64_t m_startTick = 0;
  uint64_t m_currentTick = 0;
  size_t m_total = 0;
  size_t m_rowCount = 0;
  std::vector<CShownJob> m_shown;  // in the order in which the jobs came up

  my::CAutoCriticalSection m_changedLock;
  std::vector<CBackupTaskPtr> m_changed;

  Pool m_pool;  // last, so that its workers end before what they use goes away
};

// "12:34" or "1:02:03".
std::wstring ElapsedText(uint64_t elapsedMs);

}  // namespace qlm
