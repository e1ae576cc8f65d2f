#include "schedule/schedule.h"

#include "platform/message_texts.h"
#include "support/exception.h"
#include "support/strings.h"

namespace qlm {
namespace {

// Texts of this form are in the order of their times.
std::wstring SortableText(const my::CCalendar& at) {
  return my::CalendarText(at, L'-', L' ');
}

std::wstring WeekdaysText(const my::IMessageTexts& texts, uint32_t weekdays) {
  std::wstring text;
  for (uint32_t day = 0; day < kWeekdays; ++day) {
    if ((weekdays >> day & 1) != 0) text += L" " + texts.Text(IDS_WEEKDAY_SUNDAY + day);
  }
  return text;
}

}  // namespace

bool HasTime(ScheduleKind kind) {
  return kind != ScheduleKind::Logon && kind != ScheduleKind::Idle;
}

void CheckSchedule(const CSchedule& schedule, const my::CCalendar& now) {
  if (schedule.kind == ScheduleKind::Weekly && schedule.weekdays == 0)
    throw my::CException(IDS_SCHEDULE_NO_WEEKDAY);
  if (schedule.kind == ScheduleKind::Once && SortableText(schedule.start) <= SortableText(now))
    throw my::CException(IDS_SCHEDULE_PAST);
}

std::wstring ScheduleText(const my::IMessageTexts& texts, const CSchedule& schedule) {
  std::wstring text = texts.Text(kScheduleKindTexts[schedule.kind]);
  if (!HasTime(schedule.kind)) return text;
  if (schedule.kind == ScheduleKind::Weekly) text += WeekdaysText(texts, schedule.weekdays);
  const std::wstring start = my::CalendarText(schedule.start, L'/', L' ');
  const size_t time = start.size() - std::wstring_view(L"21:00:00").size();
  const size_t from = schedule.kind == ScheduleKind::Once ? 0 : time;
  return text + L" " + start.substr(from, start.size() - from - std::wstring_view(L":00").size());
}

}  // namespace qlm
