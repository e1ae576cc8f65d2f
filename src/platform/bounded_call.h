#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "platform/threads.h"

namespace my {

// Returns the result of `work`, or nullopt if it takes longer than the limit. `work` runs on a new thread,
// which is never waited for after the limit, not even at the end of the program: everything that `work`
// refers to must outlive the thread. Throws what `work` throws, and IDS_START_THREAD_FAILED.
template <class Work>
std::optional<std::invoke_result_t<Work&>> CallWithin(IThreads& threads, uint32_t limitMs, Work work) {
  struct CCall {
    explicit CCall(Work&& moved) : work(std::move(moved)) {}

    Work work;
    std::optional<std::invoke_result_t<Work&>> result;
    std::exception_ptr failure;
  };
  const auto call = std::make_shared<CCall>(std::move(work));
  const auto body = [call] {
    try {
      call->result = call->work();
    } catch (...) {
      call->failure = std::current_exception();
    }
  };
  const auto thread = threads.Start(body, {});
  if (!thread->Wait(limitMs)) return {};
  if (call->failure) std::rethrow_exception(call->failure);
  return std::move(call->result);
}

}  // namespace my
