#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace my {

// A point in time as the file system keeps it: UTC, in steps of 100 ns since 1601-01-01; 0 means none.
struct CFileTime {
  uint64_t ticks = 0;

  explicit constexpr operator bool() const { return ticks != 0; }
  friend constexpr auto operator<=>(const CFileTime&, const CFileTime&) = default;
};

// The fields of a calendar date and a time of day.
struct CCalendar {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend constexpr bool operator==(const CCalendar&, const CCalendar&) = default;
};

// The calendar fields of a time as UTC, for times up to the year 9999 and beyond.
CCalendar UtcCalendar(CFileTime time);

// Returns "2016-03-05T07:04:09" for "-" in the date and "T" before the time.
std::wstring CalendarText(const CCalendar& at, wchar_t inDate, wchar_t beforeTime);

}  // namespace my
