#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "engine/task_base.h"
#include "platform/threads.h"

namespace my {

// A thread that can be started again after it has ended, and asked to end. Its owner starts and waits on one
// thread; the flags may be set and read on any.
class CThread : public IStopQuery {
 public:
  virtual void Body() = 0;

  // False when there is no thread to be had (see StartError) or the thread was aborted.
  virtual bool Start() = 0;

  // Waits for the end of the thread; answers whether it has ended (or never ran).
  virtual bool Wait(uint32_t timeOutMs);

  bool IsStopRequested() const override { return m_stop || m_abort; }
  virtual bool IsAborted() const { return m_abort; }
  virtual void SetStop(bool stop) { m_stop = stop; }
  virtual void SetAbort(bool abort) { m_abort = abort; }

  bool IsActive() const { return m_thread && !m_thread->Wait(0); }
  void SetPriority(int priority) { m_priority = priority; }
  CSystemError StartError() const { return m_startError; }

 protected:
  std::atomic<bool> m_stop = false;
  std::atomic<bool> m_abort = false;
  std::unique_ptr<IRunningThread> m_thread;
  int m_priority = 0;
  CSystemError m_startError;
};

// The start of a thread of class T through the platform.
template <class T>
class CThreadImpl : public CThread {
 public:
  explicit CThreadImpl(IThreads& threads) : m_threads(threads) {}

  bool Start() override {
    if (m_abort) return false;
    if (IsActive()) return true;
    Wait(kNoTimeOut);
    m_stop = false;
    m_thread = m_threads.Start([this] { static_cast<T*>(this)->Body(); }, m_priority, m_startError);
    return m_thread != nullptr;
  }

 private:
  IThreads& m_threads;
};

}  // namespace my
