// A pool of worker threads that take jobs from one queue, first in, first out.
#pragma once

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <list>
#include <utility>
#include <vector>

#include "engine/auto_lock.h"
#include "engine/task_base.h"
#include "engine/thread.h"

namespace my {

// The jobs that wait. Callable from any thread.
template <class TJob>
class CJobQueue {
 public:
  using Ptr = boost::shared_ptr<TJob>;

  void Push(Ptr job) {
    const CAutoLock<CAutoCriticalSection> lock(m_lock);
    m_jobs.push_back(std::move(job));
  }

  // Empty when no job waits.
  Ptr Pop() {
    const CAutoLock<CAutoCriticalSection> lock(m_lock);
    if (m_jobs.empty()) return {};
    Ptr job = std::move(m_jobs.front());
    m_jobs.pop_front();
    return job;
  }

  std::list<Ptr> TakeAll() {
    const CAutoLock<CAutoCriticalSection> lock(m_lock);
    return std::exchange(m_jobs, {});
  }

  template <class Visit>
  void ForEach(Visit visit) {
    const CAutoLock<CAutoCriticalSection> lock(m_lock);
    for (const Ptr& job : m_jobs) visit(*job);
  }

 private:
  CAutoCriticalSection m_lock;
  std::list<Ptr> m_jobs;
};

// A worker: runs one job after the other until the queue is empty or it is asked to stop. It gives way to
// other work at any moment if `kKeepsPriority` is not 0 (see CThreadImpl).
template <class TJob, int kKeepsPriority>
class CMultiTaskThread : public CThreadImpl<CMultiTaskThread<TJob, kKeepsPriority>, kKeepsPriority, 0>,
                         private IStopQuery {
  using Base = CThreadImpl<CMultiTaskThread, kKeepsPriority, 0>;

 public:
  CMultiTaskThread(IThreads& threads, CJobQueue<TJob>& queue) : Base(threads), m_queue(&queue) {}

  // Also what the running job asks.
  bool IsStopRequested() const override { return Base::IsStopRequested(); }

  void Body() override {
    while (!IsStopRequested()) {
      m_current = m_queue->Pop();
      if (!m_current) return;
      m_current->SetStopQuery(this);
      m_current->Run();
      m_current.reset();
    }
  }

 private:
  CJobQueue<TJob>* m_queue;
  boost::shared_ptr<TJob> m_current;  // touched by the worker only
};

template <class TJob, class TThread>
class CMultiTaskThreadPool {
 public:
  using Ptr = boost::shared_ptr<TJob>;

  explicit CMultiTaskThreadPool(IThreads& threads) : m_threads(threads) { SetThreadCount(1); }

  // Stops and waits for what still runs.
  ~CMultiTaskThreadPool() {
    Stop(true);
    WaitAll(kNoTimeOut);
  }
  CMultiTaskThreadPool(const CMultiTaskThreadPool&) = delete;
  CMultiTaskThreadPool& operator=(const CMultiTaskThreadPool&) = delete;

  // Not to be called while a worker is active.
  void SetThreadCount(size_t count) {
    if (count < m_workers.size()) m_workers.resize(count);
    while (m_workers.size() < count) {
      m_workers.push_back(boost::make_shared<TThread>(m_threads, m_queue));
      // Backups give way to whatever the user does meanwhile.
      m_workers.back()->SetPriority(IThreads::kIdlePriority);
    }
  }

  void Add(Ptr job) { m_queue.Push(std::move(job)); }

  template <class Visit>
  void ForEachQueued(Visit visit) {
    m_queue.ForEach(visit);
  }

  // Starts every worker. If one cannot be started, throws the reason (IDS_START_THREAD_FAILED); those before
  // it run then.
  void Start() {
    for (const auto& worker : m_workers) worker->Start();
  }

  // Takes the waiting jobs out of the queue and sets every worker's stop flag.
  void Stop(bool stop) {
    m_removed.splice(m_removed.end(), m_queue.TakeAll());
    for (const auto& worker : m_workers) worker->SetStop(stop);
  }

  // Waits for each worker, at most that many milliseconds.
  void WaitAll(uint32_t timeOutMs) {
    for (const auto& worker : m_workers) worker->Wait(timeOutMs);
  }

  bool IsBusy() const {
    return std::any_of(m_workers.begin(), m_workers.end(),
                       [](const auto& worker) { return worker->IsActive(); });
  }

  void ClearRemoved() { m_removed.clear(); }

 private:
  IThreads& m_threads;
  CJobQueue<TJob> m_queue;
  std::vector<boost::shared_ptr<TThread>> m_workers;
  std::list<Ptr> m_removed;  // jobs that a stop took out of the queue; they never ran
};

}  // namespace my
