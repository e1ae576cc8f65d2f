#pragma once

#include <mutex>

namespace my {

// A non-recursive lock.
class CAutoCriticalSection {
 public:
  void Enter() { m_mutex.lock(); }
  void Leave() { m_mutex.unlock(); }

 private:
  std::mutex m_mutex;
};

// Holds a lock until the end of a scope.
template <class TSection>
class CAutoLock {
 public:
  explicit CAutoLock(TSection& section) : m_section(section) { m_section.Enter(); }
  CAutoLock(const CAutoLock&) = delete;
  CAutoLock& operator=(const CAutoLock&) = delete;
  ~CAutoLock() { m_section.Leave(); }

 private:
  TSection& m_section;
};

}  // namespace my
