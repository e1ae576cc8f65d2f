#pragma once

#include <utility>

namespace my {

// Sets a flag until destroyed.
class CFlag {
 public:
  explicit CFlag(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
  CFlag(const CFlag&) = delete;
  CFlag& operator=(const CFlag&) = delete;
  ~CFlag() { m_flag = m_before; }

 private:
  bool& m_flag;
  bool m_before;
};

}  // namespace my
