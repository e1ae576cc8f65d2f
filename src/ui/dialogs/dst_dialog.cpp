#include "ui/dialogs/dst_dialog.h"

#include <utility>

#include "app/windows.h"
#include "control_ids.h"
#include "document/document.h"
#include "document/name_pattern.h"
#include "engine/archiver_location.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/framework/controls.h"
#include "ui/framework/file_dialogs.h"
#include "ui/models/item_advice.h"
#include "ui/models/name_preview.h"

namespace qlm {
CDstDialog::CDstDialog(CAppContext& context, CDst dst, CConfirm confirm)
    : CDialog(IDD_DST, &context.settings.dstDlg),
      m_context(context),
      m_dst(std::move(dst)),
      m_before(context.document.Dsts().FindEqual(m_dst)),
      m_confirm(std::move(confirm)),
      m_time(context.ports.engine.clock.Now()),
      m_taskId(SampleTaskId(context.document.Tasks(), context.window.TaskList().SelectedRows(),
                            context.ports.engine.texts)) {}

my::CBox CDstDialog::Layout() const {
  using my::Control, my::Field;
  return my::Column({Field(Control(IDC_DST_FOLDER).Wide().Chars(48), {Control(IDC_DST_BROWSE)}),
                     Field(Control(IDC_DST_TYPE)),
                     Field(Control(IDC_DST_PATTERN).Wide(), {Control(IDC_DST_TOKENS)}),
                     Field(Control(IDC_DST_PREVIEW).Wide()),
                     my::Row({my::Indent(), Control(IDC_DST_NOTE).Wide().Tall().Lines(3)}),
                     my::Row({my::Indent(), Control(IDC_DST_SETTINGS)}), my::Buttons({IDOK, IDCANCEL})});
}

bool CDstDialog::OnInit() {
  my::FillFromTexts(Item(IDC_DST_TYPE), m_context.ports.engine.texts, kDstTypeTexts, m_dst.type);
  SetItemText(IDC_DST_FOLDER, m_dst.folder);
  SetItemText(IDC_DST_PATTERN, m_dst.pattern);
  const size_t end = m_dst.pattern.size();
  ::SendMessageW(Item(IDC_DST_PATTERN), EM_SETSEL, end, static_cast<LPARAM>(end));
  CheckArchiver();
  ShowEffect();
  return true;
}

void CDstDialog::OnOk() {
  FitExtension();
  try {
    m_confirm(EditedDst());
  } catch (...) {
    return FocusOffender(ShowCurrentFailure(m_context).Id());
  }
  Close(IDOK);
}

bool CDstDialog::OnCommand(int id, int code) {
  const auto token = static_cast<size_t>(id - IDC_DST_TOKEN_FIRST);
  if (token < NameTokens().size()) {
    InsertToken(token);
    return true;
  }
  switch (id) {
    case IDC_DST_BROWSE: Browse(); return true;
    case IDC_DST_TOKENS: OfferTokens(); return true;
    case IDC_DST_SETTINGS: OpenSettings(); return true;
    case IDC_DST_TYPE:
      if (code != CBN_SELCHANGE) return true;
      FitExtension();
      CheckArchiver();
      ShowEffect();
      return true;
    case IDC_DST_FOLDER:
      if (code == EN_CHANGE) ShowEffect();
      return true;
    case IDC_DST_PATTERN:
      if (code == EN_CHANGE) ShowEffect();
      if (code == EN_KILLFOCUS) FitExtension();
      return true;
    default: return false;
  }
}

CDst CDstDialog::EditedDst() const {
  CDst dst = m_dst;
  dst.folder = ItemText(IDC_DST_FOLDER);
  dst.type = static_cast<DstType>(my::Chosen(Item(IDC_DST_TYPE)));
  dst.pattern = ItemText(IDC_DST_PATTERN);
  return dst;
}

void CDstDialog::FocusOffender(uint32_t failureId) const {
  switch (failureId) {
    case IDS_PATH_EMPTY: return FocusItem(IDC_DST_FOLDER);
    case IDS_PATTERN_EMPTY:
    case IDS_DST_DUPLICATE: return FocusItem(IDC_DST_PATTERN);
    default: return;
  }
}

void CDstDialog::Browse() {
  const std::wstring title = m_context.ports.engine.texts.Text(IDS_BROWSE_DST);
  if (const auto folder = my::AskFolder(Hwnd(), title, ItemText(IDC_DST_FOLDER)))
    SetItemText(IDC_DST_FOLDER, *folder);
}

// Not called while the pattern is being typed. Keeps the caret, because the user may insert a token there.
void CDstDialog::FitExtension() {
  CDst dst = EditedDst();
  if (!FitPattern(dst.type, dst.pattern)) return;
  DWORD start = 0;
  DWORD end = 0;
  const HWND edit = Item(IDC_DST_PATTERN);
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  SetItemText(IDC_DST_PATTERN, dst.pattern);
  ::SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
}

void CDstDialog::OfferTokens() {
  const my::CMenu menu(::CreatePopupMenu());
  UINT_PTR id = IDC_DST_TOKEN_FIRST;
  for (const CNameToken& token : NameTokens()) {
    if (token.firstOfGroup) ::AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    const std::wstring text = token.text + (L'\t' + m_context.ports.engine.texts.Text(token.descId));
    ::AppendMenuW(menu.Get(), MF_STRING, id++, text.c_str());
  }
  RECT button{};
  ::GetWindowRect(Item(IDC_DST_TOKENS), &button);
  // The menu must not cover the button.
  TPMPARAMS around{sizeof around, button};
  ::TrackPopupMenuEx(menu.Get(), TPM_RIGHTALIGN | TPM_VERTICAL, button.right, button.bottom, Hwnd(), &around);
}

void CDstDialog::InsertToken(size_t index) {
  const HWND edit = Item(IDC_DST_PATTERN);
  const LRESULT length = ::GetWindowTextLengthW(edit);
  // Reaching the control by Tab selects its whole text, which the token must not replace.
  if (::SendMessageW(edit, EM_GETSEL, 0, 0) == MAKELRESULT(0, length))
    ::SendMessageW(edit, EM_SETSEL, length, length);
  ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(NameTokens()[index].text));
  ::SetFocus(edit);
}

// Offers the settings if the chosen type needs an archiver and there is none.
void CDstDialog::CheckArchiver() {
  const CAppPorts& ports = m_context.ports;
  m_archiverMissing = IsZip(EditedDst().type) && IsArchiverMissing(ports.engine.files, ports.folders,
                                                                   m_context.settings.archive.sevenZipPath);
  // A hidden button must not keep the focus.
  if (!m_archiverMissing && ::GetFocus() == Item(IDC_DST_SETTINGS)) FocusItem(IDC_DST_TYPE);
  ShowItem(IDC_DST_SETTINGS, m_archiverMissing);
}

void CDstDialog::OpenSettings() {
  m_context.dialogs.ShowSettings(false);
  CheckArchiver();
  ShowEffect();
}

void CDstDialog::ShowEffect() {
  ShowPreview();
  ShowNote();
}

// Shows the name for the pattern as FitExtension would change it.
void CDstDialog::ShowPreview() {
  CDst dst = EditedDst();
  FitPattern(dst.type, dst.pattern);
  const CEnginePorts& ports = m_context.ports.engine;
  SetItemText(IDC_DST_PREVIEW, NamePreview(dst, m_taskId, m_time, ports.clock, ports.texts));
}

void CDstDialog::ShowNote() {
  const CEnginePorts& ports = m_context.ports.engine;
  const my::IMessageTexts& texts = ports.texts;
  const CDst dst = EditedDst();
  std::wstring note;
  if (m_archiverMissing) {
    const my::CMsgArg missing = my::CTextId{IDS_DST_NO_ARCHIVER};
    note = my::MakeText(texts, IDS_WARNING, {&missing, 1}) + L"\n";
  }
  const CContent& content = m_context.document.Content();
  const std::wstring advice =
      DstAdvice(content, m_before, dst, m_context.window.TaskList().SelectedRows(), m_taskId, ports);
  if (!advice.empty()) note += advice + L"\n";
  if (dst.type == DstType::PASSWORD_ZIP) note += texts.Text(IDS_DST_NOTE_ZIPCRYPTO) + L"\n";
  if (dst.type == DstType::AES_256_ZIP) note += texts.Text(IDS_DST_NOTE_AES) + L"\n";
  if (NeedsPassword(dst.type)) note += texts.Text(IDS_DST_NOTE_PASSWORD);
  SetItemText(IDC_DST_NOTE, note);
}

}  // namespace qlm
