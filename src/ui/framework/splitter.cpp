#include "ui/framework/splitter.h"

#include <windowsx.h>

#include <algorithm>

#include "ui/framework/dpi.h"
#include "ui/framework/gdi.h"

namespace my {
namespace {

// Pixels at 96 DPI.
constexpr int kBarHeight = 5;
constexpr int kSmallestPane = 24;
constexpr int kKeyStep = 8;

const CWindowClass& SplitterClass() {
  static const CWindowClass splitterClass(L"QuillmoorSplitter", 0, 0);
  return splitterClass;
}

}  // namespace

void CSplitter::CreateIn(HWND parent, int controlId) {
  m_dpi = WindowDpi(parent);
  CWindowParams params;
  params.parent = parent;
  params.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP;
  params.exStyle = WS_EX_CONTROLPARENT;
  params.controlId = controlId;
  params.left = params.top = params.width = params.height = 0;
  Create(SplitterClass(), params);
}

void CSplitter::SetPanes(HWND upper, HWND lower) {
  m_upperPane = upper;
  m_lowerPane = lower;
  Arrange();
}

void CSplitter::SetUpper(int height) {
  m_upper = std::max(0, height);
  Arrange();
}

LRESULT CSplitter::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == DpiMessage()) {
    m_dpi = static_cast<UINT>(wParam);
    Arrange();
    return 0;
  }
  switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_CONTEXTMENU: return ::SendMessageW(Parent(), message, wParam, lParam);
    case WM_SIZE: Arrange(); return 0;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED: HandleDrag(message, GET_Y_LPARAM(lParam)); return 0;
    case WM_SETCURSOR:
      if (SetCursor(reinterpret_cast<HWND>(wParam), LOWORD(lParam))) return TRUE;
      break;
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (HandleKey(static_cast<UINT>(wParam))) return 0;
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: Invalidate(); return 0;
    case WM_ERASEBKGND: return TRUE;
    case WM_PAINT: Paint(); return 0;
    default: break;
  }
  return Default(message, wParam, lParam);
}

void CSplitter::HandleDrag(UINT message, int y) {
  switch (message) {
    case WM_LBUTTONDOWN: return StartDrag(y);
    case WM_CAPTURECHANGED: m_dragging = false; return;
    default: break;
  }
  if (m_dragging && message == WM_MOUSEMOVE) MoveTo(y - m_grip);
  if (m_dragging && message == WM_LBUTTONUP) ::ReleaseCapture();
}

bool CSplitter::SetCursor(HWND window, UINT hit) const {
  if (window != Hwnd() || hit != HTCLIENT) return false;
  ::SetCursor(::LoadCursorW(nullptr, IDC_SIZENS));
  return true;
}

void CSplitter::Arrange() const {
  if (!m_upperPane || !m_lowerPane) return;
  const SIZE size = ClientSize();
  const int top = BarTop();
  const int below = top + BarHeight();
  // The background behind the panes does not move with them, so their bits must not be copied.
  const UINT kept = drawBehind ? SWP_NOCOPYBITS : 0U;
  const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | kept;
  HDWP moves = ::BeginDeferWindowPos(2);
  moves = ::DeferWindowPos(moves, m_upperPane, nullptr, 0, 0, size.cx, top, flags);
  if (moves)
    moves = ::DeferWindowPos(moves, m_lowerPane, nullptr, 0, below, size.cx, std::max(0L, size.cy - below),
                             flags);
  if (moves) ::EndDeferWindowPos(moves);
  Invalidate();
}

int CSplitter::BarTop() const {
  const int smallest = Scale(kSmallestPane, m_dpi);
  const int room = static_cast<int>(ClientSize().cy) - BarHeight() - smallest;
  return std::clamp(Scale(m_upper, m_dpi), smallest, std::max(smallest, room));
}

int CSplitter::BarHeight() const {
  return Scale(kBarHeight, m_dpi);
}

void CSplitter::MoveTo(int top) {
  const int before = m_upper;
  SetUpper(Unscale(top, m_dpi));
  // Keeps the position that was possible, not the one the mouse asked for.
  m_upper = Unscale(BarTop(), m_dpi);
  ::UpdateWindow(Hwnd());
  if (m_upper != before && onMoved) onMoved();
}

bool CSplitter::HandleKey(UINT key) {
  if (key != VK_UP && key != VK_DOWN) return false;
  const int step = Scale(kKeyStep, m_dpi);
  MoveTo(BarTop() + (key == VK_UP ? -step : step));
  return true;
}

void CSplitter::Paint() const {
  const CPaint paint(Hwnd());
  if (drawBehind)
    drawBehind(paint.Get(), paint.Area());
  else
    ::FillRect(paint.Get(), &paint.Area(), ::GetSysColorBrush(COLOR_BTNFACE));
  if (::GetFocus() != Hwnd()) return;
  const int top = BarTop();
  const RECT bar{0, top, ClientSize().cx, top + BarHeight()};
  ::DrawFocusRect(paint.Get(), &bar);
}

void CSplitter::StartDrag(int y) {
  m_dragging = true;
  m_grip = y - BarTop();
  ::SetCapture(Hwnd());
}

}  // namespace my
