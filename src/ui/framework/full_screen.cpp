#include "ui/framework/full_screen.h"

#include "ui/framework/window_placement.h"

namespace my {

void CFullScreen::Toggle(HWND window) {
  const auto style = static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE));
  if (m_on) {
    ::SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(style | WS_OVERLAPPEDWINDOW));
    ::SetWindowPlacement(window, &m_before);
  } else {
    m_before.length = sizeof m_before;
    ::GetWindowPlacement(window, &m_before);
    const CRect screen = ScreenBounds(window);
    ::SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(style & ~DWORD{WS_OVERLAPPEDWINDOW}));
    ::SetWindowPos(window, HWND_TOP, screen.left, screen.top, screen.right - screen.left,
                   screen.bottom - screen.top, SWP_FRAMECHANGED);
  }
  m_on = !m_on;
}

CPlacement CFullScreen::Placement(HWND window) const {
  return m_on ? ReadPlacement(window, m_before) : ReadPlacement(window);
}

}  // namespace my
