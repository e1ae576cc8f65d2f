#include "ui/framework/dialog.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/last_error.h"
#include "platform/win32/system_function.h"
#include "platform/win32/ui_language.h"
#include "support/exception.h"
#include "ui/framework/controls.h"
#include "ui/framework/disabled_windows.h"
#include "ui/framework/dpi.h"
#include "ui/framework/failures.h"
#include "ui/framework/help.h"
#include "ui/framework/window.h"
#include "ui/framework/window_placement.h"

namespace my {
namespace {

constexpr INT_PTR kInitFailed = -1;

HINSTANCE Instance() {
  return ::GetModuleHandleW(nullptr);
}

// Returns the template in the current language. Throws the system error if there is none.
const DLGTEMPLATE* Template(UINT id) {
  const auto bytes = LocalResource(RT_DIALOG, id);
  if (bytes.empty()) throw CException(LastError());
  return reinterpret_cast<const DLGTEMPLATE*>(bytes.data());
}

// Newer systems scale dialogs on a DPI change. This class does it itself.
void KeepSystemFromScaling(HWND dialog) {
  constexpr int kDisableAll = 1;
  using Function = BOOL WINAPI(HWND, int, int);
  static const auto setBehavior = SystemFunction<Function>(L"user32.dll", "SetDialogDpiChangeBehavior");
  if (setBehavior) setBehavior(dialog, kDisableAll, kDisableAll);
}

// Returns the rectangle, enlarged to the right and bottom to be at least this large.
CRect Enlarged(CRect bounds, SIZE least) {
  bounds.right = std::max<int32_t>(bounds.right, bounds.left + least.cx);
  bounds.bottom = std::max<int32_t>(bounds.bottom, bounds.top + least.cy);
  return bounds;
}

}  // namespace

CDialog::CDialog(UINT templateId, CPlacement* placement) : m_templateId(templateId), m_placement(placement) {}

CDialog::~CDialog() {
  const HWND hwnd = std::exchange(m_hwnd, nullptr);
  if (!hwnd) return;
  ::SetWindowLongPtrW(hwnd, DWLP_USER, 0);
  ::DestroyWindow(hwnd);
}

int CDialog::DoModal(HWND parent) {
  m_modal = true;
  const CDisabledWindows others(parent);
  const INT_PTR result = ::DialogBoxIndirectParamW(Instance(), Template(m_templateId), parent, Thunk,
                                                   reinterpret_cast<LPARAM>(this));
  const DWORD error = ::GetLastError();
  RethrowFailure();
  if (result == -1) throw CException(CSystemError::FromWin32(error));
  return m_result;
}

void CDialog::CreateModeless(HWND parent, CAutoMessageLoop& loop) {
  m_modal = false;
  const HWND hwnd = ::CreateDialogIndirectParamW(Instance(), Template(m_templateId), parent, Thunk,
                                                 reinterpret_cast<LPARAM>(this));
  const DWORD error = ::GetLastError();
  if (m_initFailure && hwnd) ::DestroyWindow(hwnd);
  RethrowFailure();
  if (!hwnd) throw CException(CSystemError::FromWin32(error));
  m_translation = loop.AddDialog(hwnd);
  if (!::IsWindowVisible(hwnd)) ::ShowWindow(hwnd, SW_SHOW);
}

void CDialog::Close(int result) {
  m_result = result;
  if (m_modal)
    ::EndDialog(m_hwnd, result);
  else
    ::DestroyWindow(m_hwnd);
}

std::wstring CDialog::ItemText(int id) const {
  return TextOf(Item(id));
}

void CDialog::FocusItem(int id) const {
  const HWND control = Item(id);
  const HWND root = ::GetAncestor(control, GA_ROOT);  // the dialog that handles the keys of a page
  ::SendMessageW(root, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void CDialog::SetItemText(int id, const std::wstring& text) {
  const bool isShownText = m_ready && ClassOf(Item(id)) == WC_STATICW;
  if (isShownText && ItemText(id) == text) return;
  ::SetDlgItemTextW(m_hwnd, id, text.c_str());
  if (isShownText) Refit();
}

void CDialog::EnableField(int id, bool enable) const {
  const HWND control = Item(id);
  ::EnableWindow(::GetWindow(control, GW_HWNDPREV), enable);
  ::EnableWindow(control, enable);
}

void CDialog::ShowItem(int id, bool show) {
  ::ShowWindow(Item(id), show ? SW_SHOWNA : SW_HIDE);
  if (m_ready) Refit();
}

bool CDialog::OnCommand(int, int) {
  return false;
}

std::optional<LRESULT> CDialog::OnNotify(const NMHDR&) {
  return {};
}

std::optional<LRESULT> CDialog::OnMessage(UINT, WPARAM, LPARAM) {
  return {};
}

void CDialog::OnClosed(int) {}

void CDialog::Remember() {
  if (m_placement && m_hwnd) *m_placement = ReadPlacement(m_hwnd);
}

INT_PTR CALLBACK CDialog::Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(hwnd, DWLP_USER, lParam);
    auto* created = reinterpret_cast<CDialog*>(lParam);
    created->m_hwnd = hwnd;
    return created->Init();
  }
  auto* dialog = reinterpret_cast<CDialog*>(::GetWindowLongPtrW(hwnd, DWLP_USER));
  if (!dialog) return FALSE;
  const auto result =
      Guarded(std::optional<LRESULT>{}, [&] { return dialog->Handle(message, wParam, lParam); });
  // The last message of the window. If its handler destroyed the object, the object is already detached.
  if (message == WM_NCDESTROY && ::GetWindowLongPtrW(hwnd, DWLP_USER) != 0) {
    ::SetWindowLongPtrW(hwnd, DWLP_USER, 0);
    dialog->m_hwnd = nullptr;
  }
  return result ? SetDlgMsgResult(hwnd, message, *result) : FALSE;
}

std::optional<LRESULT> CDialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (auto result = OnMessage(message, wParam, lParam)) return result;
  if (m_arrangement.Handle(message, wParam, lParam)) return 0;
  switch (message) {
    case WM_COMMAND: return Command(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED && m_dpi != 0) m_arrangement.Arrange();
      return {};
    case WM_GETMINMAXINFO: {
      if (m_dpi == 0) return {};
      const SIZE smallest = OuterSize(m_arrangement.LeastClient(Room()));
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest.cx, smallest.cy};
      return 0;
    }
    case WM_NCLBUTTONDBLCLK:
      if (wParam != HTCAPTION || !IsResizable()) return {};
      ToggleMaximized();
      return 0;
    case WM_DPICHANGED: ChangeDpi(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_SETTINGCHANGE: OnMetrics(); return {};
    case WM_SYSCOLORCHANGE:
      if (!IsPage()) SendToDescendants(m_hwnd, message, 0);
      return {};
    case WM_HELP:
      if (!ShowHelp(m_templateId)) return {};
      return TRUE;
    case WM_DESTROY: OnDestroy(); return {};
    default: return {};
  }
}

std::optional<LRESULT> CDialog::Command(int id, int code) {
  if (code == BN_CLICKED && id == IDOK)
    OnOk();
  else if (code == BN_CLICKED && id == IDCANCEL)
    OnCancel();
  else if (!OnCommand(id, code))
    return {};
  return 0;
}

BOOL CDialog::Init() noexcept {
  try {
    InitLayout();
    InitPlacement();
    const BOOL systemSetsFocus = OnInit();
    m_ready = true;
    PlaceFilled();
    return systemSetsFocus;
  } catch (...) {
    m_initFailure = std::current_exception();
    if (m_modal) ::EndDialog(m_hwnd, kInitFailed);
    return FALSE;
  }
}

void CDialog::InitLayout() {
  KeepSystemFromScaling(m_hwnd);
  m_arrangement.Init(
      m_hwnd, Layout(), [this](int id) { return SizesOf(id); }, [this] { OnArranged(); });
  m_dpi = WindowDpi(m_hwnd);
  m_arrangement.UseFont(m_dpi);
}

void CDialog::InitPlacement() {
  if (IsPage()) return;
  Resize(InitialBounds());
  if (m_placement && m_placement->maximized && IsResizable()) ::ShowWindow(m_hwnd, SW_SHOWMAXIMIZED);
}

// Places the window again, for the contents that OnInit has set.
void CDialog::PlaceFilled() {
  m_arrangement.Invalidate();
  if (IsPage() || ::IsZoomed(m_hwnd)) return m_arrangement.Arrange();
  Resize(InitialBounds());
}

CRect CDialog::InitialBounds() const {
  const SIZE natural = OuterSize(m_arrangement.NaturalClient(Room()));
  if (!m_placement || m_placement->rect == CRect{}) return DefaultBounds(m_hwnd, natural);
  // Moved onto a screen before it is used in sums, because the settings file may contain any numbers.
  const CRect bounds = PulledBack(m_hwnd, m_placement->rect);
  if (IsResizable()) return Enlarged(bounds, OuterSize(m_arrangement.LeastClient(Room())));
  return Enlarged({bounds.left, bounds.top, bounds.left, bounds.top}, natural);
}

// Moves the window, and places the controls even if its size stays the same.
void CDialog::Resize(const CRect& bounds) {
  PlaceWindow(m_hwnd, bounds);
  m_arrangement.Arrange();
}

// Enlarges the window if its contents need more room than it has.
void CDialog::Refit() {
  m_arrangement.Invalidate();
  if (IsPage() || ::IsZoomed(m_hwnd)) return m_arrangement.Arrange();
  const SIZE wanted = OuterSize(IsResizable() && m_placement && m_placement->rect != CRect{}
                                    ? m_arrangement.LeastClient(Room())
                                    : m_arrangement.NaturalClient(Room()));
  const CRect bounds = WindowBounds(m_hwnd);
  const CRect enlarged = Enlarged(bounds, wanted);
  if (enlarged == bounds) return m_arrangement.Arrange();
  Resize(enlarged);
}

void CDialog::ChangeDpi(UINT dpi, const RECT& suggested) {
  m_dpi = dpi;
  m_arrangement.UseFont(dpi);
  MoveTo(m_hwnd, FromRect(suggested));
  BroadcastDpi(m_hwnd, dpi);
  OnDpiChanged();
  m_arrangement.Invalidate();  // the derived class may have set fonts and icons
  m_arrangement.Arrange();
  ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

// The size of texts is a setting of the system, which the user may change at any time.
void CDialog::OnMetrics() {
  if (!m_arrangement.UseFont(m_dpi)) return;
  BroadcastDpi(m_hwnd, m_dpi);
  OnDpiChanged();
  Refit();
  ::InvalidateRect(m_hwnd, nullptr, TRUE);
}

// Returns the largest client size on this screen.
SIZE CDialog::Room() const {
  const CRect work = WorkArea(m_hwnd);
  const SIZE frame = OuterSize({0, 0});
  return {work.right - work.left - frame.cx, work.bottom - work.top - frame.cy};
}

SIZE CDialog::OuterSize(SIZE client) const {
  const RECT outer =
      OuterRect({0, 0, client.cx, client.cy},
                static_cast<DWORD>(::GetWindowLongPtrW(m_hwnd, GWL_STYLE)) & ~DWORD{WS_VSCROLL | WS_HSCROLL},
                static_cast<DWORD>(::GetWindowLongPtrW(m_hwnd, GWL_EXSTYLE)), m_dpi);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

void CDialog::ToggleMaximized() const {
  ::ShowWindow(m_hwnd, ::IsZoomed(m_hwnd) ? SW_RESTORE : SW_SHOWMAXIMIZED);
}

void CDialog::RethrowFailure() {
  if (auto failure = std::exchange(m_initFailure, nullptr)) std::rethrow_exception(failure);
}

void CDialog::OnDestroy() {
  Remember();
  m_translation = {};
  OnClosed(m_result);
}

}  // namespace my
