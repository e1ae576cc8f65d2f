#include "ui/dialogs/about_dialog.h"

#include <commctrl.h>

#include "app/command.h"
#include "app/diagnostics.h"
#include "app/messenger.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "platform/shell.h"
#include "platform/win32/system_info.h"
#include "settings/settings.h"
#include "support/build_info.h"
#include "text_ids.h"
#include "ui/framework/clipboard.h"
#include "ui/framework/dpi.h"
#include "ui/framework/file_version.h"

namespace qlm {
namespace {

// Returns a shared icon, which must not be destroyed.
HICON IconOf(HWND window) {
  if (const LRESULT icon = ::SendMessageW(window, WM_GETICON, ICON_BIG, 0))
    return reinterpret_cast<HICON>(icon);
  if (const ULONG_PTR icon = ::GetClassLongPtrW(window, GCLP_HICON)) return reinterpret_cast<HICON>(icon);
  return ::LoadIconW(nullptr, MAKEINTRESOURCEW(32512));  // IDI_APPLICATION
}

}  // namespace

CAboutDialog::CAboutDialog(CAppContext& context) : CDialog(IDD_ABOUT), m_context(context) {}

my::CBox CAboutDialog::Layout() const {
  using my::Control;
  return my::Column(
      {my::Row({my::Column({Control(IDC_ABOUT_ICON)}), my::Space(),
                my::Column({Control(IDC_ABOUT_NAME), Control(IDC_ABOUT_VERSION), my::Space(),
                            Control(IDC_ABOUT_PURPOSE), Control(IDC_ABOUT_LIBRARIES),
                            Control(IDC_ABOUT_ARCHIVER), my::Space(), Control(IDC_ABOUT_HOME_PAGE)})}),
       my::Row({Control(IDC_ABOUT_COPY), my::Spring(), my::Buttons({IDOK})})});
}

bool CAboutDialog::OnInit() {
  const my::IMessageTexts& texts = m_context.ports.engine.texts;
  const my::CMsgArg version[] = {my::BuildText()};
  const my::CMsgArg libraries[] = {LibrariesText()};
  SetItemText(IDC_ABOUT_NAME, texts.Text(IDS_DISPLAY_NAME));
  SetItemText(IDC_ABOUT_VERSION, my::MakeText(texts, IDS_ABOUT_VERSION, version));
  SetItemText(IDC_ABOUT_LIBRARIES, my::MakeText(texts, IDS_ABOUT_LIBRARIES, libraries));
  SetItemText(IDC_ABOUT_HOME_PAGE, L"<a>" + texts.Text(IDS_HOME_PAGE_URL) + L"</a>");
  OnDpiChanged();
  ::SetFocus(Item(IDOK));
  return false;
}

std::optional<LRESULT> CAboutDialog::OnNotify(const NMHDR& header) {
  const bool followed = header.code == NM_CLICK || header.code == NM_RETURN;
  if (header.idFrom != IDC_ABOUT_HOME_PAGE || !followed) return {};
  try {
    m_context.ports.shell.Open(m_context.ports.engine.texts.Text(IDS_HOME_PAGE_URL));
  } catch (const my::CException& failure) {
    m_context.messenger.ShowError(failure);
  }
  return 0;
}

bool CAboutDialog::OnCommand(int id, int) {
  if (id != IDC_ABOUT_COPY) return false;
  const auto archiver = my::ReadFileVersion(m_context.settings.archive.sevenZipPath);
  const std::wstring text =
      DiagnosticsText(m_context, my::SystemInfoText(), archiver ? archiver->version : L"");
  try {
    my::CClipboard(L"Quillmoor").Set(Hwnd(), text, {});
  } catch (const my::CException& failure) {
    m_context.messenger.ShowError(failure);
  }
  return true;
}

void CAboutDialog::OnDpiChanged() {
  ShowIcon();
  ShowName();
}

void CAboutDialog::ShowIcon() {
  const HICON shared = IconOf(::GetWindow(Hwnd(), GW_OWNER));
  const int width = my::SystemMetric(SM_CXICON, Dpi());
  const int height = my::SystemMetric(SM_CYICON, Dpi());
  my::CIcon icon(static_cast<HICON>(::CopyImage(shared, IMAGE_ICON, width, height, LR_COPYFROMRESOURCE)));
  ::SendDlgItemMessageW(Hwnd(), IDC_ABOUT_ICON, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
  m_icon = std::move(icon);
}

void CAboutDialog::ShowName() {
  LOGFONTW bigger = my::MessageLogFont(Dpi());
  bigger.lfHeight = bigger.lfHeight * 3 / 2;
  bigger.lfWeight = FW_BOLD;
  my::CFont font(::CreateFontIndirectW(&bigger));
  ::SendDlgItemMessageW(Hwnd(), IDC_ABOUT_NAME, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  m_nameFont = std::move(font);
}

}  // namespace qlm
