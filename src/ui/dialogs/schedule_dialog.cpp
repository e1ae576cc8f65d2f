#include "ui/dialogs/schedule_dialog.h"

#include "app/file_questions.h"
#include "app/messenger.h"
#include "document/document.h"
#include "platform/clock.h"
#include "text_ids.h"
#include "ui/dialogs/schedule_edit_dialog.h"

namespace qlm {
namespace {

// Returns a schedule to start with: every day at 21:00, from today.
CSchedule NewSchedule(const my::IClock& clock) {
  const my::CCalendar today = clock.LocalCalendar(clock.Now());
  CSchedule schedule;
  schedule.start = {today.year, today.month, today.day, 21, 0, 0};
  return schedule;
}

}  // namespace

CScheduleDialog::CScheduleDialog(CAppContext& context, CColumnsDlgSetting& setting, bool all)
    : CListDialog(context, IDD_SCHEDULES, setting),
      m_startsWithAll(all),
      m_schedules(MakeSchedules(context.ports)),
      m_model(context.settings.ui, context.ports.engine.texts) {}

my::CBox CScheduleDialog::Layout() const {
  using my::Control;
  return my::Column(
      {my::LabelOf(IDC_SCHEDULE_LIST), Control(IDC_SCHEDULE_LIST).Wide().Tall().Lines(8),
       Control(IDC_SCHEDULE_ALL), Control(IDC_SCHEDULE_NOTE).Wide(),
       my::Flow({Control(IDC_SCHEDULE_ADD), Control(IDC_SCHEDULE_EDIT), Control(IDC_SCHEDULE_MEND),
                 Control(IDC_SCHEDULE_REMOVE), my::Buttons({IDCANCEL})})});
}

bool CScheduleDialog::OnInit() {
  UseList(m_list, m_model, IDC_SCHEDULE_LIST, IDM_SCHEDULES);
  m_list.Events().activate = [this](size_t) { OnCommand(IDC_SCHEDULE_EDIT, BN_CLICKED); };
  m_list.Events().focusChanged = [this] { UpdateButtons(); };
  const bool isNamed = !m_context.document.Path().empty();
  SetChecked(IDC_SCHEDULE_ALL, m_startsWithAll || !isNamed);
  EnableItem(IDC_SCHEDULE_ALL, isNamed);
  EnableItem(IDC_SCHEDULE_ADD, isNamed);
  SetItemText(IDC_SCHEDULE_NOTE, ScheduleWarning(m_context));
  Load();
  ::SetFocus(m_model.RowCount() != 0 ? m_list.Hwnd() : Item(IDC_SCHEDULE_ADD));
  return false;
}

bool CScheduleDialog::Execute(int id, int) {
  switch (id) {
    case IDC_SCHEDULE_ALL: Load(); return true;
    case IDC_SCHEDULE_ADD: Add(); return true;
    case IDC_SCHEDULE_EDIT: Change(); return true;
    case IDC_SCHEDULE_MEND: Mend(); return true;
    case IDC_SCHEDULE_REMOVE: Remove(); return true;
    default: return false;
  }
}

bool CScheduleDialog::OnKey(UINT key) {
  if (key != VK_F5) return false;
  OnCommand(IDC_SCHEDULE_ALL, BN_CLICKED);
  return true;
}

bool CScheduleDialog::OnListKey(UINT key) {
  if (CListDialog::OnListKey(key)) return true;
  if (key != VK_DELETE) return false;
  OnCommand(IDC_SCHEDULE_REMOVE, BN_CLICKED);
  return true;
}

void CScheduleDialog::Load() {
  auto all = m_schedules.All();
  m_model.Show(IsChecked(IDC_SCHEDULE_ALL) ? std::move(all) : SchedulesOf(all, m_context.document.Path()));
  m_list.Refresh();
  if (m_model.RowCount() != 0 && !m_list.FocusedRow()) ShowRow(0);
  UpdateButtons();
}

void CScheduleDialog::UpdateButtons() {
  const CDocumentSchedule* const focused = m_list.FocusedItem();
  EnableItem(IDC_SCHEDULE_EDIT, focused);
  EnableItem(IDC_SCHEDULE_REMOVE, focused);
  EnableItem(IDC_SCHEDULE_MEND, focused && focused->fault != ScheduleFault::None);
}

void CScheduleDialog::Add() {
  const auto confirm = [this](const CSchedule& schedule) {
    m_schedules.Add(m_context.document.Path(), schedule);
  };
  const my::IClock& clock = m_context.ports.engine.clock;
  CScheduleEditDialog(m_context, NewSchedule(clock), confirm).DoModal(Hwnd());
  Load();
}

void CScheduleDialog::Change() {
  const CDocumentSchedule old = m_list.RequireFocusedItem();
  const auto confirm = [this, &old](const CSchedule& schedule) { m_schedules.Change(old, schedule); };
  const CSchedule shown = old.read.schedule.value_or(NewSchedule(m_context.ports.engine.clock));
  CScheduleEditDialog(m_context, shown, confirm).DoModal(Hwnd());
  Load();
}

// A moved program is replaced by this one, a moved document by the one that the user shows.
void CScheduleDialog::Mend() {
  const CDocumentSchedule broken = m_list.RequireFocusedItem();
  std::wstring document = broken.read.run.documentPath;
  if (broken.fault == ScheduleFault::NoDocument) {
    const auto path = m_context.dialogs.AskPath(OpenDocumentQuestion(Texts(), document));
    if (!path) return;
    document = *path;
  }
  m_schedules.Mend(broken, document);
  Load();
}

void CScheduleDialog::Remove() {
  const CDocumentSchedule old = m_list.RequireFocusedItem();
  if (!m_context.messenger.Ask(IDS_SCHEDULE_ASK_REMOVE, {old.task.name})) return;
  m_schedules.Remove(old);
  Load();
}

}  // namespace qlm
