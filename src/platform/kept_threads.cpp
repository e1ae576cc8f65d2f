#include "platform/kept_threads.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>

namespace my {
namespace {

class CWork {
 public:
  explicit CWork(std::function<void()> body) : m_body(std::move(body)) {}

  void Run() {
    m_body();
    m_body = nullptr;  // what it holds is released before its end is reported
  }

  void End() {
    const std::lock_guard hold(m_lock);
    m_hasEnded = true;
    m_end.notify_all();
  }

  bool Wait(uint32_t timeOutMs) {
    std::unique_lock hold(m_lock);
    const auto hasEnded = [this] { return m_hasEnded; };
    if (timeOutMs != kNoTimeOut) return m_end.wait_for(hold, std::chrono::milliseconds(timeOutMs), hasEnded);
    m_end.wait(hold, hasEnded);
    return true;
  }

 private:
  std::function<void()> m_body;
  std::mutex m_lock;
  std::condition_variable m_end;
  bool m_hasEnded = false;
};

class CRunningWork : public IRunningThread {
 public:
  CRunningWork(std::shared_ptr<CWork> work, uint32_t id) : m_work(std::move(work)), m_id(id) {}

  bool Wait(uint32_t timeOutMs) override { return m_work->Wait(timeOutMs); }
  uint32_t Id() const override { return m_id; }

 private:
  std::shared_ptr<CWork> m_work;
  uint32_t m_id;
};

}  // namespace

struct CKeptThreads::CWorker {
  CThreadStart start;
  std::unique_ptr<IRunningThread> running = {};
  std::shared_ptr<CWork> work = {};  // null: idle
  std::condition_variable wake = {};
};

CKeptThreads::CKeptThreads(IThreads& threads) : m_threads(threads) {}

CKeptThreads::~CKeptThreads() {
  {
    const std::lock_guard hold(m_lock);
    m_isClosing = true;
    for (CWorker& worker : m_kept) worker.wake.notify_one();
  }
  for (const CWorker& worker : m_kept) worker.running->Wait(kNoTimeOut);
}

std::unique_ptr<IRunningThread> CKeptThreads::Start(std::function<void()> body, const CThreadStart& start) {
  auto work = std::make_shared<CWork>(std::move(body));
  const std::lock_guard hold(m_lock);
  CWorker& worker = Idle(start);
  worker.work = work;
  worker.wake.notify_one();
  return std::make_unique<CRunningWork>(std::move(work), worker.running->Id());
}

CKeptThreads::CWorker& CKeptThreads::Idle(const CThreadStart& start) {
  const auto idle = std::find_if(m_kept.begin(), m_kept.end(), [&start](const CWorker& worker) {
    return !worker.work && worker.start == start;
  });
  if (idle != m_kept.end()) return *idle;
  CWorker& added = m_kept.emplace_back();
  added.start = start;
  try {
    added.running = m_threads.Start([this, &added] { Serve(added); }, start);
  } catch (...) {
    m_kept.pop_back();
    throw;
  }
  return added;
}

void CKeptThreads::Serve(CWorker& worker) {
  std::unique_lock hold(m_lock);
  for (;;) {
    worker.wake.wait(hold, [&] { return worker.work || m_isClosing; });
    if (!worker.work) return;
    const std::shared_ptr<CWork> work = worker.work;
    hold.unlock();
    work->Run();
    hold.lock();
    // Idle before the end is reported, so that whoever waits for the end can use the thread again.
    worker.work.reset();
    work->End();
  }
}

}  // namespace my
