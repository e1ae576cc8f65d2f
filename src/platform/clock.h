#pragma once

#include <cstdint>

#include "support/file_time.h"

namespace my {

// Callable from any thread.
class IClock {
 public:
  virtual ~IClock() = default;

  // Milliseconds since some moment before the program started; never goes back.
  virtual uint64_t TickCount() const = 0;

  // The present moment.
  virtual CFileTime Now() const = 0;

  // Blocks the calling thread.
  virtual void Sleep(uint32_t ms) const = 0;

  // The calendar fields in the user's time zone. Throws a CException with the system's own text when the
  // time is outside what the system can convert.
  virtual CCalendar LocalCalendar(CFileTime time) const = 0;
};

}  // namespace my
