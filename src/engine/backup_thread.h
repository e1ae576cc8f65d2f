// The run controller: runs jobs on the worker and collects their rows and state for the windows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/backup_task.h"
#include "engine/multi_task_thread.h"
#include "engine/run_meter.h"
#include "engine/run_sample.h"
#include "engine/run_state.h"

namespace qlm {

// Receives notifications on the thread that calls Tick.
class IRunObserver {
 public:
  virtual ~IRunObserver() = default;

  // Receives all rows of a job when one has changed. `firstRow` is the index of its first row among all rows.
  virtual void OnResults(size_t firstRow, const CResults& rows) = 0;
  virtual void OnStatus() = 0;  // status text or progress may have changed
  virtual void OnStateChanged() = 0;

  // The run has ended, with or without a stop, and its rows are final. Called before the last OnStatus and
  // OnStateChanged.
  virtual void OnEnded() = 0;
  virtual void OnPowerOff() = 0;  // the run ended without errors, and power-off was requested
};

struct CRunProgress {
  size_t position = 0;
  size_t range = 1;
};

// Used by one thread. Only the two notifications of the job client come from the worker.
class CBackupThread : private CBackupTaskClient {
 public:
  using Pool = my::CMultiTaskThreadPool<CBackupTask, my::CMultiTaskThread<CBackupTask, 1>>;

  CBackupThread(my::IThreads& threads, const my::IClock& clock, const my::IMessageTexts& texts,
                IRunObserver& observer);

  // Queues a job for the next run.
  void Add(const CBackupTaskPtr& job);

  // Removes the rows of the last run.
  void ResetResults();

  // Runs the queued jobs. Throws IDS_ALREADY_RUNNING or IDS_START_THREAD_FAILED.
  void Start(bool listOnly, bool powerOff);

  // Drops the queued jobs; the running job ends at its next check. Throws IDS_ALREADY_STOPPING or
  // IDS_NOT_RUNNING.
  void Stop();

  // Waits up to `timeOutMs` for the running jobs to end. The next Tick notices the end.
  void WaitForJobs(uint32_t timeOutMs) { m_pool.WaitAll(timeOutMs); }

  // Must be called every 100 ms during a run: reports changed rows and detects the end.
  void Tick();

  RunState State() const { return m_state; }
  bool IsActive() const;
  bool IsListOnly() const { return m_listOnly; }  // of the last run

  // Returns whether OnPowerOff follows if the active run ends without errors and is not stopped.
  bool WillPowerOff() const { return m_state == RunState::Running && m_powerOff; }
  void KeepPower() { m_powerOff = false; }  // for the active run
  size_t Total() const { return m_total; }  // number of rows if all jobs run to their end
  size_t RowCount() const { return m_rowCount; }
  bool HasErrors() const;
  CResults Rows() const;  // all rows of the last run
  my::CFileTime StartTime() const { return m_startTime; }
  uint64_t ElapsedMs() const { return m_currentTick - m_startTick; }

  // Returns what the run has done, as of the last tick; nothing for a run that only lists.
  const CRunMeasure& Measure() const { return m_meter.Measure(); }

  // Returns the text of state, count and time; empty before the first run.
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
  CRunSample Sample() const;
  void SetState(RunState state);
  void Finish();

  const my::IClock& m_clock;
  const my::IMessageTexts& m_texts;
  IRunObserver& m_observer;
  RunState m_state = RunState::NotRun;
  bool m_listOnly = false;
  bool m_powerOff = false;
  my::CFileTime m_startTime;
  uint64_t m_startTick = 0;
  uint64_t m_currentTick = 0;
  size_t m_total = 0;
  size_t m_rowCount = 0;
  std::vector<CShownJob> m_shown;  // in the order in which they first reported
  CRunTotals m_earlier;            // of all jobs in m_shown but the last
  CRunMeter m_meter;

  my::CAutoCriticalSection m_changedLock;
  std::vector<CBackupTaskPtr> m_changed;

  Pool m_pool;  // last member, so that the workers end before the other members are destroyed
};

// Returns "12:34" or "1:02:03".
std::wstring ElapsedText(uint64_t elapsedMs);

}  // namespace qlm
