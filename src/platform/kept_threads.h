#pragma once

#include <list>
#include <memory>
#include <mutex>

#include "platform/threads.h"

namespace my {

// Threads that are used again after their work: starting one takes as long as listing a small folder. Any
// thread may call.
class CKeptThreads : public IThreads {
 public:
  // `threads` must outlive the object.
  explicit CKeptThreads(IThreads& threads);
  CKeptThreads(const CKeptThreads&) = delete;
  CKeptThreads& operator=(const CKeptThreads&) = delete;
  // Waits for all work and for the end of all threads.
  ~CKeptThreads() override;

  // Gives the work to an idle thread that was started alike, or else to a new one. Work never waits for other
  // work.
  std::unique_ptr<IRunningThread> Start(std::function<void()> body, const CThreadStart& start) override;

 private:
  struct CWorker;

  CWorker& Idle(const CThreadStart& start);
  void Serve(CWorker& worker);

  IThreads& m_threads;
  std::mutex m_lock;
  std::list<CWorker> m_kept;
  bool m_isClosing = false;
};

}  // namespace my
