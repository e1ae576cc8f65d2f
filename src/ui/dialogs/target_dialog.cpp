#include "ui/dialogs/target_dialog.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "app/explorer_commands.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/framework/dpi.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

constexpr bool LettersStandFor(std::initializer_list<uint32_t> bits) {
  return std::ranges::equal(kAttributeLetters, bits, {}, &CAttributeLetter::bit);
}

static_assert(LettersStandFor({FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM,
                               FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_ARCHIVE, FILE_ATTRIBUTE_TEMPORARY,
                               FILE_ATTRIBUTE_SPARSE_FILE, FILE_ATTRIBUTE_REPARSE_POINT,
                               FILE_ATTRIBUTE_COMPRESSED, FILE_ATTRIBUTE_OFFLINE,
                               FILE_ATTRIBUTE_NOT_CONTENT_INDEXED, FILE_ATTRIBUTE_ENCRYPTED}));

// Maximum number of folders named in one line, which has no room for more.
constexpr size_t kNamedFolders = 8;

}  // namespace

LRESULT CTargetDialog::CView::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  const LRESULT result = CListView::OnCustomDraw(draw);
  const bool isNewest = draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && m_newestRow == draw.nmcd.dwItemSpec;
  if (!isNewest) return result;
  ::SelectObject(draw.nmcd.hdc, BoldFont());
  return result | CDRF_NEWFONT;
}

HFONT CTargetDialog::CView::BoldFont() {
  LOGFONTW bold{};
  ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(Hwnd(), WM_GETFONT, 0, 0)), sizeof bold, &bold);
  bold.lfWeight = FW_BOLD;
  if (std::exchange(m_fontHeight, bold.lfHeight) != bold.lfHeight)
    m_font = my::CFont(::CreateFontIndirectW(&bold));
  return m_font.Get();
}

CTargetDialog::CTargetDialog(CAppContext& context, CResultPtr result)
    : CListDialog(context, IDD_TARGETS, context.settings.targetDlg),
      m_result(std::move(result)),
      m_model(m_result->targets, context.ports.engine.texts, context.ports.engine.clock) {}

my::CBox CTargetDialog::Layout() const {
  using my::Control, my::Field;
  return my::Column(
      {Field(IDC_TARGET_SOURCE), Field(IDC_TARGET_BACKUP), Field(IDC_TARGET_STATE),
       Field(Control(IDC_TARGET_SEARCH).Wide(),
             {Control(IDC_TARGET_NEXT), Control(IDC_TARGET_FOUND).Chars(16)}),
       my::LabelOf(IDC_TARGET_LIST), Control(IDC_TARGET_LIST).Wide().Tall().Lines(12),
       Control(IDC_TARGET_COUNTS).Wide(), Control(IDC_TARGET_NEWEST).Wide(),
       Control(IDC_TARGET_UNLISTED).Wide(),
       my::Flow({Control(IDC_TARGET_SHOW_SOURCE), Control(IDC_TARGET_SHOW_BACKUP),
                 Control(IDC_TARGET_GO_NEWEST), Control(IDC_LIST_COPY), my::Buttons({IDCANCEL})})});
}

bool CTargetDialog::OnInit() {
  UseList(m_list, m_model, IDC_TARGET_LIST, IDM_TARGETS);
  m_list.Events().activate = [this](size_t) { OnCommand(IDC_TARGET_SHOW_SOURCE, BN_CLICKED); };
  ShowTexts();
  EnableItem(IDC_TARGET_GO_NEWEST, m_model.NewestRow().has_value());
  return true;
}

void CTargetDialog::ShowTexts() {
  const std::wstring& backup = m_result->destinationPath;
  SetItemText(IDC_TARGET_SOURCE, m_result->task->path);
  SetItemText(IDC_TARGET_BACKUP, backup.empty() ? Text(IDS_TARGET_NO_BACKUP) : backup);
  SetItemText(IDC_TARGET_STATE, ResultText(Texts(), *m_result));
  SetItemText(IDC_TARGET_COUNTS, m_model.CountsText());
  SetItemText(IDC_TARGET_NEWEST, NewestText());
  SetItemText(IDC_TARGET_UNLISTED, UnlistedText());
  ShowItem(IDC_TARGET_UNLISTED, !m_result->targets->Unlisted().empty());
}

std::wstring CTargetDialog::NewestText() const {
  const auto row = m_model.NewestRow();
  if (!row) return Text(IDS_TARGET_NO_NEWEST);
  return Text(IDS_TARGET_NEWEST,
              {m_model.Text(*row, CTargetListModel::Path), m_model.Text(*row, CTargetListModel::Time)});
}

std::wstring CTargetDialog::UnlistedText() const {
  const std::vector<CUnlistedFolder>& folders = m_result->targets->Unlisted();
  if (folders.empty()) return {};
  std::wstring names;
  for (size_t i = 0; i < folders.size() && i < kNamedFolders; ++i) {
    if (i != 0) names += L", ";
    names += folders[i].folder.empty() ? m_result->task->path : folders[i].folder;
  }
  const std::wstring warning = Text(IDS_TARGET_UNLISTED, {GroupedText(folders.size()), names});
  return Text(IDS_WARNING, {warning});
}

bool CTargetDialog::IsWarning(int controlId) const {
  return controlId == IDC_TARGET_UNLISTED || (controlId == IDC_TARGET_STATE && m_result->error);
}

bool CTargetDialog::Execute(int id, int code) {
  switch (id) {
    case IDC_TARGET_SEARCH:
      if (code == EN_CHANGE) Search(false);
      return true;
    case IDC_TARGET_NEXT: Search(true); return true;
    case IDC_TARGET_GO_NEWEST: GoToNewest(); return true;
    case IDC_TARGET_SHOW_SOURCE: ShowSource(); return true;
    case IDC_TARGET_SHOW_BACKUP: ShowBackup(); return true;
    default: return false;
  }
}

bool CTargetDialog::OnKey(UINT key) {
  if (key != VK_F3) return false;
  Search(true);
  return true;
}

// While the text is typed, the row found so far stays selected as long as it matches.
void CTargetDialog::Search(bool next) {
  const std::wstring text = ItemText(IDC_TARGET_SEARCH);
  const auto focused = m_list.Focused();
  const size_t start = focused ? *focused + (next ? 1 : 0) : 0;
  const auto row = text.empty() ? std::nullopt : m_model.Find(text, start);
  if (row) ShowRow(*row);
  const bool missed = !text.empty() && !row;
  SetItemText(IDC_TARGET_FOUND, missed ? Text(IDS_TARGET_NOT_FOUND) : std::wstring());
}

void CTargetDialog::GoToNewest() {
  const auto row = m_model.NewestRow();
  if (!row) return;
  ShowRow(*row);
  m_list.Focus();
}

void CTargetDialog::ShowSource() {
  const auto pathOf = [this](const CTargets& targets, size_t row) {
    return SourceOfTarget(*m_result, targets, row);
  };
  CCommandExplorerTarget(m_context, m_list.Items(), m_list, pathOf, false).Execute(true);
}

void CTargetDialog::ShowBackup() {
  const auto pathOf = [this](const CTargets& targets, size_t row) {
    return BackupOfTarget(*m_result, targets, row);
  };
  CCommandExplorerTarget(m_context, m_list.Items(), m_list, pathOf, false).Execute(true);
}

}  // namespace qlm
