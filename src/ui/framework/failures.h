// Handling of exceptions in window procedures: they must not propagate through code of the system.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <utility>

namespace my {

using CFailureHandler = std::function<void(std::exception_ptr)>;

// Sets the failure handler and returns the previous one. Called on the user-interface thread before it
// creates windows. Without a handler failures are dropped.
CFailureHandler SetFailureHandler(CFailureHandler handler);

// Calls the failure handler. An exception of the handler itself is dropped.
void ReportFailure(std::exception_ptr failure) noexcept;

// Returns the result of `handler`. If it throws, reports the exception and returns `failed`.
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
