#include "ui/dialogs/result_dialog.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>

#include "app/explorer_commands.h"
#include "app/manual_commands.h"
#include "control_ids.h"
#include "engine/remedy.h"
#include "platform/safe_file.h"
#include "text_ids.h"
#include "ui/dialogs/target_dialog.h"
#include "ui/models/cell_texts.h"
#include "ui/models/table_text.h"

namespace qlm {

my::CBox CResultDialog::Layout() const {
  using my::Control, my::Field;
  return my::Column(
      {Field(Control(IDC_RESULT_SEARCH).Wide(),
             {Control(IDC_RESULT_ERRORS), Control(IDC_RESULT_SHOWN).Chars(24)}),
       my::LabelOf(IDC_RESULT_LIST), Control(IDC_RESULT_LIST).Wide().Tall().Lines(10),
       Control(IDC_RESULT_TOTALS).Wide(), my::LabelOf(IDC_RESULT_DETAIL),
       Control(IDC_RESULT_DETAIL).Wide().Lines(6),
       my::Flow({Control(IDC_RESULT_OPEN), Control(IDC_RESULT_TARGETS), Control(IDC_LIST_COPY),
                 Control(IDC_RESULT_SAVE), Control(IDC_RESULT_EXPLAIN), my::Buttons({IDCANCEL})})});
}

bool CResultDialog::OnInit() {
  UseList(m_list, IDC_RESULT_LIST, IDM_RESULTS);
  m_list.Events().activate = [this](size_t) { OnCommand(IDC_RESULT_TARGETS, BN_CLICKED); };
  m_list.Events().focusChanged = [this] { ShowDetail(); };
  m_list.Restart();
  ShowFirstError();
  ShowTexts();
  m_list.Focus();
  return false;
}

void CResultDialog::RowsChanged(size_t first) {
  if (!m_list.Hwnd()) return;
  const bool follow = m_rows.ShowsAllInOrder() && IsAtEnd();
  m_list.Update(first);
  if (follow && m_rows.RowCount() != 0) m_list.EnsureVisible(m_rows.RowCount() - 1);
  ShowTexts();
}

void CResultDialog::ShowFirstError() {
  const auto failed = [](const CResultPtr& row) { return static_cast<bool>(row->error); };
  const auto first = std::ranges::find_if(m_model.Rows(), failed);
  if (first != m_model.Rows().end()) m_list.Show(static_cast<size_t>(first - m_model.Rows().begin()));
}

void CResultDialog::ApplyFilter() {
  m_list.SetFilter({IsChecked(IDC_RESULT_ERRORS), ItemText(IDC_RESULT_SEARCH)});
  ShowTexts();
}

void CResultDialog::ShowTexts() {
  const bool all = m_rows.Filter() == CRowFilter{};
  SetItemText(IDC_RESULT_SHOWN,
              all ? std::wstring()
                  : Text(IDS_SHOWN_ROWS, {GroupedText(m_model.RowCount()), GroupedText(m_rows.RowCount())}));
  SetItemText(IDC_RESULT_TOTALS, m_model.TotalsText());
  ShowDetail();
}

// Setting a text scrolls to its start and removes its selection, so the same text is not set again.
void CResultDialog::ShowDetail() {
  const auto row = m_list.FocusedRow();
  const std::wstring text = row ? m_model.Detail(*row) : std::wstring();
  if (text != ItemText(IDC_RESULT_DETAIL)) SetItemText(IDC_RESULT_DETAIL, text);
  EnableItem(IDC_RESULT_EXPLAIN, row && m_model.Row(*row).error);
}

bool CResultDialog::IsAtEnd() const {
  const HWND list = m_list.Hwnd();
  return ListView_GetTopIndex(list) + ListView_GetCountPerPage(list) >= ListView_GetItemCount(list);
}

bool CResultDialog::Execute(int id, int code) {
  switch (id) {
    case IDC_RESULT_SEARCH:
      if (code == EN_CHANGE) ApplyFilter();
      return true;
    case IDC_RESULT_ERRORS: ApplyFilter(); return true;
    case IDC_RESULT_OPEN: OpenDestination(); return true;
    case IDC_RESULT_TARGETS: ShowTargets(); return true;
    case IDC_RESULT_SAVE: SaveCsv(); return true;
    case IDC_RESULT_EXPLAIN: ExplainError(); return true;
    default: return false;
  }
}

bool CResultDialog::OnKey(UINT key) {
  if (!IsControlDown()) return false;
  const HWND detail = Item(IDC_RESULT_DETAIL);
  if (key == L'A' && ::GetFocus() == detail) {
    ::SendMessageW(detail, EM_SETSEL, 0, -1);
    return true;
  }
  if (key != L'F') return false;
  FocusItem(IDC_RESULT_SEARCH);
  return true;
}

bool CResultDialog::OnListKey(UINT key) {
  if (CListDialog::OnListKey(key)) return true;
  if (!IsControlDown()) return false;
  switch (key) {
    case L'O': OnCommand(IDC_RESULT_OPEN, BN_CLICKED); return true;
    case L'S': OnCommand(IDC_RESULT_SAVE, BN_CLICKED); return true;
    default: return false;
  }
}

void CResultDialog::OpenDestination() {
  const auto pathOf = [](const CResults& rows, size_t row) { return DestinationOf(rows, row); };
  CCommandExplorerResult(m_context, m_model.Rows(), m_list, pathOf, true).Execute(true);
}

void CResultDialog::ShowTargets() {
  const auto row = m_list.FocusedRow();
  if (!row) throw CListException(IDS_NO_ITEM_SELECTED, m_list);
  CTargetDialog(m_context, m_model.Shared(*row)).DoModal(Hwnd());
}

void CResultDialog::ExplainError() {
  const auto row = m_list.FocusedRow();
  if (!row) throw CListException(IDS_NO_ITEM_SELECTED, m_list);
  CCommandManual(m_context, ManualPageOfRemedy(RemedyOf(m_model.Row(*row).error))).Execute(true);
}

void CResultDialog::SaveCsv() {
  const CFileQuestion question{FileDialog::SaveFile, {}, {{Text(IDS_CSV_KIND), L"*.csv"}}, L"csv"};
  const auto path = m_context.dialogs.AskPath(question);
  const CEnginePorts& engine = m_context.ports.engine;
  if (path) my::WriteFileSafely(engine.files, engine.clock, *path, CsvText(m_rows));
}

}  // namespace qlm
