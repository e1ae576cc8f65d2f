// Work on a sequence of items by several threads.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/threads.h"

namespace my {

// The threads that may work: the calling thread, and helper threads.
struct CHelpers {
  IThreads* threads = nullptr;             // null: no helper threads
  size_t count = 1;                        // of working threads, with the calling one
  int priority = IThreads::kIdlePriority;  // of the helper threads
};

// The items, and the work on one of them. Next and End are called under one lock, by any of the threads.
template <class TItem>
class IOrderedWork {
 public:
  virtual ~IOrderedWork() = default;

  // Returns the next item. nullopt: there is none, unless the end of an item in progress brings one; it is
  // then called again after that end. The work is over when there is none and no item is in progress.
  virtual std::optional<TItem> Next() = 0;

  // Works on an item, at the same time as other threads on theirs.
  virtual void Run(TItem& item) = 0;

  // Takes the result of Run. Called in the order in which the items end.
  virtual void End(TItem& item) = 0;
};

// Helper threads that run the same body. The destructor waits for their end.
class CHelperThreads {
 public:
  // Starts helpers.count - 1 threads, or those that can be started. `body` must not throw.
  CHelperThreads(const CHelpers& helpers, const std::function<void()>& body);
  CHelperThreads(const CHelperThreads&) = delete;
  CHelperThreads& operator=(const CHelperThreads&) = delete;
  ~CHelperThreads();

 private:
  std::vector<std::unique_ptr<IRunningThread>> m_running;
};

template <class TItem>
class COrderedWork {
 public:
  explicit COrderedWork(IOrderedWork<TItem>& work) : m_work(work) {}

  void Run(const CHelpers& helpers) {
    {
      const CHelperThreads running(helpers, [this] { WorkOnItems(); });
      WorkOnItems();
    }
    if (m_failure) std::rethrow_exception(m_failure);
  }

 private:
  void WorkOnItems() {
    std::unique_lock hold(m_lock);
    while (!m_failure) {
      const size_t number = m_begun;
      if (std::optional<TItem> item = TakeNext()) {
        WorkOn(*item, number, hold);
      } else if (m_begun - m_ended > 0 && !m_failure) {
        m_itemEnded.wait(hold);
      } else {
        return;
      }
    }
  }

  std::optional<TItem> TakeNext() {
    std::optional<TItem> item;
    const size_t number = m_begun;
    NoteFailure(number, Failure([&] { item = m_work.Next(); }));
    if (item) ++m_begun;
    return item;
  }

  void WorkOn(TItem& item, size_t number, std::unique_lock<std::mutex>& hold) {
    hold.unlock();
    std::exception_ptr failure = Failure([&] { m_work.Run(item); });
    hold.lock();
    if (!failure) failure = Failure([&] { m_work.End(item); });
    NoteFailure(number, std::move(failure));
    ++m_ended;
    m_itemEnded.notify_all();
  }

  template <class Step>
  static std::exception_ptr Failure(Step&& step) {
    try {
      step();
      return nullptr;
    } catch (...) {
      return std::current_exception();
    }
  }

  void NoteFailure(size_t number, std::exception_ptr failure) {
    if (!failure || (m_failure && m_failedItem < number)) return;
    m_failure = std::move(failure);
    m_failedItem = number;
  }

  IOrderedWork<TItem>& m_work;
  std::mutex m_lock;
  std::condition_variable m_itemEnded;
  size_t m_begun = 0;
  size_t m_ended = 0;
  size_t m_failedItem = 0;
  std::exception_ptr m_failure;  // of m_failedItem, the first failed item in the order of Next
};

// Works on all items with the given threads. A thread without work takes the next item, so at most as many
// items are in progress as there are threads, and one thread alone does nothing but Next, Run and End in
// turn. After a failure no item is begun. On return all items in progress and all helper threads have ended.
// Throws the first failure in the order of the items, also if a later item failed earlier; a failure of Next
// counts as one of the item that it should have returned.
template <class TItem>
void RunOrdered(IOrderedWork<TItem>& work, const CHelpers& helpers) {
  COrderedWork<TItem>(work).Run(helpers);
}

}  // namespace my
