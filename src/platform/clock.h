#pragma once

#include <cstdint>
#include <string>

#include "support/file_time.h"

namespace my {

// Any thread may call.
class IClock {
 public:
  virtual ~IClock() = default;

  // Returns the milliseconds since an arbitrary moment; never decreases.
  virtual uint64_t TickCount() const = 0;

  // Returns the current time.
  virtual CFileTime Now() const = 0;

  // Blocks the calling thread.
  virtual void Sleep(uint32_t ms) const = 0;

  // Returns the calendar fields in the user's time zone. Throws the system error if the time cannot be
  // converted.
  virtual CCalendar LocalCalendar(CFileTime time) const = 0;
};

// Returns "2016/03/05 16:04:09" in the user's time zone; empty for no time or one that cannot be converted.
std::wstring LocalTimeText(const IClock& clock, CFileTime time);

}  // namespace my
