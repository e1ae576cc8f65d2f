#include "engine/thread.h"

namespace my {

bool CThread::Wait(uint32_t timeOutMs) {
  if (!m_thread) return true;
  if (!m_thread->Wait(timeOutMs)) return false;
  m_thread.reset();
  return true;
}

}  // namespace my
