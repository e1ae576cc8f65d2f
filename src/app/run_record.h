#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/threads.h"

namespace qlm {

// Writes the record of a run to the history on another thread, because it may have to wait for other programs
// or for a network. Used by one thread.
class CRunRecord {
 public:
  // Returns the text to show if it fails, empty if not. Must not throw.
  using Work = std::function<std::wstring()>;

  explicit CRunRecord(my::IThreads& threads) : m_threads(threads) {}
  CRunRecord(const CRunRecord&) = delete;
  CRunRecord& operator=(const CRunRecord&) = delete;

  // Waits for a record that is being written.
  ~CRunRecord() { Wait(); }

  // Starts the work and waits a moment for it, which is usually enough.
  void Write(const Work& work);

  // Returns whether the work has not ended yet.
  bool IsWriting();
  void Wait();

  // Returns the failure of the last record that was written.
  const std::wstring& Failure() const { return m_failure; }
  void ClearFailure() { m_failure.clear(); }

 private:
  bool WaitFor(uint32_t timeOutMs);

  my::IThreads& m_threads;
  std::unique_ptr<my::IRunningThread> m_thread;  // null if none is running
  std::shared_ptr<std::wstring> m_result;        // written by the thread
  std::wstring m_failure;
};

}  // namespace qlm
