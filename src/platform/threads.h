#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>

namespace my {

inline constexpr uint32_t kNoTimeOut = std::numeric_limits<uint32_t>::max();

// A thread that was started. It may be destroyed while the thread runs; the thread then goes on by itself.
class IRunningThread {
 public:
  virtual ~IRunningThread() = default;

  // Waits for the end of the thread, at most that many milliseconds; answers whether it has ended.
  virtual bool Wait(uint32_t timeOutMs) = 0;

  // The system's number of the thread; not 0.
  virtual uint32_t Id() const = 0;
};

struct CThreadStart {
  int priority = 0;         // of the system's scale, -15 (idle) to 15
  bool boost = false;       // whether the system may raise the priority for a while
  uint32_t stackBytes = 0;  // 0: the program's default
};

class IThreads {
 public:
  static constexpr int kIdlePriority = -15;
  static constexpr int kNormalPriority = 0;

  virtual ~IThreads() = default;

  // Starts a thread; never null. `body` must not throw. Throws IDS_START_THREAD_FAILED.
  virtual std::unique_ptr<IRunningThread> Start(std::function<void()> body, const CThreadStart& start) = 0;
};

}  // namespace my
