#include "ui/dialogs/result_dialog.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>

#include "app/explorer_commands.h"
#include "control_ids.h"
#include "engine/remedy.h"
#include "platform/message_texts.h"
#include "platform/safe_file.h"
#include "text_ids.h"
#include "ui/dialogs/target_dialog.h"

namespace qlm {

my::CBox CResultDialog::Layout() const {
  using my::Control;
  return my::Column({my::LabelOf(IDC_RESULT_LIST), Control(IDC_RESULT_LIST).Wide().Tall().Lines(12),
                     Control(IDC_RESULT_MESSAGE).Wide(), Control(IDC_RESULT_REMEDY).Wide(),
                     my::Flow({Control(IDC_RESULT_OPEN), Control(IDC_RESULT_TARGETS), Control(IDC_LIST_COPY),
                               Control(IDC_RESULT_SAVE), my::Buttons({IDCANCEL})})});
}

bool CResultDialog::OnInit() {
  UseList(m_list, m_model, IDC_RESULT_LIST, IDM_RESULTS);
  m_list.Events().activate = [this](size_t) { OnCommand(IDC_RESULT_TARGETS, BN_CLICKED); };
  m_list.Events().focusChanged = [this] { ShowDetail(); };
  ShowFirstError();
  ShowDetail();
  return true;
}

void CResultDialog::RowsChanged() {
  if (!m_list.Hwnd()) return;
  const bool follow = IsAtEnd();
  m_list.Refresh();
  if (follow && m_model.RowCount() != 0) m_list.EnsureVisible(m_model.RowCount() - 1);
  ShowDetail();
}

void CResultDialog::ShowFirstError() {
  const auto failed = [](const CResultPtr& row) { return static_cast<bool>(row->error); };
  const auto first = std::ranges::find_if(m_model.Rows(), failed);
  if (first != m_model.Rows().end()) ShowRow(static_cast<size_t>(first - m_model.Rows().begin()));
}

// Shows the whole message of the focused row, and what to do about its error.
void CResultDialog::ShowDetail() {
  const auto row = m_list.FocusedRow();
  SetItemText(IDC_RESULT_MESSAGE, row ? RowText(Texts(), m_model.Row(*row)) : std::wstring());
  SetItemText(IDC_RESULT_REMEDY, row ? RemedyLine(Texts(), m_model.Row(*row).error) : std::wstring());
}

bool CResultDialog::IsAtEnd() const {
  const HWND list = m_list.Hwnd();
  return ListView_GetTopIndex(list) + ListView_GetCountPerPage(list) >= ListView_GetItemCount(list);
}

bool CResultDialog::Execute(int id, int) {
  switch (id) {
    case IDC_RESULT_OPEN: OpenDestination(); return true;
    case IDC_RESULT_TARGETS: ShowTargets(); return true;
    case IDC_RESULT_SAVE: SaveCsv(); return true;
    default: return false;
  }
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
  CCommandExplorerResult(m_context, m_list.Items(), m_list, pathOf, true).Execute(true);
}

void CResultDialog::ShowTargets() {
  CTargetDialog(m_context, m_list.RequireFocusedItem()).DoModal(Hwnd());
}

void CResultDialog::SaveCsv() {
  const CFileQuestion question{FileDialog::SaveFile, {}, {{Text(IDS_CSV_KIND), L"*.csv"}}, L"csv"};
  const auto path = m_context.dialogs.AskPath(question);
  const CEnginePorts& engine = m_context.ports.engine;
  if (path) my::WriteFileSafely(engine.files, engine.clock, *path, m_model.Csv());
}

}  // namespace qlm
