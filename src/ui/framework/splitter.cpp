#include "ui/framework/splitter.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

#include "ui/framework/dpi.h"
#include "ui/framework/gdi.h"

namespace my {
namespace {

// Pixels at 96 DPI.
constexpr int kBarHeight = 5;
constexpr int kSmallestPane = 96;
constexpr int kKeyStep = 8;

const CWindowClass& SplitterClass() {
  static const CWindowClass splitterClass(L"QuillmoorSplitter", 0, 0);
  return splitterClass;
}

const CWindowClass& BarClass() {
  static const CWindowClass barClass(L"QuillmoorSplitterBar", 0, 0, IDC_SIZENS);
  return barClass;
}

}  // namespace

void CSplitter::CreateIn(HWND parent, int controlId, const std::wstring& barName) {
  m_dpi = WindowDpi(parent);
  CWindowParams params;
  params.parent = parent;
  params.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
  params.exStyle = WS_EX_CONTROLPARENT;
  params.controlId = controlId;
  params.left = params.top = params.width = params.height = 0;
  Create(SplitterClass(), params);
  params.parent = Hwnd();
  params.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
  params.exStyle = 0;
  params.controlId = 0;
  params.title = barName;
  m_bar.Create(BarClass(), params);
}

void CSplitter::SetPanes(HWND upper, HWND lower) {
  m_upperPane = upper;
  m_lowerPane = lower;
  // Tab follows the order of the windows.
  constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  ::SetWindowPos(m_bar.Hwnd(), upper, 0, 0, 0, 0, kOrderOnly);
  ::SetWindowPos(lower, m_bar.Hwnd(), 0, 0, 0, 0, kOrderOnly);
  Arrange();
}

int CSplitter::Upper() const {
  return Unscale(BarTop(), m_dpi);
}

void CSplitter::SetUpper(int height) {
  m_share = std::clamp(static_cast<double>(Scale(height, m_dpi)) / std::max(1, Room()), 0.0, 1.0);
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
    case WM_ERASEBKGND: return TRUE;  // panes and bar cover everything
    default: return Default(message, wParam, lParam);
  }
}

LRESULT CSplitter::CBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED: m_splitter.HandleDrag(message, GET_Y_LPARAM(lParam)); return 0;
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (m_splitter.HandleKey(static_cast<UINT>(wParam))) return 0;
      break;
    case WM_SETFOCUS:
      if (m_splitter.onFocus) m_splitter.onFocus(reinterpret_cast<HWND>(wParam));
      Invalidate();
      return 0;
    case WM_KILLFOCUS: Invalidate(); return 0;
    case WM_ERASEBKGND: return TRUE;
    case WM_PAINT: Paint(); return 0;
    default: break;
  }
  return Default(message, wParam, lParam);
}

void CSplitter::CBar::Paint() const {
  const CPaint paint(Hwnd());
  if (::GetFocus() == Hwnd())
    ::FillRect(paint.Get(), &paint.Area(), ::GetSysColorBrush(COLOR_HIGHLIGHT));
  else if (m_splitter.drawBehind)
    m_splitter.drawBehind(paint.Get(), Hwnd(), paint.Area());
  else
    ::FillRect(paint.Get(), &paint.Area(), ::GetSysColorBrush(COLOR_BTNFACE));
}

// `y` is a position in the bar.
void CSplitter::HandleDrag(UINT message, int y) {
  switch (message) {
    case WM_LBUTTONDOWN: return StartDrag(y);
    case WM_CAPTURECHANGED: m_dragging = false; return;
    default: break;
  }
  if (m_dragging && message == WM_MOUSEMOVE) MoveTo(BarTop() + y - m_grip);
  if (m_dragging && message == WM_LBUTTONUP) ::ReleaseCapture();
}

void CSplitter::Arrange() const {
  if (!m_upperPane || !m_lowerPane) return;
  const SIZE size = ClientSize();
  const int height = static_cast<int>(size.cy);
  const int top = BarTop();
  const int below = top + BarHeight();
  // The background behind the panes does not move with them, so their bits must not be copied.
  const UINT kept = drawBehind ? SWP_NOCOPYBITS : 0U;
  const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | kept;
  const std::tuple<HWND, int, int> places[] = {{m_upperPane, 0, top},
                                               {m_bar.Hwnd(), top, BarHeight()},
                                               {m_lowerPane, below, std::max(0, height - below)}};
  HDWP moves = ::BeginDeferWindowPos(static_cast<int>(std::size(places)));
  for (const auto& [window, y, windowHeight] : places)
    if (moves) moves = ::DeferWindowPos(moves, window, nullptr, 0, y, size.cx, windowHeight, flags);
  if (moves) ::EndDeferWindowPos(moves);
  m_bar.Invalidate();
}

int CSplitter::Room() const {
  return std::max(0, static_cast<int>(ClientSize().cy) - BarHeight());
}

int CSplitter::BarTop() const {
  const int room = Room();
  const int smallest = std::min(Scale(kSmallestPane, TextDpi(m_dpi)), room / 2);
  return std::clamp(static_cast<int>(std::lround(m_share * room)), smallest, room - smallest);
}

int CSplitter::BarHeight() const {
  return Scale(kBarHeight, m_dpi);
}

void CSplitter::MoveTo(int top) {
  const int before = BarTop();
  m_share = std::clamp(static_cast<double>(top) / std::max(1, Room()), 0.0, 1.0);
  // Keeps the position that was possible, not the one the mouse asked for.
  m_share = static_cast<double>(BarTop()) / std::max(1, Room());
  Arrange();
  ::UpdateWindow(Hwnd());
  if (BarTop() != before && onMoved) onMoved();
}

bool CSplitter::HandleKey(UINT key) {
  const int step = Scale(kKeyStep, m_dpi);
  switch (key) {
    case VK_UP: MoveTo(BarTop() - step); return true;
    case VK_DOWN: MoveTo(BarTop() + step); return true;
    case VK_HOME: MoveTo(0); return true;
    case VK_END: MoveTo(static_cast<int>(ClientSize().cy)); return true;
    default: return false;
  }
}

void CSplitter::StartDrag(int y) {
  m_dragging = true;
  m_grip = y;
  ::SetCapture(m_bar.Hwnd());
}

}  // namespace my
