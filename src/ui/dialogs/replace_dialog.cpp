#include "ui/dialogs/replace_dialog.h"

#include <utility>

#include "app/command.h"
#include "app/messenger.h"
#include "app/replace_tool.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/framework/controls.h"

namespace qlm {
namespace {

constexpr int kFirstColumn = IDC_REPLACE_TASK_ID;
constexpr int kLastColumn = IDC_REPLACE_DST_PATTERN;

// Posted to the dialog itself, to be handled when a combo box has updated its text.
constexpr UINT kSettled = WM_APP;

constexpr ReplaceCol ColumnOf(int id) {
  return 1u << (id - kFirstColumn);
}

bool IsAboutExpression(const my::CException& failure) {
  switch (failure.Id()) {
    case IDS_REGEX_ERROR:
    case IDS_REGEX_TOO_COMPLEX:
    case IDS_REGEX_INVALID: return true;
    default: return false;
  }
}

}  // namespace

CReplaceDialog::CReplaceDialog(CAppContext& context)
    : CDialog(IDD_REPLACE, &context.settings.replaceDlg), m_context(context) {}

void CReplaceDialog::Refresh() {
  if (!Hwnd() || !m_context.replace.IsOpen()) return;
  m_context.replace.Refresh(ReadOptions());
  ShowState();
}

my::CBox CReplaceDialog::Layout() const {
  using my::Field, my::Group, my::Control, my::Row;
  return my::Column({Group(IDC_REPLACE_ROW_GROUP, {my::Flow({Control(IDC_REPLACE_ROW_ALL).Same(1),
                                                             Control(IDC_REPLACE_ROW_SELECTED).Same(2),
                                                             Control(IDC_REPLACE_ROW_FOCUSED).Same(3)})}),
                     Group(IDC_REPLACE_COL_GROUP,
                           {Row({Control(IDC_REPLACE_TASK_ID).Same(1), Control(IDC_REPLACE_TASK_PATH).Same(2),
                                 Control(IDC_REPLACE_TASK_FILTER).Same(3)}),
                            Row({my::Space().Same(1), Control(IDC_REPLACE_DST_FOLDER).Same(2),
                                 Control(IDC_REPLACE_DST_PATTERN).Same(3)})}),
                     Field(IDC_REPLACE_SRC), Field(IDC_REPLACE_DST),
                     Row({my::Indent(), Control(IDC_REPLACE_REGEX), Control(IDC_REPLACE_PREVIEW)}),
                     Control(IDC_REPLACE_COUNTS).Wide(), Control(IDC_REPLACE_STATUS).Wide().Tall().Lines(2),
                     my::Buttons({IDOK, IDCANCEL})});
}

bool CReplaceDialog::OnInit() {
  ShowOptions(m_context.replace.Options());
  Refresh();
  ::SetFocus(Item(IDC_REPLACE_SRC));
  return false;
}

void CReplaceDialog::OnOk() {
  try {
    m_context.replace.Commit(ReadOptions());
  } catch (const my::CException& failure) {
    ShowState();
    m_context.messenger.ShowError(failure);
    // Violated rules of the document are caused by the new text.
    return FocusItem(IsAboutExpression(failure) ? IDC_REPLACE_SRC : IDC_REPLACE_DST);
  }
  Close(IDOK);
}

bool CReplaceDialog::OnCommand(int id, int code) {
  switch (id) {
    case IDC_REPLACE_SRC:
    case IDC_REPLACE_DST:
      if (code == CBN_EDITCHANGE) Refresh();
      // The edit control gets the chosen text only after these notifications.
      if (code == CBN_SELCHANGE || code == CBN_CLOSEUP) ::PostMessageW(Hwnd(), kSettled, 0, 0);
      return true;
    default:
      if (id < IDC_REPLACE_ROW_ALL || id > IDC_REPLACE_PREVIEW || code != BN_CLICKED) return false;
      Refresh();
      return true;
  }
}

std::optional<LRESULT> CReplaceDialog::OnMessage(UINT message, WPARAM, LPARAM) {
  if (message != kSettled) return {};
  Refresh();
  return 0;
}

void CReplaceDialog::OnClosed(int) {
  if (m_context.replace.IsOpen()) m_context.replace.Cancel(m_context.replace.Options());
}

void CReplaceDialog::ShowOptions(const CReplaceOptions& options) {
  SetChecked(IDC_REPLACE_ROW_ALL + static_cast<int>(options.row), true);
  for (int id = kFirstColumn; id <= kLastColumn; ++id) SetChecked(id, (options.col & ColumnOf(id)) != 0);
  my::FillCombo(Item(IDC_REPLACE_SRC), m_context.replace.Setting().srcs.Items());
  SetItemText(IDC_REPLACE_SRC, options.src);
  my::FillCombo(Item(IDC_REPLACE_DST), m_context.replace.Setting().dsts.Items());
  SetItemText(IDC_REPLACE_DST, options.dst);
  SetChecked(IDC_REPLACE_REGEX, options.regex);
  SetChecked(IDC_REPLACE_PREVIEW, options.preview);
}

CReplaceOptions CReplaceDialog::ReadOptions() const {
  CReplaceOptions options;
  if (IsChecked(IDC_REPLACE_ROW_SELECTED)) options.row = ReplaceRow::SELECTED;
  if (IsChecked(IDC_REPLACE_ROW_FOCUSED)) options.row = ReplaceRow::FOCUSED;
  for (int id = kFirstColumn; id <= kLastColumn; ++id) {
    if (IsChecked(id)) options.col |= ColumnOf(id);
  }
  options.src = ItemText(IDC_REPLACE_SRC);
  options.dst = ItemText(IDC_REPLACE_DST);
  options.regex = IsChecked(IDC_REPLACE_REGEX);
  options.preview = IsChecked(IDC_REPLACE_PREVIEW);
  return options;
}

void CReplaceDialog::ShowState() {
  const my::IMessageTexts& texts = m_context.ports.engine.texts;
  const CReplaceTool& tool = m_context.replace;
  const my::CMsgArg counts[] = {std::to_wstring(tool.TaskCount()), std::to_wstring(tool.DstCount())};
  SetItemText(IDC_REPLACE_COUNTS, my::MakeText(texts, IDS_REPLACE_COUNTS, counts));
  std::wstring status;
  if (tool.Error())
    status = my::MakeErrorText(texts, *tool.Error());
  else if (tool.Options().regex && tool.Options().src.empty())
    status = texts.Text(IDS_REGEX_EMPTY);  // OK would change nothing
  SetItemText(IDC_REPLACE_STATUS, status);
}

}  // namespace qlm
