#include "ui/dialogs/filter_dialog.h"

#include <utility>

#include "app/file_questions.h"
#include "control_ids.h"
#include "document/text_file.h"
#include "engine/remedy.h"
#include "platform/message_texts.h"
#include "platform/shell.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {

CFilterDialog::CFilterDialog(CAppContext& context, std::wstring path, std::wstring source)
    : CListDialog(context, IDD_FILTER, context.settings.filterDlg),
      m_path(std::move(path)),
      m_source(my::JoinPath(source, L"")),
      m_model(context.settings.ui, context.ports.engine.texts) {}

my::CBox CFilterDialog::Layout() const {
  using my::Control, my::Field;
  return my::Column({Field(IDC_FILTER_FILE), my::LabelOf(IDC_FILTER_LINES),
                     Control(IDC_FILTER_LINES).Wide().Tall(), Control(IDC_FILTER_STATUS).Wide(),
                     Field(IDC_FILTER_PATH), my::Row({my::Indent(), Control(IDC_FILTER_HINT).Wide()}),
                     Field(IDC_FILTER_DECISION),
                     my::Flow({Control(IDC_FILTER_OPEN), Control(IDC_FILTER_EDIT), Control(IDC_FILTER_RELOAD),
                               Control(IDC_LIST_COPY), my::Buttons({IDCANCEL})})});
}

bool CFilterDialog::OnInit() {
  UseList(m_list, m_model, IDC_FILTER_LINES, IDM_FILTER);
  m_list.Events().focusChanged = [this] { ShowStatus(); };
  Load();
  ::SetFocus(Item(IDC_FILTER_PATH));
  return false;
}

// Sent by Enter, because the dialog has no default button. Selects the path, so that the next one can be
// typed.
void CFilterDialog::OnOk() {
  Decide();
  FocusItem(IDC_FILTER_PATH);
}

bool CFilterDialog::Execute(int id, int code) {
  switch (id) {
    case IDC_FILTER_PATH:
      if (code == EN_CHANGE) Decide();
      return true;
    case IDC_FILTER_OPEN: Open(); return true;
    case IDC_FILTER_EDIT: Edit(); return true;
    case IDC_FILTER_RELOAD: Load(); return true;
    default: return false;
  }
}

bool CFilterDialog::OnKey(UINT key) {
  if (key != VK_F5) return false;
  Load();
  return true;
}

void CFilterDialog::Open() {
  const auto path = m_context.dialogs.AskPath(FilterQuestion(Texts(), m_path));
  if (!path) return;
  m_path = *path;
  Load();
}

// Falls back to Notepad, because few systems have a program registered for .flt files.
void CFilterDialog::Edit() {
  my::IShell& shell = m_context.ports.shell;
  try {
    shell.Open(m_path);
  } catch (const my::CException& failure) {
    if (!failure.SystemError().Is(my::kErrorNoAssociation)) throw;
    shell.Run(L"notepad.exe", L"\"" + m_path + L"\"");
  }
}

void CFilterDialog::Load() {
  SetItemText(IDC_FILTER_FILE, m_path);
  const CEnginePorts& ports = m_context.ports.engine;
  std::vector<std::wstring> lines;
  const my::CSimpleErr error =
      my::TrapError(Texts(), [&] { lines = ReadTextLines(ports.files, ports.ansi, m_path); });
  m_model.Show(std::move(lines));
  m_list.Refresh();
  m_hasErrors = error || m_model.HasErrors();
  m_loadFailure = my::OneLine(error.message);
  ShowStatus();
  Decide();
}

// Shows why the file cannot be read, what to do about the error of the focused line, or the counts.
void CFilterDialog::ShowStatus() {
  if (!m_loadFailure.empty()) return SetItemText(IDC_FILTER_STATUS, m_loadFailure);
  const CFilterItem* const* item = m_list.FocusedItem();
  const bool bad = item && *item && (*item)->error;
  SetItemText(IDC_FILTER_STATUS, bad ? RemedyLine(Texts(), (*item)->error) : CountsText());
}

std::wstring CFilterDialog::CountsText() const {
  size_t errors = 0;
  for (const CFilterItem* item : m_list.Items()) {
    if (item && item->error) ++errors;
  }
  return Text(IDS_FILTER_LINE_COUNTS, {std::to_wstring(m_model.RowCount()), std::to_wstring(errors)});
}

// Returns the typed path relative to the source; a full path is accepted too.
std::wstring CFilterDialog::TypedPath() const {
  const std::wstring path = ItemText(IDC_FILTER_PATH);
  const bool isFull = !m_source.empty() && my::EqualNoCase(path.substr(0, m_source.size()), m_source);
  return isFull ? path.substr(m_source.size()) : path;
}

void CFilterDialog::Decide() {
  const std::wstring path = TypedPath();
  CFilterCheckModel::CDecision decision;
  const my::CSimpleErr error = my::TrapError(Texts(), [&] {
    if (!path.empty()) decision = m_model.Decide(path);
  });
  SetItemText(IDC_FILTER_DECISION, error ? my::OneLine(error.message) : DecisionText(decision));
  if (decision.row)
    ShowRow(*decision.row);
  else
    m_list.Select({});
}

std::wstring CFilterDialog::DecisionText(const CFilterCheckModel::CDecision& decision) const {
  if (!decision.row) return decision.text;
  const uint32_t id = decision.excluded ? IDS_FILTER_EXCLUDED_BY : IDS_FILTER_INCLUDED_BY;
  return Text(id, {std::to_wstring(*decision.row + 1)});
}

}  // namespace qlm
