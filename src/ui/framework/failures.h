// What becomes of exceptions that reach a window procedure: they must not pass through the system's code.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <utility>

namespace my {

using CFailureHandler = std::function<void(std::exception_ptr)>;

// Sets who is told of failures, and answers who was told before. For the user-interface thread, before its
// first window. Without a handler failures are dropped.
CFailureHandler SetFailureHandler(CFailureHandler handler);

// Tells the handler. A failure of the handler itself is dropped.
void ReportFailure(std::exception_ptr failure) noexcept;

// What `handler` answers, or `failed` after its exception was reported.
template <class Result, class Handler>
Result Guarded(Result failed, Handler&& handler) noexcept {
  try {
    return std::forward<Handler>(handler)();
  } catch (...) {
    ReportFailure(std::current_exception());
    return failed;
  }
}

}  // namespace my
