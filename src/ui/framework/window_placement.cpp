#include "ui/framework/window_placement.h"

#include <optional>

#include "platform/win32/system_function.h"
#include "support/placement.h"
#include "ui/framework/dpi.h"

namespace my {
namespace {

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM areas) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (::GetMonitorInfoW(monitor, &info))
    reinterpret_cast<std::vector<CRect>*>(areas)->push_back(FromRect(info.rcWork));
  return TRUE;
}

MONITORINFO ScreenOf(HWND window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

// Returns nullopt on a system without window composition.
std::optional<RECT> VisibleBounds(HWND window) {
  using Function = HRESULT WINAPI(HWND, DWORD, void*, DWORD);
  constexpr DWORD kExtendedFrameBounds = 9;  // DWMWA_EXTENDED_FRAME_BOUNDS
  static const auto get = SystemFunction<Function>(L"dwmapi.dll", "DwmGetWindowAttribute");
  RECT bounds{};
  if (!get || FAILED(get(window, kExtendedFrameBounds, &bounds, sizeof bounds))) return {};
  return bounds;
}

// With composition, all of a sizing frame except the innermost pixel is invisible.
CBorder UsualBorder(HWND window) {
  if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) == 0) return {};
  const UINT dpi = WindowDpi(window);
  const int frame = SystemMetric(SM_CXSIZEFRAME, dpi) + SystemMetric(SM_CXPADDEDBORDER, dpi) - 1;
  return {frame, 0, frame, frame};
}

CBorder InvisibleBorder(HWND window) {
  // The system reports the visible bounds only for windows that have been shown.
  if (!::IsWindowVisible(window) || ::IsIconic(window) || ::IsZoomed(window)) return UsualBorder(window);
  const auto visible = VisibleBounds(window);
  if (!visible) return {};
  RECT outer{};
  ::GetWindowRect(window, &outer);
  return {visible->left - outer.left, visible->top - outer.top, outer.right - visible->right,
          outer.bottom - visible->bottom};
}

}  // namespace

std::vector<CRect> WorkAreas() {
  std::vector<CRect> areas;
  ::EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
  return areas;
}

CRect FromRect(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

CRect WindowBounds(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return FromRect(rect);
}

CRect ScreenBounds(HWND window) {
  return FromRect(ScreenOf(window).rcMonitor);
}

CRect WorkArea(HWND window) {
  return FromRect(ScreenOf(window).rcWork);
}

CPlacement ReadPlacement(HWND window) {
  if (!::IsIconic(window) && !::IsZoomed(window)) return {false, WindowBounds(window)};
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  ::GetWindowPlacement(window, &placement);
  return ReadPlacement(window, placement);
}

CPlacement ReadPlacement(HWND window, const WINDOWPLACEMENT& placement) {
  RECT normal = placement.rcNormalPosition;
  // rcNormalPosition is relative to the work area, not to the screen.
  const MONITORINFO screen = ScreenOf(window);
  ::OffsetRect(&normal, screen.rcWork.left - screen.rcMonitor.left, screen.rcWork.top - screen.rcMonitor.top);
  const bool minimized = placement.showCmd == SW_SHOWMINIMIZED;
  const bool maximized =
      minimized ? (placement.flags & WPF_RESTORETOMAXIMIZED) != 0 : placement.showCmd == SW_SHOWMAXIMIZED;
  return {maximized, FromRect(normal)};
}

CRect PulledBack(HWND window, const CRect& bounds) {
  return PullBack(bounds, WorkAreas(), InvisibleBorder(window));
}

void MoveTo(HWND window, const CRect& bounds) {
  ::SetWindowPos(window, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PlaceWindow(HWND window, const CRect& bounds) {
  const CRect place = PulledBack(window, bounds);
  // Twice: when the window moves to a screen with another DPI, the system scales it; the second call restores
  // the size.
  for (int i = 0; i < 2; ++i) MoveTo(window, place);
}

CRect DefaultBounds(HWND window, SIZE size) {
  const HWND owner = ::GetWindow(window, GW_OWNER);
  const bool onOwner = owner && ::IsWindowVisible(owner) && !::IsIconic(owner);
  const CRect middle = onOwner ? WindowBounds(owner) : FromRect(ScreenOf(window).rcWork);
  return CentreOn({0, 0, size.cx, size.cy}, middle);
}

}  // namespace my
