#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace my {

// A UTC time in the file system's format: units of 100 ns since 1601-01-01; 0 means none.
struct CFileTime {
  uint64_t ticks = 0;

  explicit constexpr operator bool() const { return ticks != 0; }
  friend constexpr auto operator<=>(const CFileTime&, const CFileTime&) = default;
};

// Calendar date and time of day.
struct CCalendar {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend constexpr bool operator==(const CCalendar&, const CCalendar&) = default;
};

// Returns the calendar fields of a time in UTC, also for years above 9999.
CCalendar UtcCalendar(CFileTime time);

// Formats date and time with these separators: "2016-03-05T07:04:09" for L'-' and L'T'.
std::wstring CalendarText(const CCalendar& at, wchar_t inDate, wchar_t beforeTime);

// Returns "2016-03-05T07:04:09Z"; empty for no time and for a time beyond the calendar.
std::wstring UtcText(CFileTime time);

// Parses the result of UtcText. Returns nullopt if the text is malformed or the date does not exist.
std::optional<CFileTime> ParseUtcText(std::wstring_view text);

}  // namespace my
