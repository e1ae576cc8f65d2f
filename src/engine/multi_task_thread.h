// A pool of worker threads that run jobs from one queue, first in, first out.
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

// The queued jobs. Any thread may call.
template <class TJob>
class CJobQueue {
 public:
  using Ptr = boost::shared_ptr<TJob>;

  void Push(Ptr job) {
    const CAutoLock<CAutoCriticalSection> lock(m_lock);
    m_jobs.push_back(std::move(job));
  }

  // Returns null if the queue is empty.
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

// A worker: runs jobs until the queue is empty or a stop is requested. For `kKeepsPriority` see CThreadImpl.
template <class TJob, int kKeepsPriority>
class CMultiTaskThread : public CThreadImpl<CMultiTaskThread<TJob, kKeepsPriority>, kKeepsPriority, 0>,
                         private IStopQuery {
  using Base = CThreadImpl<CMultiTaskThread, kKeepsPriority, 0>;

 public:
  CMultiTaskThread(IThreads& threads, CJobQueue<TJob>& queue) : Base(threads), m_queue(&queue) {}

  // Also the stop query of the running job.
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
  boost::shared_ptr<TJob> m_current;  // used by the worker only
};

template <class TJob, class TThread>
class CMultiTaskThreadPool {
 public:
  using Ptr = boost::shared_ptr<TJob>;

  explicit CMultiTaskThreadPool(IThreads& threads) : m_threads(threads) { SetThreadCount(1); }

  // Requests a stop and waits for the running jobs.
  ~CMultiTaskThreadPool() {
    Stop(true);
    WaitAll(kNoTimeOut);
  }
  CMultiTaskThreadPool(const CMultiTaskThreadPool&) = delete;
  CMultiTaskThreadPool& operator=(const CMultiTaskThreadPool&) = delete;

  // Must not be called while a worker is active.
  void SetThreadCount(size_t count) {
    if (count < m_workers.size()) m_workers.resize(count);
    while (m_workers.size() < count) {
      m_workers.push_back(boost::make_shared<TThread>(m_threads, m_queue));
      // Backups must not slow down what the user does meanwhile.
      m_workers.back()->SetPriority(IThreads::kIdlePriority);
    }
  }

  void Add(Ptr job) { m_queue.Push(std::move(job)); }

  template <class Visit>
  void ForEachQueued(Visit visit) {
    m_queue.ForEach(visit);
  }

  // Starts all workers. Throws IDS_START_THREAD_FAILED if one cannot be started; the workers before it are
  // then running.
  void Start() {
    for (const auto& worker : m_workers) worker->Start();
  }

  // Removes the queued jobs and sets the stop flag of every worker.
  void Stop(bool stop) {
    m_removed.splice(m_removed.end(), m_queue.TakeAll());
    for (const auto& worker : m_workers) worker->SetStop(stop);
  }

  // Waits up to `timeOutMs` for each worker.
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
  std::list<Ptr> m_removed;  // jobs removed by a stop; they never ran
};

}  // namespace my
