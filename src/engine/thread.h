#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "platform/threads.h"

namespace my {

// A thread that can be restarted after it has ended, and asked to stop. Start and Wait belong to one thread;
// any thread may use the flags.
class CThread {
 public:
  CThread() = default;
  CThread(const CThread&) = delete;
  CThread& operator=(const CThread&) = delete;
  virtual ~CThread() = default;

  virtual void Body() = 0;

  // Returns false if the thread was aborted. Throws IDS_START_THREAD_FAILED.
  virtual bool Start() = 0;

  // Waits for the end of the thread. Returns whether it has ended or never ran.
  virtual bool Wait(uint32_t timeOutMs);

  virtual bool IsStopRequested() const { return m_stop || m_abort; }
  virtual bool IsAborted() const { return m_abort; }
  virtual void SetStop(bool stop) { m_stop = stop; }
  virtual void SetAbort(bool abort) { m_abort = abort; }

  bool IsActive() const { return m_thread && !m_thread->Wait(0); }
  void SetPriority(int priority) { m_priority = priority; }
  uint32_t ThreadId() const { return m_threadId; }  // of the last start; 0 before the first

 protected:
  std::atomic<bool> m_stop = false;
  std::atomic<bool> m_abort = false;
  std::unique_ptr<IRunningThread> m_thread;
  int m_priority = IThreads::kNormalPriority;
  uint32_t m_threadId = 0;
};

// Starts a thread that runs T::Body. If `kKeepsPriority` is not 0, the system may not raise the priority of
// the thread temporarily. `kStackBytes` is the size of its stack, 0 for the default.
template <class T, int kKeepsPriority, uint32_t kStackBytes>
class CThreadImpl : public CThread {
 public:
  explicit CThreadImpl(IThreads& threads) : m_threads(threads) {}

  bool Start() override {
    if (m_abort) return false;
    if (IsActive()) return true;
    Wait(kNoTimeOut);
    m_stop = false;
    m_thread = m_threads.Start([this] { static_cast<T*>(this)->Body(); },
                               {m_priority, kKeepsPriority == 0, kStackBytes});
    m_threadId = m_thread->Id();
    return true;
  }

 private:
  IThreads& m_threads;
};

}  // namespace my
