#include "ui/dialogs/history_dialog.h"

#include <algorithm>
#include <utility>

#include "app/explorer_commands.h"
#include "control_ids.h"
#include "document/document.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {

CHistoryDialog::CHistoryDialog(CAppContext& context, CColumnsDlgSetting& setting,
                               std::function<void()> reload)
    : CListDialog(context, IDD_HISTORY, setting),
      m_reload(std::move(reload)),
      m_runsModel({context.settings.ui, Texts(), context.ports.engine.clock}),
      m_rowsModel({context.settings.ui, Texts(), context.ports.engine.clock}),
      m_tasksModel({context.settings.ui, Texts(), context.ports.engine.clock}),
      m_runs(m_runsView, Texts()),
      m_rows(m_rowsView, Texts()),
      m_tasks(m_tasksView, Texts()) {}

my::CBox CHistoryDialog::Layout() const {
  using my::Control;
  const auto list = [](int id, int lines) { return Control(id).Wide().Tall().Lines(lines); };
  return my::Column({my::Flow({Control(IDC_HISTORY_BY_RUN), Control(IDC_HISTORY_BY_TASK), my::Space(),
                               Control(IDC_HISTORY_THIS_DOCUMENT), Control(IDC_HISTORY_PROBLEMS)}),
                     my::LabelOf(IDC_HISTORY_RUNS), list(IDC_HISTORY_RUNS, 8), my::LabelOf(IDC_HISTORY_ROWS),
                     list(IDC_HISTORY_ROWS, 5), my::LabelOf(IDC_HISTORY_TASKS), list(IDC_HISTORY_TASKS, 8),
                     my::LabelOf(IDC_HISTORY_DETAIL), Control(IDC_HISTORY_DETAIL).Wide().Lines(5),
                     Control(IDC_HISTORY_STATUS).Wide(),
                     my::Flow({Control(IDC_HISTORY_OPEN), Control(IDC_LIST_COPY),
                               Control(IDC_HISTORY_REFRESH), my::Buttons({IDCANCEL})})});
}

bool CHistoryDialog::OnInit() {
  UseList(m_runs, IDC_HISTORY_RUNS, IDM_HISTORY);
  UseList(m_rows, IDC_HISTORY_ROWS, IDM_HISTORY);
  UseList(m_tasks, IDC_HISTORY_TASKS, IDM_HISTORY);
  ListenTo(m_runs, [this] { FillRows(); });
  ListenTo(m_rows, [] {});
  ListenTo(m_tasks, [] {});
  m_runs.Events().activate = [this](size_t) { m_rows.Focus(); };
  m_rows.Events().activate = [this](size_t) { OnCommand(IDC_HISTORY_OPEN, BN_CLICKED); };
  for (CSortedList* list : {&m_runs, &m_rows, &m_tasks}) list->Restart();
  const bool isNamed = !m_context.document.Path().empty();
  SetChecked(IDC_HISTORY_THIS_DOCUMENT, isNamed);
  EnableItem(IDC_HISTORY_THIS_DOCUMENT, isNamed);
  SetChecked(IDC_HISTORY_BY_RUN, true);
  ShowLists();
  Reload();
  m_runs.Focus();
  return false;
}

void CHistoryDialog::ListenTo(CSortedList& list, std::function<void()> focused) {
  list.Events().focusChanged = [this, focused = std::move(focused)] {
    focused();
    ShowDetail();
  };
}

void CHistoryDialog::OnClosed(int) {
  Forget();
  for (CRowView* rows : {&m_runsView, &m_rowsView, &m_tasksView}) rows->Update(0);
}

// Removes everything that points to what was read.
void CHistoryDialog::Forget() {
  m_runsModel.Show({});
  m_rowsModel.Show(nullptr);
  m_tasksModel.Show({});
  m_loaded = nullptr;
}

void CHistoryDialog::Reload() {
  m_reload();
  ShowStatus();
}

void CHistoryDialog::Show(std::shared_ptr<const CLoadedHistory> loaded) {
  const auto focused = m_runs.FocusedRow();
  const my::CFileTime start = focused ? m_runsModel.Run(*focused).start : my::CFileTime{};
  Forget();
  m_loaded = std::move(loaded);
  Fill();
  SelectRun(start);
}

// Selects the run that started then, or else the newest one.
void CHistoryDialog::SelectRun(const my::CFileTime& start) {
  size_t row = 0;
  while (row < m_runsModel.RowCount() && m_runsModel.Run(row).start != start) ++row;
  m_runs.Show(row < m_runsModel.RowCount() ? row : 0);
  FillRows();
  ShowDetail();
}

bool CHistoryDialog::IsWanted(const std::wstring& document) const {
  return !IsChecked(IDC_HISTORY_THIS_DOCUMENT) || my::EqualNoCase(document, m_context.document.Path());
}

void CHistoryDialog::Fill() {
  std::vector<const CHistoryRun*> runs;
  std::vector<const CTaskHistories::value_type*> tasks;
  if (m_loaded) {
    for (const CHistoryRun& run : m_loaded->history.runs) {
      if (IsWanted(run.document)) runs.push_back(&run);
    }
    for (const auto& task : m_loaded->tasks) {
      if (IsWanted(task.first.document)) tasks.push_back(&task);
    }
  }
  m_runsModel.Show(runs);
  m_tasksModel.Show(std::move(tasks));
  m_runs.Update(0);
  m_tasks.Update(0);
  if (!m_tasks.FocusedRow()) m_tasks.Show(0);
  FillRows();
  ShowStatus();
}

void CHistoryDialog::FillRows() {
  const auto run = m_runs.FocusedRow();
  m_rowsModel.Show(run ? &m_runsModel.Run(*run) : nullptr);
  m_rows.Update(0);
}

void CHistoryDialog::ApplyFilter() {
  const CRowFilter filter{IsChecked(IDC_HISTORY_PROBLEMS)};
  for (CSortedList* list : {&m_runs, &m_tasks}) list->SetFilter(filter);
  FillRows();
  m_rows.SetFilter(filter);
  ShowDetail();
}

void CHistoryDialog::ShowLists() {
  for (const auto& [id, show] : {std::pair(IDC_HISTORY_RUNS, ByRun()), std::pair(IDC_HISTORY_ROWS, ByRun()),
                                 std::pair(IDC_HISTORY_TASKS, !ByRun())}) {
    ::ShowWindow(::GetWindow(Item(id), GW_HWNDPREV), show ? SW_SHOWNA : SW_HIDE);  // its label
    ShowItem(id, show);
  }
  EnableItem(IDC_HISTORY_OPEN, ByRun());
  ShowDetail();
}

void CHistoryDialog::ShowDetail() {
  const std::wstring text = DetailText();
  if (text != ItemText(IDC_HISTORY_DETAIL)) SetItemText(IDC_HISTORY_DETAIL, text);
}

std::wstring CHistoryDialog::DetailText() const {
  if (!ByRun()) {
    const auto task = m_tasks.FocusedRow();
    return task ? m_tasksModel.Detail(*task) : std::wstring();
  }
  const auto row = m_rows.FocusedRow();
  if (row && IsCurrent(m_rows)) return m_rowsModel.Detail(*row);
  const auto run = m_runs.FocusedRow();
  return run ? m_runsModel.Detail(*run) : std::wstring();
}

void CHistoryDialog::ShowStatus() {
  m_isDamaged = m_loaded && (!m_loaded->failure.empty() || m_loaded->history.damagedLines != 0);
  SetItemText(IDC_HISTORY_STATUS, StatusText());
}

std::wstring CHistoryDialog::StatusText() const {
  if (!m_loaded) return Text(IDS_HISTORY_LOADING);
  if (!m_loaded->failure.empty()) return m_loaded->failure;
  if (const size_t damaged = m_loaded->history.damagedLines; damaged != 0)
    return Text(IDS_HISTORY_DAMAGED, {GroupedText(damaged), HistoryPath(m_context.ports.folders, Texts())});
  if (m_loaded->history.runs.empty()) return Text(IDS_HISTORY_EMPTY);
  return Text(IDS_HISTORY_SHOWN, {GroupedText(m_runsModel.RowCount()), GroupedText(m_tasksModel.RowCount())});
}

bool CHistoryDialog::Execute(int id, int) {
  switch (id) {
    case IDC_HISTORY_BY_RUN:
    case IDC_HISTORY_BY_TASK: ShowLists(); return true;
    case IDC_HISTORY_THIS_DOCUMENT: Show(m_loaded); return true;
    case IDC_HISTORY_PROBLEMS: ApplyFilter(); return true;
    case IDC_HISTORY_OPEN: OpenDestination(); return true;
    case IDC_HISTORY_REFRESH: Reload(); return true;
    default: return false;
  }
}

bool CHistoryDialog::OnKey(UINT key) {
  if (key == VK_F5) {
    OnCommand(IDC_HISTORY_REFRESH, BN_CLICKED);
    return true;
  }
  const HWND detail = Item(IDC_HISTORY_DETAIL);
  if (key != L'A' || !IsControlDown() || ::GetFocus() != detail) return false;
  ::SendMessageW(detail, EM_SETSEL, 0, -1);
  return true;
}

bool CHistoryDialog::OnListKey(UINT key) {
  if (CListDialog::OnListKey(key)) return true;
  if (key != L'O' || !IsControlDown()) return false;
  OnCommand(IDC_HISTORY_OPEN, BN_CLICKED);
  return true;
}

void CHistoryDialog::OpenDestination() {
  const auto row = ByRun() ? m_rows.FocusedRow() : std::nullopt;
  if (!row) throw CListException(IDS_NO_ITEM_SELECTED, ByRun() ? m_rows : m_tasks);
  const std::wstring& path = m_rowsModel.Row(*row).destination;
  if (path.empty()) throw my::CException(IDS_NO_DESTINATION);
  CCommandExplorer(m_context, path, true).Execute(true);
}

}  // namespace qlm
