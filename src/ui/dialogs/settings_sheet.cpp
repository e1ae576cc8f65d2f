#include "ui/dialogs/settings_sheet.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "app/command.h"
#include "app/messenger.h"
#include "control_ids.h"
#include "settings/settings.h"
#include "support/secret.h"
#include "ui/dialogs/design_page.h"
#include "ui/dialogs/general_page.h"
#include "ui/framework/dpi.h"
#include "ui/framework/theme.h"
#include "ui/framework/window_placement.h"

namespace qlm {
namespace {

constexpr SIZE kLeastPage{240, 120};  // pixels at 96 DPI

}  // namespace

CSettingsSheet::CSettingsSheet(CAppContext& context, size_t firstPage, CDesignPreview preview)
    : CDialog(IDD_SETTINGS), m_context(context), m_preview(std::move(preview)) {
  m_pages.push_back(std::make_unique<CGeneralPage>(context));
  m_pages.push_back(
      std::make_unique<CDesignPage>(context, [this](const CDesignSetting& design) { Preview(design); }));
  m_shown = std::min(firstPage, m_pages.size() - 1);
}

my::CBox CSettingsSheet::Layout() const {
  return my::Column({my::Control(IDC_SETTINGS_TAB).Wide().Tall(), my::Buttons({IDOK, IDCANCEL, IDC_APPLY})});
}

// The tab control is as large as its largest page. A page that gets less room scrolls.
std::optional<my::CSizeRanges> CSettingsSheet::SizesOf(int id) const {
  if (id != IDC_SETTINGS_TAB) return {};
  const my::CRect work = my::WorkArea(Hwnd());
  int width = 0;
  int height = 0;
  for (const auto& page : m_pages) {
    if (!page->Hwnd()) continue;
    const SIZE natural = page->NaturalClient({work.right - work.left, LONG_MAX});
    width = std::max<int>(width, natural.cx);
    height = std::max<int>(height, natural.cy);
  }
  constexpr int kLarge = 1000;
  RECT inner{0, 0, kLarge, kLarge};
  TabCtrl_AdjustRect(Item(IDC_SETTINGS_TAB), FALSE, &inner);
  width += kLarge - (inner.right - inner.left);
  height += kLarge - (inner.bottom - inner.top);
  return my::CSizeRanges{{std::min(width, my::Scale(kLeastPage.cx, Dpi())), width},
                         {std::min(height, my::Scale(kLeastPage.cy, Dpi())), height}};
}

bool CSettingsSheet::OnInit() {
  m_cancelled = false;
  for (const auto& page : m_pages) AddPage(*page);
  TabCtrl_SetCurSel(Item(IDC_SETTINGS_TAB), static_cast<int>(m_shown));
  ShowPage(m_shown);
  EnableItem(IDC_APPLY, false);
  FocusPage();
  m_keys.Attach(Hwnd(), [this](UINT key) { return OnKey(key); });
  return false;
}

void CSettingsSheet::OnClosed(int) {
  m_keys.Detach();
}

void CSettingsSheet::FocusPage() const {
  ::SetFocus(::GetNextDlgTabItem(m_pages[m_shown]->Hwnd(), nullptr, FALSE));
}

bool CSettingsSheet::OnKey(UINT key) {
  if (::GetKeyState(VK_CONTROL) >= 0 || ::GetKeyState(VK_MENU) < 0) return false;
  if (key != VK_TAB && key != VK_NEXT && key != VK_PRIOR) return false;
  Turn(key == VK_TAB ? ::GetKeyState(VK_SHIFT) < 0 : key == VK_PRIOR);
  return true;
}

void CSettingsSheet::Turn(bool back) {
  const bool inPage = ::IsChild(m_pages[m_shown]->Hwnd(), ::GetFocus()) != FALSE;
  const size_t count = m_pages.size();
  const size_t next = (m_shown + (back ? count - 1 : 1)) % count;
  TabCtrl_SetCurSel(Item(IDC_SETTINGS_TAB), static_cast<int>(next));
  ShowPage(next);
  if (inPage) FocusPage();  // the hidden control would keep it
}

void CSettingsSheet::OnOk() {
  if (Apply()) Close(IDOK);
}

// Restores the stored design, because the main window shows the preview.
void CSettingsSheet::OnCancel() {
  m_cancelled = true;
  try {
    m_preview(m_context.settings.design);
  } catch (const my::CException&) {
    // The picture could not be read before either.
  }
  Close(IDCANCEL);
}

// Ignored while the sheet closes: a control that loses the focus then must not change the preview.
void CSettingsSheet::Preview(const CDesignSetting& design) const {
  if (!m_cancelled) m_preview(design);
}

bool CSettingsSheet::OnCommand(int id, int code) {
  if (id != IDC_APPLY || code != BN_CLICKED) return false;
  // A disabled button would keep the focus.
  if (Apply()) {
    FocusItem(IDOK);
    EnableItem(IDC_APPLY, false);
  }
  return true;
}

std::optional<LRESULT> CSettingsSheet::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_SETTINGS_TAB || header.code != TCN_SELCHANGE) return {};
  ShowPage(static_cast<size_t>(TabCtrl_GetCurSel(header.hwndFrom)));
  return 0;
}

void CSettingsSheet::OnDpiChanged() {
  RECT area{};
  for (const auto& page : m_pages)
    ::SendMessageW(page->Hwnd(), WM_DPICHANGED, MAKEWPARAM(Dpi(), Dpi()), reinterpret_cast<LPARAM>(&area));
}

void CSettingsSheet::OnArranged() {
  const RECT area = PageArea();
  for (const auto& page : m_pages) {
    if (page->Hwnd())
      ::SetWindowPos(page->Hwnd(), HWND_TOP, area.left, area.top, area.right - area.left,
                     area.bottom - area.top, SWP_NOACTIVATE);
  }
}

void CSettingsSheet::AddPage(CSettingsPage& page) {
  const HWND tab = Item(IDC_SETTINGS_TAB);
  std::wstring title = page.Title();
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = title.data();
  TabCtrl_InsertItem(tab, TabCtrl_GetItemCount(tab), &item);

  page.CreateModeless(Hwnd(), m_pageKeys);
  my::UseTabTexture(page.Hwnd());
  ::ShowWindow(page.Hwnd(), SW_HIDE);
  page.SetChanged([this] { EnableItem(IDC_APPLY, true); });
}

RECT CSettingsSheet::PageArea() const {
  const HWND tab = Item(IDC_SETTINGS_TAB);
  RECT area{};
  ::GetWindowRect(tab, &area);
  ::MapWindowPoints(nullptr, Hwnd(), reinterpret_cast<POINT*>(&area), 2);
  TabCtrl_AdjustRect(tab, FALSE, &area);
  return area;
}

void CSettingsSheet::ShowPage(size_t index) {
  m_shown = index;
  for (size_t i = 0; i < m_pages.size(); ++i) {
    ::ShowWindow(m_pages[i]->Hwnd(), i == index ? SW_SHOWNA : SW_HIDE);
  }
}

bool CSettingsSheet::Apply() {
  CSettings edited = m_context.settings;
  const my::CWipeAtEnd wipe(edited.archive.password);
  if (!StorePages(edited)) return false;
  my::Wipe(m_context.settings.archive.password);
  m_context.settings = edited;
  return true;
}

bool CSettingsSheet::StorePages(CSettings& settings) {
  for (size_t i = 0; i < m_pages.size(); ++i) {
    try {
      m_pages[i]->Store(settings);
    } catch (const my::CException& failure) {
      TabCtrl_SetCurSel(Item(IDC_SETTINGS_TAB), static_cast<int>(i));
      ShowPage(i);
      m_context.messenger.ShowError(failure);
      m_pages[i]->FocusRefused();
      return false;
    }
  }
  return true;
}

}  // namespace qlm
