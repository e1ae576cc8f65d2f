#include "app/history_loader.h"

#include <exception>
#include <utility>

#include "app/command.h"
#include "engine/auto_lock.h"
#include "platform/message_texts.h"
#include "platform/threads.h"
#include "support/strings.h"

namespace qlm {
namespace {

constexpr uint32_t kEndLimitMs = 2000;

}  // namespace

// What the two threads share.
struct CHistoryLoader::CShared {
  // Calls `read` and keeps its result or its failure.
  void Run(const std::function<CHistory()>& read) {
    auto made = std::make_shared<CLoadedHistory>();
    std::exception_ptr thrown;
    try {
      made->history = read();
      made->tasks = TaskHistories(made->history.runs);
    } catch (...) {
      thrown = std::current_exception();
    }
    {
      const my::CAutoLock<my::CAutoCriticalSection> hold(lock);
      result = std::move(made);
      failure = thrown;
    }
    loaded();
  }

  std::function<void()> loaded;
  my::CAutoCriticalSection lock;
  std::shared_ptr<CLoadedHistory> result;
  std::exception_ptr failure;  // of the result
};

CHistoryLoader::CHistoryLoader(const CAppPorts& ports, std::function<void()> loaded)
    : m_ports(ports), m_shared(std::make_shared<CShared>()) {
  m_shared->loaded = std::move(loaded);
}

CHistoryLoader::~CHistoryLoader() {
  if (m_thread) m_thread->Wait(kEndLimitMs);
}

void CHistoryLoader::Load() {
  m_again = m_thread != nullptr;
  if (!m_thread) Start();
}

void CHistoryLoader::Start() {
  try {
    const CEnginePorts& ports = m_ports.engine;
    const std::wstring path = HistoryPath(m_ports.folders, ports.texts);
    const auto read = [&files = ports.files, &clock = ports.clock, path] {
      return LoadHistory(files, clock, path);
    };
    m_thread = m_ports.threads.Start([shared = m_shared, read] { shared->Run(read); }, {});
  } catch (const my::CException&) {
    m_shared->Run([failure = std::current_exception()]() -> CHistory { std::rethrow_exception(failure); });
  }
}

std::shared_ptr<const CLoadedHistory> CHistoryLoader::Take() {
  std::shared_ptr<CLoadedHistory> result;
  std::exception_ptr failure;
  {
    const my::CAutoLock<my::CAutoCriticalSection> lock(m_shared->lock);
    result = std::exchange(m_shared->result, nullptr);
    failure = m_shared->failure;
  }
  if (!result) return nullptr;
  const my::CSimpleErr error = my::TrapError(m_ports.engine.texts, [&failure] {
    if (failure) std::rethrow_exception(failure);
  });
  result->failure = my::OneLine(error.message);
  m_thread = nullptr;
  if (std::exchange(m_again, false)) Start();
  return result;
}

}  // namespace qlm
