#include "ui/dialogs/schedule_edit_dialog.h"

#include <commctrl.h>

#include <utility>

#include "control_ids.h"
#include "platform/clock.h"
#include "text_ids.h"
#include "ui/framework/controls.h"

namespace qlm {
namespace {

int DayId(uint32_t day) {
  return IDC_SCHEDULE_SUNDAY + static_cast<int>(day);
}

void ShowTime(HWND picker, const my::CCalendar& at) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(at.year);
  time.wMonth = static_cast<WORD>(at.month);
  time.wDay = static_cast<WORD>(at.day);
  time.wHour = static_cast<WORD>(at.hour);
  time.wMinute = static_cast<WORD>(at.minute);
  DateTime_SetSystemtime(picker, GDT_VALID, &time);
}

SYSTEMTIME ShownTime(HWND picker) {
  SYSTEMTIME time{};
  DateTime_GetSystemtime(picker, &time);
  return time;
}

}  // namespace

CScheduleEditDialog::CScheduleEditDialog(CAppContext& context, const CSchedule& schedule, CConfirm confirm)
    : CDialog(IDD_SCHEDULE_EDIT), m_context(context), m_schedule(schedule), m_confirm(std::move(confirm)) {}

my::CBox CScheduleEditDialog::Layout() const {
  using my::Control, my::Field;
  std::vector<my::CBox> days;
  for (uint32_t day = 0; day < kWeekdays; ++day) days.push_back(Control(DayId(day)));
  return my::Column({Field(Control(IDC_SCHEDULE_KIND).Wide()), Field(Control(IDC_SCHEDULE_DATE).Chars(16)),
                     Field(Control(IDC_SCHEDULE_TIME).Chars(16)),
                     my::Group(IDC_SCHEDULE_DAYS_GROUP, {my::Flow(std::move(days))}),
                     Control(IDC_SCHEDULE_MISSED), Control(IDC_SCHEDULE_BATTERY),
                     my::Buttons({IDOK, IDCANCEL})});
}

bool CScheduleEditDialog::OnInit() {
  my::FillFromTexts(Item(IDC_SCHEDULE_KIND), m_context.ports.engine.texts, kScheduleKindTexts,
                    m_schedule.kind);
  // Seconds only confuse.
  DateTime_SetFormat(Item(IDC_SCHEDULE_TIME), L"HH':'mm");
  const my::IClock& clock = m_context.ports.engine.clock;
  const bool hasStart = m_schedule.start != my::CCalendar{};
  const my::CCalendar start = hasStart ? m_schedule.start : clock.LocalCalendar(clock.Now());
  ShowTime(Item(IDC_SCHEDULE_DATE), start);
  ShowTime(Item(IDC_SCHEDULE_TIME), start);
  for (uint32_t day = 0; day < kWeekdays; ++day) SetChecked(DayId(day), m_schedule.weekdays >> day & 1);
  SetChecked(IDC_SCHEDULE_MISSED, m_schedule.runsMissed);
  SetChecked(IDC_SCHEDULE_BATTERY, m_schedule.startsOnBattery);
  ShowKind();
  return true;
}

void CScheduleEditDialog::OnOk() {
  try {
    const my::IClock& clock = m_context.ports.engine.clock;
    const CSchedule edited = Edited();
    CheckSchedule(edited, clock.LocalCalendar(clock.Now()));
    m_confirm(edited);
  } catch (...) {
    const uint32_t failure = ShowCurrentFailure(m_context).Id();
    if (failure == IDS_SCHEDULE_NO_WEEKDAY) FocusItem(IDC_SCHEDULE_SUNDAY);
    if (failure == IDS_SCHEDULE_PAST) FocusItem(IDC_SCHEDULE_DATE);
    return;
  }
  Close(IDOK);
}

bool CScheduleEditDialog::OnCommand(int id, int code) {
  if (id != IDC_SCHEDULE_KIND) return false;
  if (code == CBN_SELCHANGE) ShowKind();
  return true;
}

CSchedule CScheduleEditDialog::Edited() const {
  CSchedule edited;
  edited.kind = Kind();
  edited.runsMissed = IsChecked(IDC_SCHEDULE_MISSED);
  edited.startsOnBattery = IsChecked(IDC_SCHEDULE_BATTERY);
  if (!HasTime(edited.kind)) return edited;
  const SYSTEMTIME date = ShownTime(Item(IDC_SCHEDULE_DATE));
  const SYSTEMTIME time = ShownTime(Item(IDC_SCHEDULE_TIME));
  edited.start = {date.wYear, date.wMonth, date.wDay, time.wHour, time.wMinute, 0};
  if (edited.kind != ScheduleKind::Weekly) return edited;
  for (uint32_t day = 0; day < kWeekdays; ++day) {
    if (IsChecked(DayId(day))) edited.weekdays |= 1u << day;
  }
  return edited;
}

ScheduleKind CScheduleEditDialog::Kind() const {
  return static_cast<ScheduleKind>(my::Chosen(Item(IDC_SCHEDULE_KIND)));
}

// Disables what the kind does not use.
void CScheduleEditDialog::ShowKind() {
  const ScheduleKind kind = Kind();
  EnableField(IDC_SCHEDULE_DATE, HasTime(kind));
  EnableField(IDC_SCHEDULE_TIME, HasTime(kind));
  EnableItem(IDC_SCHEDULE_MISSED, HasTime(kind));
  for (uint32_t day = 0; day < kWeekdays; ++day) EnableItem(DayId(day), kind == ScheduleKind::Weekly);
}

}  // namespace qlm
