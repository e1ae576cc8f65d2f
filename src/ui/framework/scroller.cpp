#include "ui/framework/scroller.h"

#include <algorithm>

#include "ui/framework/dpi.h"

namespace my {
namespace {

constexpr int kStep = 24;       // pixels per arrow click
constexpr int kWheelLines = 3;  // steps per wheel notch

SIZE ClientOf(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  return {client.right, client.bottom};
}

void SetBar(HWND window, int bar, LONG contents, LONG client, LONG position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  if (contents > client) {
    info.nMax = contents - 1;
    info.nPage = static_cast<UINT>(client);
    info.nPos = position;
  }
  ::SetScrollInfo(window, bar, &info, TRUE);
}

LONG Target(HWND window, int bar, WORD action, LONG position, LONG page) {
  switch (action) {
    case SB_LINEUP: return position - kStep;
    case SB_LINEDOWN: return position + kStep;
    case SB_PAGEUP: return position - page;
    case SB_PAGEDOWN: return position + page;
    case SB_TOP: return 0;
    case SB_BOTTOM: return MAXSHORT;
    case SB_THUMBTRACK: break;
    default: return position;
  }
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  return ::GetScrollInfo(window, bar, &info) ? info.nTrackPos : position;
}

// Returns the position at which [from, to) is visible in a page of this length.
LONG Revealing(LONG position, LONG from, LONG to, LONG page) {
  if (from < 0) return position + from;
  if (to > page) return position + std::min(to - page, from);
  return position;
}

}  // namespace

SIZE CScroller::Room(HWND window) {
  const LONG style = ::GetWindowLongW(window, GWL_STYLE);
  const UINT dpi = WindowDpi(window);
  SIZE room = ClientOf(window);
  if ((style & WS_VSCROLL) != 0) room.cx += SystemMetric(SM_CXVSCROLL, dpi);
  if ((style & WS_HSCROLL) != 0) room.cy += SystemMetric(SM_CYHSCROLL, dpi);
  return room;
}

// Decides by the room, not by the client area, in which a bar that is still shown would justify the other
// one.
void CScroller::SetContents(HWND window, SIZE contents) {
  const UINT dpi = WindowDpi(window);
  const SIZE bar{SystemMetric(SM_CXVSCROLL, dpi), SystemMetric(SM_CYHSCROLL, dpi)};
  SIZE page = Room(window);
  const bool vertical = contents.cy > page.cy - (contents.cx > page.cx ? bar.cy : 0);
  if (vertical) page.cx -= bar.cx;
  if (contents.cx > page.cx) page.cy -= bar.cy;
  m_contents = contents;
  SetBar(window, SB_HORZ, contents.cx, page.cx, m_position.x);
  SetBar(window, SB_VERT, contents.cy, page.cy, m_position.y);
  MoveTo(window, m_position);
}

bool CScroller::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if ((message == WM_VSCROLL || message == WM_HSCROLL) && lParam == 0) {
    const SIZE page = ClientOf(window);
    POINT to = m_position;
    if (message == WM_VSCROLL)
      to.y = Target(window, SB_VERT, LOWORD(wParam), to.y, page.cy);
    else
      to.x = Target(window, SB_HORZ, LOWORD(wParam), to.x, page.cx);
    return MoveTo(window, to);
  }
  if (message != WM_MOUSEWHEEL) return false;
  m_wheel += static_cast<short>(HIWORD(wParam)) * kStep * kWheelLines;
  const int moved = m_wheel / WHEEL_DELTA;
  m_wheel %= WHEEL_DELTA;
  return MoveTo(window, {m_position.x, m_position.y - moved});
}

bool CScroller::Show(HWND window, const RECT& area) {
  const SIZE page = ClientOf(window);
  return MoveTo(window, {Revealing(m_position.x, area.left, area.right, page.cx),
                         Revealing(m_position.y, area.top, area.bottom, page.cy)});
}

bool CScroller::MoveTo(HWND window, POINT position) {
  const SIZE page = ClientOf(window);
  const POINT to{std::clamp<LONG>(position.x, 0, std::max<LONG>(0, m_contents.cx - page.cx)),
                 std::clamp<LONG>(position.y, 0, std::max<LONG>(0, m_contents.cy - page.cy))};
  const bool moved = to.x != m_position.x || to.y != m_position.y;
  m_position = to;
  if (!moved) return false;
  SetBar(window, SB_HORZ, m_contents.cx, page.cx, to.x);
  SetBar(window, SB_VERT, m_contents.cy, page.cy, to.y);
  return true;
}

}  // namespace my
