#pragma once

#include "platform/clock.h"

namespace my {

class CWin32Clock : public IClock {
 public:
  uint64_t TickCount() const override;
  CFileTime Now() const override;
  void Sleep(uint32_t ms) const override;
  CCalendar LocalCalendar(CFileTime time) const override;
};

}  // namespace my
