#include "support/file_time.h"

#include <chrono>

#include "support/strings.h"
#include "support/value_codecs.h"

namespace my {
namespace {

using namespace std::chrono;

constexpr uint64_t kTicksPerSecond = 10'000'000;
constexpr sys_days kEpoch = year(1601) / January / 1;

}  // namespace

CCalendar UtcCalendar(CFileTime time) {
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

std::wstring UtcText(CFileTime time) {
  constexpr uint64_t kBeyondCalendar = uint64_t{1} << 63;
  if (!time || time.ticks >= kBeyondCalendar) return {};
  return CalendarText(UtcCalendar(time), L'-', L'T') + L"Z";
}

std::optional<CFileTime> ParseUtcText(std::wstring_view text) {
  constexpr std::wstring_view kForm = L"0000-00-00T00:00:00Z";
  if (text.size() != kForm.size()) return {};
  for (size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = text[i] >= L'0' && text[i] <= L'9';
    if (kForm[i] == L'0' ? !digit : text[i] != kForm[i]) return {};
  }
  const auto number = [text](size_t at, size_t count) {
    return static_cast<unsigned>(*ParseDword(text.substr(at, count)));
  };
  const year_month_day date(year(static_cast<int>(number(0, 4))), month(number(5, 2)), day(number(8, 2)));
  const unsigned hour = number(11, 2);
  const unsigned minute = number(14, 2);
  const unsigned second = number(17, 2);
  if (!date.ok() || sys_days(date) < kEpoch || hour > 23 || minute > 59 || second > 59) return {};
  const seconds since = sys_days(date) - kEpoch + hours(hour) + minutes(minute) + seconds(second);
  return CFileTime{static_cast<uint64_t>(since.count()) * kTicksPerSecond};
}

}  // namespace my
