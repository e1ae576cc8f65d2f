// Repeats operations that other programs prevent for a short time.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/clock.h"
#include "support/exception.h"

namespace my {

// Returns whether the failure is temporary. Virus scanners, indexers and sync clients open new files for
// seconds; renaming such a file, or a folder that contains it, then fails with "access denied" or "sharing
// violation".
inline bool IsRefusedForNow(const CException& failure) {
  return failure.SystemError().Is(kErrorAccessDenied) || failure.SystemError().Is(kErrorSharingViolation);
}

// Runs `operation` until it succeeds, with growing pauses, for at most `limitMs`. Throws the last temporary
// failure after that or when `goOn()` returns false, and any other failure at once.
template <class Operation, class GoOn>
auto RetryWhileRefused(const IClock& clock, uint32_t limitMs, Operation operation, GoOn goOn) {
  constexpr uint64_t kLongestPauseMs = 1000;
  const uint64_t end = clock.TickCount() + limitMs;
  for (uint64_t pauseMs = 25;; pauseMs = std::min(2 * pauseMs, kLongestPauseMs)) {
    try {
      return operation();
    } catch (const CException& failure) {
      if (!IsRefusedForNow(failure) || clock.TickCount() >= end || !goOn()) throw;
    }
    clock.Sleep(static_cast<uint32_t>(std::min(pauseMs, end - std::min(end, clock.TickCount()))));
  }
}

}  // namespace my
