#include "ui/framework/dialog.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/system_function.h"
#include "support/exception.h"
#include "ui/framework/combo_texts.h"
#include "ui/framework/disabled_windows.h"
#include "ui/framework/dpi.h"
#include "ui/framework/failures.h"
#include "ui/framework/window_placement.h"

namespace my {
namespace {

constexpr INT_PTR kInitFailed = -1;

HINSTANCE Instance() {
  return ::GetModuleHandleW(nullptr);
}

// Newer systems scale dialogs on a DPI change. This class does it itself, from the template.
void KeepSystemFromScaling(HWND dialog) {
  constexpr int kDisableAll = 1;
  using Function = BOOL WINAPI(HWND, int, int);
  static const auto setBehavior = SystemFunction<Function>(L"user32.dll", "SetDialogDpiChangeBehavior");
  if (setBehavior) setBehavior(dialog, kDisableAll, kDisableAll);
}

// Returns the dialog units at creation. Measures many units at once, because a single one would be rounded.
CDialogUnits CreatedUnits(HWND dialog) {
  constexpr int kMany = 1000;
  RECT units{0, 0, kMany, kMany};
  ::MapDialogRect(dialog, &units);
  return {static_cast<double>(units.right) / kMany, static_cast<double>(units.bottom) / kMany};
}

BOOL CALLBACK SetFont(HWND control, LPARAM font) {
  ::SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
  return TRUE;
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
  const INT_PTR result = ::DialogBoxParamW(Instance(), MAKEINTRESOURCEW(m_templateId), parent, Thunk,
                                           reinterpret_cast<LPARAM>(this));
  const DWORD error = ::GetLastError();
  RethrowFailure();
  if (result == -1) throw CException(CSystemError::FromWin32(error));
  return m_result;
}

void CDialog::CreateModeless(HWND parent, CAutoMessageLoop& loop) {
  m_modal = false;
  const HWND hwnd = ::CreateDialogParamW(Instance(), MAKEINTRESOURCEW(m_templateId), parent, Thunk,
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
  const HWND item = Item(id);
  std::wstring text(static_cast<size_t>(::GetWindowTextLengthW(item)), L'\0');
  text.resize(static_cast<size_t>(::GetWindowTextW(item, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

void CDialog::FocusItem(int id) const {
  const HWND control = Item(id);
  const HWND root = ::GetAncestor(control, GA_ROOT);  // the dialog that handles the keys of a page
  ::SendMessageW(root, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void CDialog::SetItemText(int id, const std::wstring& text) const {
  ::SetDlgItemTextW(m_hwnd, id, text.c_str());
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
  switch (message) {
    case WM_COMMAND: return Command(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) m_layout.Apply(m_hwnd, m_units);
      return {};
    case WM_GETMINMAXINFO: LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam)); return 0;
    case WM_DPICHANGED: ChangeDpi(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
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
    return OnInit();
  } catch (...) {
    m_initFailure = std::current_exception();
    if (m_modal) ::EndDialog(m_hwnd, kInitFailed);
    return FALSE;
  }
}

void CDialog::InitLayout() {
  m_dpi = WindowDpi(m_hwnd);
  KeepSystemFromScaling(m_hwnd);
  m_layout.Capture(m_hwnd, CreatedUnits(m_hwnd), Anchors());
  UseFont();
}

void CDialog::InitPlacement() {
  const SIZE smallest = SmallestSize();
  CRect bounds = DefaultBounds(m_hwnd, smallest);
  if (m_placement && m_placement->rect != CRect{}) {
    // Moved onto a screen before it is used in sums, because the settings file may contain any numbers.
    const CRect pulled = PulledBack(m_hwnd, m_placement->rect);
    bounds = {pulled.left, pulled.top, pulled.left + smallest.cx, pulled.top + smallest.cy};
    if (IsResizable()) {
      bounds.right = std::max(bounds.right, pulled.right);
      bounds.bottom = std::max(bounds.bottom, pulled.bottom);
    }
  }
  PlaceWindow(m_hwnd, bounds);
  m_layout.Apply(m_hwnd, m_units);  // needed if the size did not change
  if (m_placement && m_placement->maximized && IsResizable()) ::ShowWindow(m_hwnd, SW_SHOWMAXIMIZED);
}

void CDialog::ChangeDpi(UINT dpi, const RECT& suggested) {
  m_dpi = dpi;
  UseFont();
  ::SetWindowPos(m_hwnd, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  m_layout.Apply(m_hwnd, m_units);
  BroadcastDpi(m_hwnd, dpi);
  ::InvalidateRect(m_hwnd, nullptr, TRUE);
  OnDpiChanged();
}

void CDialog::UseFont() {
  const CComboTexts texts(m_hwnd);
  // The old font must live until no control uses it.
  CFont font = MessageFont(m_dpi);
  ::SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
  ::EnumChildWindows(m_hwnd, SetFont, reinterpret_cast<LPARAM>(font.Get()));
  m_units = UnitsOf(font.Get());
  m_font = std::move(font);
}

void CDialog::LimitSize(MINMAXINFO& limits) const {
  const SIZE smallest = SmallestSize();
  limits.ptMinTrackSize = {smallest.cx, smallest.cy};
}

SIZE CDialog::SmallestSize() const {
  const SIZE client = m_layout.DesignSize(m_units);
  const RECT outer =
      OuterRect({0, 0, client.cx, client.cy}, static_cast<DWORD>(::GetWindowLongPtrW(m_hwnd, GWL_STYLE)),
                static_cast<DWORD>(::GetWindowLongPtrW(m_hwnd, GWL_EXSTYLE)), m_dpi);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

bool CDialog::IsResizable() const {
  return (::GetWindowLongPtrW(m_hwnd, GWL_STYLE) & WS_THICKFRAME) != 0;
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
