#include "platform/clock.h"

#include "support/exception.h"

namespace my {

std::wstring LocalTimeText(const IClock& clock, CFileTime time) try {
  if (!time) return {};
  return CalendarText(clock.LocalCalendar(time), L'/', L' ');
} catch (const CException&) {
  return {};
}

}  // namespace my
