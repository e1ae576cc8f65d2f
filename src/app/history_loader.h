#pragma once

#include <functional>
#include <memory>
#include <string>

#include "history/history_file.h"
#include "history/task_history.h"

namespace my {
class IRunningThread;
}

namespace qlm {

struct CAppPorts;

struct CLoadedHistory {
  CHistory history;
  CTaskHistories tasks;
  std::wstring failure;  // why it could not be read, in one line; empty if it was
};

// Reads the history on a thread of its own, because its folder may be on a network that does not respond.
// GUI thread only.
class CHistoryLoader {
 public:
  // The ports must outlive the object; see the destructor. `loaded` is called on the other thread whenever
  // Take has a result; it must be callable after the object was destroyed.
  CHistoryLoader(const CAppPorts& ports, std::function<void()> loaded);
  CHistoryLoader(const CHistoryLoader&) = delete;
  CHistoryLoader& operator=(const CHistoryLoader&) = delete;

  // Waits a few seconds for the thread. One that does not end in time continues and uses file system and
  // clock.
  ~CHistoryLoader();

  // Starts to read; a failure is a result too. If a thread is reading already, another one follows it, so
  // that the result of Take is not older than the last call.
  void Load();

  // Returns what was read; null if there is nothing new.
  std::shared_ptr<const CLoadedHistory> Take();

 private:
  struct CShared;

  void Start();

  const CAppPorts& m_ports;
  std::shared_ptr<CShared> m_shared;
  std::unique_ptr<my::IRunningThread> m_thread;  // null if none is reading
  bool m_again = false;
};

}  // namespace qlm
