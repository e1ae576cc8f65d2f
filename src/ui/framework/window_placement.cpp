#include "ui/framework/window_placement.h"

#include "ui/models/placement.h"

namespace my {
namespace {

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM areas) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (::GetMonitorInfoW(monitor, &info))
    reinterpret_cast<std::vector<qlm::CRect>*>(areas)->push_back(FromRect(info.rcWork));
  return TRUE;
}

MONITORINFO ScreenOf(HWND window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

}  // namespace

std::vector<qlm::CRect> WorkAreas() {
  std::vector<qlm::CRect> areas;
  ::EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
  return areas;
}

qlm::CRect FromRect(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

qlm::CRect WindowBounds(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return FromRect(rect);
}

qlm::CDlgSetting ReadPlacement(HWND window) {
  if (!::IsIconic(window) && !::IsZoomed(window)) return {false, WindowBounds(window)};
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  ::GetWindowPlacement(window, &placement);
  return ReadPlacement(window, placement);
}

qlm::CDlgSetting ReadPlacement(HWND window, const WINDOWPLACEMENT& placement) {
  RECT normal = placement.rcNormalPosition;
  // The system counts these from the work area, not from the screen.
  const MONITORINFO screen = ScreenOf(window);
  ::OffsetRect(&normal, screen.rcWork.left - screen.rcMonitor.left, screen.rcWork.top - screen.rcMonitor.top);
  const bool minimized = placement.showCmd == SW_SHOWMINIMIZED;
  const bool maximized =
      minimized ? (placement.flags & WPF_RESTORETOMAXIMIZED) != 0 : placement.showCmd == SW_SHOWMAXIMIZED;
  return {maximized, FromRect(normal)};
}

void PlaceWindow(HWND window, const qlm::CRect& bounds) {
  const qlm::CRect place = PullBack(bounds, WorkAreas());
  // Twice: on its way to a screen of another DPI the window is scaled, but these bounds are that screen's.
  for (int i = 0; i < 2; ++i)
    ::SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

qlm::CRect DefaultBounds(HWND window, SIZE size) {
  const HWND owner = ::GetWindow(window, GW_OWNER);
  const bool onOwner = owner && ::IsWindowVisible(owner) && !::IsIconic(owner);
  const qlm::CRect middle = onOwner ? WindowBounds(owner) : FromRect(ScreenOf(window).rcWork);
  return CentreOn({0, 0, size.cx, size.cy}, middle);
}

}  // namespace my
