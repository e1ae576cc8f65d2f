#include "ui/dialogs/task_dialog.h"

#include <utility>

#include "app/explorer_commands.h"
#include "app/file_questions.h"
#include "app/windows.h"
#include "control_ids.h"
#include "document/folder_items.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/framework/file_dialogs.h"
#include "ui/models/item_advice.h"

namespace qlm {
namespace {

// Updates the warning, which reads the disk, when the user has stopped typing.
constexpr UINT_PTR kWarningTimer = 1;
constexpr UINT kWarningDelayMs = 300;

}  // namespace

CTaskDialog::CTaskDialog(CAppContext& context, CTask task, CConfirm confirm)
    : CDialog(IDD_TASK, &context.settings.taskDlg),
      m_context(context),
      m_task(std::move(task)),
      m_confirm(std::move(confirm)),
      m_dsts(context.document.Dsts(), m_task.dsts, context.ports.engine.texts) {}

my::CBox CTaskDialog::Layout() const {
  using my::Control, my::Field;
  return my::Column({Field(IDC_TASK_ID), Field(Control(IDC_TASK_PATH).Wide(), {Control(IDC_TASK_BROWSE)}),
                     Field(Control(IDC_TASK_FILTER).Wide(),
                           {Control(IDC_TASK_BROWSE_FILTER), Control(IDC_TASK_CHECK_FILTER)}),
                     my::Space(), my::LabelOf(IDC_TASK_DSTS),
                     my::Row({Control(IDC_TASK_DSTS).Wide().Tall(),
                              my::Column({Control(IDC_TASK_UP).Same(1), Control(IDC_TASK_DOWN).Same(1),
                                          Control(IDC_TASK_OPEN_DST).Same(1)})}),
                     Control(IDC_TASK_WARNING).Wide(), my::Buttons({IDOK, IDCANCEL})});
}

bool CTaskDialog::OnInit() {
  InitList();
  SetItemText(IDC_TASK_ID, m_task.id);
  SetItemText(IDC_TASK_PATH, m_task.path);
  SetItemText(IDC_TASK_FILTER, m_task.filterPath);
  EnableItem(IDC_TASK_CHECK_FILTER, !m_task.filterPath.empty());
  EnableItem(IDC_TASK_OPEN_DST, !m_list.Items().empty());
  m_pathIsNew = m_task.id.empty();
  ShowWarning();
  if (!m_task.path.empty()) return true;
  // A new task starts with the folder, from which the ID is proposed.
  FocusItem(IDC_TASK_PATH);
  return false;
}

void CTaskDialog::InitList() {
  m_list.Attach(Item(IDC_TASK_DSTS), my::CListView::Boxes::Yes);
  m_list.SetWidths(m_context.settings.taskDlg.columnWidthes);
  m_list.Events().check = [this](size_t row) {
    m_dsts.Toggle(row);
    OnDstsChanged();
  };
  m_list.Events().selectionChanged = [this] { EnableMoving(); };
  if (m_dsts.RowCount() > 0) {
    m_list.Select({0});
    m_list.SetFocused(0);
  }
  EnableMoving();
}

void CTaskDialog::OnOk() {
  ProposeId();
  try {
    m_confirm(EditedTask());
  } catch (...) {
    return FocusOffender(ShowCurrentFailure(m_context).Id());
  }
  Close(IDOK);
}

bool CTaskDialog::OnCommand(int id, int code) {
  switch (id) {
    case IDC_TASK_ID:
      if (code == EN_CHANGE) WarnSoon();
      return true;
    case IDC_TASK_PATH: OnPathCommand(code); return true;
    case IDC_TASK_FILTER: OnFilterCommand(code); return true;
    case IDC_TASK_BROWSE: Browse(); return true;
    case IDC_TASK_BROWSE_FILTER: BrowseFilter(); return true;
    case IDC_TASK_CHECK_FILTER: CheckFilter(); return true;
    case IDC_TASK_UP: MoveDst(Step::Up); return true;
    case IDC_TASK_DOWN: MoveDst(Step::Down); return true;
    case IDC_TASK_OPEN_DST: OpenDst(); return true;
    default: return false;
  }
}

void CTaskDialog::OnPathCommand(int code) {
  if (code == EN_KILLFOCUS) ProposeId();
  if (code != EN_CHANGE) return;
  m_pathIsNew = true;
  WarnSoon();
}

void CTaskDialog::WarnSoon() const {
  ::SetTimer(Hwnd(), kWarningTimer, kWarningDelayMs, nullptr);
}

void CTaskDialog::OnFilterCommand(int code) {
  if (code == EN_CHANGE) EnableItem(IDC_TASK_CHECK_FILTER, !ItemText(IDC_TASK_FILTER).empty());
}

std::optional<LRESULT> CTaskDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_TIMER || wParam != kWarningTimer) return {};
  ::KillTimer(Hwnd(), kWarningTimer);
  ShowWarning();
  return 0;
}

void CTaskDialog::OnClosed(int) {
  if (m_list.Hwnd()) m_context.settings.taskDlg.columnWidthes = m_list.Widths();
}

CTask CTaskDialog::EditedTask() const {
  CTask task = m_task;
  task.id = ItemText(IDC_TASK_ID);
  task.path = ItemText(IDC_TASK_PATH);
  task.filterPath = ItemText(IDC_TASK_FILTER);
  task.dsts = m_dsts.Used();
  return task;
}

void CTaskDialog::FocusOffender(uint32_t failureId) const {
  switch (failureId) {
    case IDS_PATH_EMPTY: return FocusItem(IDC_TASK_PATH);
    case IDS_ID_EMPTY:
    case IDS_ID_BAD_CHARACTER:
    case IDS_ID_DUPLICATE: return FocusItem(IDC_TASK_ID);
    case IDS_DST_NOT_COMMON: return FocusItem(IDC_TASK_DSTS);
    default: return;
  }
}

void CTaskDialog::Browse() {
  const std::wstring title = m_context.ports.engine.texts.Text(IDS_BROWSE_SOURCE);
  const auto folder = my::AskFolder(Hwnd(), title, ItemText(IDC_TASK_PATH));
  if (!folder) return;
  SetItemText(IDC_TASK_PATH, *folder);
  ProposeId();
}

void CTaskDialog::BrowseFilter() {
  const CFileQuestion question = FilterQuestion(m_context.ports.engine.texts, ItemText(IDC_TASK_FILTER));
  if (const auto path = m_context.dialogs.AskPath(question)) SetItemText(IDC_TASK_FILTER, *path);
}

void CTaskDialog::CheckFilter() {
  try {
    m_context.dialogs.ShowFilter(ItemText(IDC_TASK_FILTER), ItemText(IDC_TASK_PATH));
  } catch (...) {
    ShowCurrentFailure(m_context);
    FocusItem(IDC_TASK_FILTER);
  }
}

// Proposes an ID only once per path, so that the user can leave it empty.
void CTaskDialog::ProposeId() {
  const std::wstring path = ItemText(IDC_TASK_PATH);
  if (path.empty() || !std::exchange(m_pathIsNew, false) || !ItemText(IDC_TASK_ID).empty()) return;
  SetItemText(IDC_TASK_ID, FolderTaskId(m_context.document.Tasks(), path));
}

void CTaskDialog::MoveDst(Step step) {
  const std::vector<size_t> selection = m_list.Selection();
  if (selection.empty()) return;
  const size_t row = m_dsts.StepRow(selection.front(), step);
  m_list.Select({row});
  m_list.SetFocused(row);
  m_list.EnsureVisible(row);
  OnDstsChanged();
}

void CTaskDialog::OpenDst() {
  CCommandExplorerTaskDst command(m_context, m_list.Items(), m_list, &FolderOfTaskDst, true);
  RunCommand(m_context, command, true, false);
}

void CTaskDialog::OnDstsChanged() {
  m_list.Refresh();
  EnableMoving();
  ShowWarning();
}

void CTaskDialog::EnableMoving() const {
  const std::vector<size_t> selection = m_list.Selection();
  const auto canStep = [&](Step step) {
    return !selection.empty() && m_dsts.CanStep(selection.front(), step);
  };
  for (const auto& [id, step] : {std::pair(IDC_TASK_UP, Step::Up), std::pair(IDC_TASK_DOWN, Step::Down)}) {
    const bool enable = canStep(step);
    // A disabled button must not keep the focus.
    if (!enable && ::GetFocus() == Item(id)) FocusItem(IDC_TASK_DSTS);
    EnableItem(id, enable);
  }
}

void CTaskDialog::ShowWarning() {
  SetItemText(IDC_TASK_WARNING,
              TaskAdvice(m_context.document.Content(), m_task.id, EditedTask(), m_context.ports.engine));
}

std::optional<LRESULT> CTaskDialog::CList::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_SYSKEYDOWN || (wParam != VK_UP && wParam != VK_DOWN)) return {};
  m_dialog.MoveDst(wParam == VK_UP ? Step::Up : Step::Down);
  return 0;
}

}  // namespace qlm
