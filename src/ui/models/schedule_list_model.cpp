#include "ui/models/schedule_list_model.h"

#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/paths.h"
#include "support/value_codecs.h"
#include "text_ids.h"
#include "ui/models/row_colors.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {{IDS_COL_SCHEDULE, 220},
                                    {IDS_COL_NEXT_RUN, 120},
                                    {IDS_COL_LAST_RUN, 120},
                                    {IDS_COL_SCHEDULE_STATE, 190},
                                    {IDS_COL_DOCUMENT, 140}};

// Exit codes of the runner, and results of the Task Scheduler.
constexpr uint32_t kDone = 0;
constexpr uint32_t kRowsWithErrors = 1;
constexpr uint32_t kHasNotRun = 0x41303;

std::wstring TimeText(const std::optional<my::CCalendar>& at) {
  if (!at) return {};
  const std::wstring text = my::CalendarText(*at, L'/', L' ');
  return text.substr(0, text.size() - std::wstring_view(L":00").size());
}

}  // namespace

CScheduleListModel::CScheduleListModel(const CUISetting& setting, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns), m_setting(setting) {}

std::wstring CScheduleListModel::Text(size_t row, size_t column) const {
  const CDocumentSchedule& schedule = m_schedules[row];
  switch (column) {
    case When:
      return schedule.read.schedule ? ScheduleText(m_texts, *schedule.read.schedule)
                                    : m_texts.Text(IDS_SCHEDULE_CUSTOM);
    case NextRun: return TimeText(schedule.task.nextRun);
    case LastRun: return TimeText(schedule.task.lastRun);
    case State: return StateText(schedule);
    default: return std::wstring(my::LastComponent(schedule.read.run.documentPath));
  }
}

my::CListLook CScheduleListModel::Look(size_t row) const {
  const CDocumentSchedule& schedule = m_schedules[row];
  if (schedule.fault != ScheduleFault::None) return StateLook(m_setting, ResultState::Failed);
  return {{}, !schedule.task.enabled};
}

std::wstring CScheduleListModel::StateText(const CDocumentSchedule& schedule) const {
  const my::CScheduledTask& task = schedule.task;
  if (schedule.fault == ScheduleFault::NoRunner) return m_texts.Text(IDS_SCHEDULE_NO_RUNNER);
  if (schedule.fault == ScheduleFault::NoDocument) return m_texts.Text(IDS_SCHEDULE_NO_DOCUMENT);
  if (!task.enabled) return m_texts.Text(IDS_SCHEDULE_DISABLED);
  if (task.running) return m_texts.Text(IDS_SCHEDULE_RUNS_NOW);
  if (!task.lastRun || task.lastResult == kHasNotRun) return m_texts.Text(IDS_SCHEDULE_NEVER_RUN);
  if (task.lastResult == kDone) return m_texts.Text(IDS_SCHEDULE_LAST_DONE);
  if (task.lastResult == kRowsWithErrors) return m_texts.Text(IDS_SCHEDULE_LAST_ERRORS);
  return m_texts.Text(IDS_SCHEDULE_LAST_FAILED) + L" (" + my::HexText(task.lastResult) + L")";
}

}  // namespace qlm
