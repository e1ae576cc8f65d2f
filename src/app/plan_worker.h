// A plan made on a thread of its own, because sources and destinations may be slow or on a network.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/plan_scope.h"
#include "engine/advice.h"
#include "engine/plan.h"

namespace my {
class IRunningThread;
class IThreads;
}  // namespace my

namespace qlm {

struct CPlanRequest {
  CPlanScope scope;
  std::wstring archiverPath;
  bool archiverMissing = false;  // see IsArchiverMissing
};

// What became known since the last call of CPlanWorker::Take.
struct CPlanNews {
  std::vector<CPlanTask> tasks;   // in the order of the scope, after those of earlier calls
  std::vector<CAdvice> findings;  // rows are those of the scope
  bool ended = false;
  my::CSimpleErr error;  // why it ended early; code 0 if it did not; IDS_STOPPED after Stop
};

// For one thread. The ports must outlive the thread, which may be blocked by an unresponsive network and is
// then not waited for, not even at the end of the program.
class CPlanWorker {
 public:
  // Starts the thread. Throws IDS_START_THREAD_FAILED.
  CPlanWorker(const CEnginePorts& ports, my::IThreads& threads, CPlanRequest request);
  CPlanWorker(const CPlanWorker&) = delete;
  CPlanWorker& operator=(const CPlanWorker&) = delete;
  ~CPlanWorker();  // stops; waits for a short time

  void Stop();
  CPlanNews Take();

 private:
  struct CShared;

  std::shared_ptr<CShared> m_shared;  // with the thread
  std::unique_ptr<my::IRunningThread> m_thread;
};

}  // namespace qlm
