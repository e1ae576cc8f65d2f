#include "app/run_record.h"

#include "support/exception.h"

namespace qlm {

void CRunRecord::Write(const Work& work) {
  constexpr uint32_t kMomentMs = 200;
  if (!work) return;
  Wait();
  m_result = std::make_shared<std::wstring>();
  try {
    m_thread = m_threads.Start([work, result = m_result] { *result = work(); }, {});
  } catch (const my::CException&) {
    m_failure = work();  // without a thread the windows have to wait
    return;
  }
  WaitFor(kMomentMs);
}

bool CRunRecord::IsWriting() {
  return !WaitFor(0);
}

void CRunRecord::Wait() {
  WaitFor(my::kNoTimeOut);
}

// Returns whether nothing is being written any more.
bool CRunRecord::WaitFor(uint32_t timeOutMs) {
  if (!m_thread) return true;
  if (!m_thread->Wait(timeOutMs)) return false;
  m_thread.reset();
  m_failure = *m_result;
  return true;
}

}  // namespace qlm
