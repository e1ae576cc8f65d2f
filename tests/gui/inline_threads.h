#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/threads.h"

namespace test {

// Runs the worker on the thread that calls Work. Windows that are looked at within a port of the worker see
// it running.
class CInlineThreads : public my::IThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override {
    if (start.priority != kIdlePriority) {
      body();
      return std::make_unique<CThread>(std::make_shared<const bool>(true));
    }
    m_body = std::move(body);
    *m_ended = false;
    return std::make_unique<CThread>(m_ended);
  }

  void Work() {
    std::exchange(m_body, nullptr)();
    *m_ended = true;
  }

 private:
  struct CThread : my::IRunningThread {
    explicit CThread(std::shared_ptr<const bool> flag) : ended(std::move(flag)) {}
    bool Wait(uint32_t) override { return *ended; }
    uint32_t Id() const override { return 1; }

    std::shared_ptr<const bool> ended;
  };

  std::function<void()> m_body;
  std::shared_ptr<bool> m_ended = std::make_shared<bool>(true);
};

}  // namespace test
