// Findings about the open document, which are found again after each change. GUI thread only.
#pragma once

#include <memory>
#include <vector>

#include "app/command.h"
#include "document/document.h"
#include "engine/advice.h"

namespace my {
class IRunningThread;
}

namespace qlm {

// Looks for them on a thread of its own, because disks may be slow; shares are not read. Changes in quick
// succession are handled together. The ports must outlive the thread, which may be blocked by a disk and is
// then not waited for, not even at the end of the program.
class CAdviceWatch {
 public:
  explicit CAdviceWatch(const CAppContext& context);
  CAdviceWatch(const CAdviceWatch&) = delete;
  CAdviceWatch& operator=(const CAdviceWatch&) = delete;
  ~CAdviceWatch();

  // Must be called after each change that can matter. The search starts with the next Tick.
  void Restart();

  // Must be called periodically while IsPending. Returns whether there are new findings. Waits for the end of
  // a run, whose unfinished backups would be found.
  bool Tick();
  bool IsPending() const { return m_restart || m_search; }

  // The document as it was when the findings were found, whose rows they name.
  const CContent& Content() const { return m_content; }
  const std::vector<CAdvice>& Findings() const { return m_findings; }

 private:
  struct CSearch;

  void Start();

  const CAppContext& m_context;
  bool m_restart = false;
  std::shared_ptr<CSearch> m_search;  // with the thread
  std::unique_ptr<my::IRunningThread> m_thread;
  CContent m_content;
  std::vector<CAdvice> m_findings;
};

}  // namespace qlm
