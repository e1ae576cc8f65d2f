#include "engine/ordered_work.h"

namespace my {

CHelperThreads::CHelperThreads(const CHelpers& helpers, const std::function<void()>& body) {
  if (!helpers.threads || helpers.count < 2) return;
  m_running.reserve(helpers.count - 1);  // so that a started thread is never lost
  try {
    while (m_running.size() < helpers.count - 1) {
      m_running.push_back(helpers.threads->Start(body, {helpers.priority, false, 0}));
    }
  } catch (...) {
    return;  // the work is done by fewer threads
  }
}

CHelperThreads::~CHelperThreads() {
  for (const auto& thread : m_running) thread->Wait(kNoTimeOut);
}

}  // namespace my
