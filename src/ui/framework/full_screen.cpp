#include "ui/framework/full_screen.h"

#include "ui/framework/window_placement.h"

namespace my {

void CFullScreen::Toggle(HWND window) {
  if (m_on)
    Leave(window);
  else
    Enter(window);
}

void CFullScreen::Enter(HWND window) {
  m_before.length = sizeof m_before;
  ::GetWindowPlacement(window, &m_before);
  const CRect screen = ScreenBounds(window);
  // The system may keep the taskbar in front of a maximized window.
  if (::IsZoomed(window)) ::ShowWindow(window, SW_RESTORE);
  ::SetWindowLongW(window, GWL_STYLE, ::GetWindowLongW(window, GWL_STYLE) & ~LONG{WS_OVERLAPPEDWINDOW});
  ::SetWindowPos(window, HWND_TOP, screen.left, screen.top, screen.right - screen.left,
                 screen.bottom - screen.top, SWP_FRAMECHANGED);
  m_on = true;
}

void CFullScreen::Leave(HWND window) {
  m_on = false;
  ::SetWindowLongW(window, GWL_STYLE, ::GetWindowLongW(window, GWL_STYLE) | LONG{WS_OVERLAPPEDWINDOW});
  ::SetWindowPlacement(window, &m_before);
  ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

CPlacement CFullScreen::Placement(HWND window) const {
  return m_on ? ReadPlacement(window, m_before) : ReadPlacement(window);
}

}  // namespace my
