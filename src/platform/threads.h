#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>

#include "support/exception.h"

namespace my {

inline constexpr uint32_t kNoTimeOut = std::numeric_limits<uint32_t>::max();

// A thread that was started. It may be destroyed while the thread runs; the thread then goes on by itself.
class IRunningThread {
 public:
  virtual ~IRunningThread() = default;

  // Waits for the end of the thread, at most that many milliseconds; answers whether it has ended.
  virtual bool Wait(uint32_t timeOutMs) = 0;
};

class IThreads {
 public:
  static constexpr int kIdlePriority = -15;
  static constexpr int kNormalPriority = 0;

  virtual ~IThreads() = default;

  // Starts a thread with a priority of the system's scale (kIdlePriority to 15) and without its boosts.
  // Empty, with the error told, when there is no thread to be had. `body` must not throw.
  virtual std::unique_ptr<IRunningThread> Start(std::function<void()> body, int priority,
                                                CSystemError& error) = 0;
};

}  // namespace my
