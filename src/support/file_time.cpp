#include "support/file_time.h"

#include <chrono>

#include "support/strings.h"

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

std::wstring CalendarText(const CCalendar& at, wchar_t inDate, wchar_t beforeTime) {
  const auto number = [](int value, size_t width) {
    return PaddedNumber(static_cast<uint64_t>(value), width);
  };
  return number(at.year, 4) + inDate + number(at.month, 2) + inDate + number(at.day, 2) + beforeTime +
         number(at.hour, 2) + L':' + number(at.minute, 2) + L':' + number(at.second, 2);
}

}  // namespace my
