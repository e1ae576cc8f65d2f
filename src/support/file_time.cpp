#include "support/file_time.h"

#include <chrono>

namespace my {

CCalendar UtcCalendar(CFileTime time) {
  using namespace std::chrono;
  constexpr uint64_t kTicksPerSecond = 10'000'000;
  constexpr sys_days kEpoch = year(1601) / January / 1;
  const sys_seconds point = kEpoch + seconds(time.ticks / kTicksPerSecond);
  const sys_days day = floor<days>(point);
  const year_month_day date(day);
  const hh_mm_ss clock(point - day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

}  // namespace my
