#include "app/plan_worker.h"

#include <atomic>
#include <iterator>
#include <mutex>
#include <utility>

#include "engine/plan_advice.h"
#include "engine/task_base.h"
#include "platform/message_texts.h"
#include "platform/threads.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr uint32_t kEndLimitMs = 500;

template <class T>
void Append(std::vector<T>& all, std::vector<T> more) {
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

struct CPlanWorker::CShared : my::IStopQuery {
  CShared(const CEnginePorts& enginePorts, CPlanRequest planRequest)
      : ports(enginePorts), request(std::move(planRequest)) {}

  bool IsStopRequested() const override { return stop; }

  void Run() {
    my::CSimpleErr error = my::TrapError(ports.texts, [this] { MakePlan(); });
    const std::lock_guard hold(lock);
    news.error = std::move(error);
    news.ended = true;
  }

  // Plans first, because the rest of the advice can take long and is about the same rows.
  void MakePlan() {
    const CContent& content = request.scope.content;
    CPlanner planner(ports, request.archiverPath, this);
    for (const CTaskPtr& task : content.tasks) {
      my::CheckStop(this);
      CPlanTask plan = planner.Plan(task);
      std::vector<CAdvice> findings = FindPlanAdvice(content, plan, ports, this);
      const std::lock_guard hold(lock);
      news.tasks.push_back(std::move(plan));
      Append(news.findings, std::move(findings));
    }
    const CAdviceRequest rest{AdviceDepth::Network, request.archiverMissing, this};
    std::vector<CAdvice> findings = FindAdvice(content, ports, rest);
    const std::lock_guard hold(lock);
    Append(news.findings, std::move(findings));
  }

  const CEnginePorts ports;
  const CPlanRequest request;
  std::atomic<bool> stop = false;
  std::mutex lock;
  CPlanNews news;  // protected by the lock
};

CPlanWorker::CPlanWorker(const CEnginePorts& ports, my::IThreads& threads, CPlanRequest request)
    : m_shared(std::make_shared<CShared>(ports, std::move(request))),
      m_thread(threads.Start([shared = m_shared] { shared->Run(); }, {})) {}

CPlanWorker::~CPlanWorker() {
  Stop();
  m_thread->Wait(kEndLimitMs);
}

void CPlanWorker::Stop() {
  m_shared->stop = true;
}

CPlanNews CPlanWorker::Take() {
  const std::lock_guard hold(m_shared->lock);
  CPlanNews news = std::exchange(m_shared->news, {});
  m_shared->news.ended = news.ended;
  m_shared->news.error = news.error;
  return news;
}

}  // namespace qlm
