#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>

namespace my {

inline constexpr uint32_t kNoTimeOut = std::numeric_limits<uint32_t>::max();

// A running thread. The object may be destroyed while the thread runs; the thread then continues.
class IRunningThread {
 public:
  virtual ~IRunningThread() = default;

  // Waits up to `timeOutMs` for the thread and returns whether it has ended.
  virtual bool Wait(uint32_t timeOutMs) = 0;

  // Returns the system's thread id; not 0.
  virtual uint32_t Id() const = 0;
};

struct CThreadStart {
  int priority = 0;         // a THREAD_PRIORITY_ value, -15 (idle) to 15
  bool boost = false;       // whether the system may raise the priority temporarily
  uint32_t stackBytes = 0;  // 0: the default of the program

  bool operator==(const CThreadStart&) const = default;
};

class IThreads {
 public:
  static constexpr int kIdlePriority = -15;
  static constexpr int kNormalPriority = 0;

  virtual ~IThreads() = default;

  // Starts a thread; never returns null. `body` must not throw. Throws IDS_START_THREAD_FAILED.
  virtual std::unique_ptr<IRunningThread> Start(std::function<void()> body, const CThreadStart& start) = 0;
};

}  // namespace my
