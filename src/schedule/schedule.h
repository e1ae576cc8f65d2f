// When the Task Scheduler of the system runs a document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/enum_names.h"
#include "support/file_time.h"
#include "text_ids.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

enum class ScheduleKind { Once, Daily, Weekly, Logon, Idle };

inline constexpr my::CEnumTexts<ScheduleKind> kScheduleKindTexts{IDS_SCHEDULE_ONCE, IDS_SCHEDULE_IDLE};

inline constexpr uint32_t kWeekdays = 7;  // from Sunday

struct CSchedule {
  ScheduleKind kind = ScheduleKind::Daily;
  my::CCalendar start = {};  // of the first run, in the user's time zone; ignored for Logon and Idle
  uint32_t weekdays = 0;     // for Weekly; bit 0 is Sunday
  bool runsMissed = true;    // runs later if the computer was off at the time
  bool startsOnBattery = true;

  friend bool operator==(const CSchedule&, const CSchedule&) = default;
};

// Returns whether a schedule of this kind has a start time.
bool HasTime(ScheduleKind kind);

// Throws IDS_SCHEDULE_NO_WEEKDAY, or IDS_SCHEDULE_PAST for a single run that is not after `now`.
void CheckSchedule(const CSchedule& schedule, const my::CCalendar& now);

// Returns one line, such as "Weekly Mon Fri 21:00".
std::wstring ScheduleText(const my::IMessageTexts& texts, const CSchedule& schedule);

}  // namespace qlm
