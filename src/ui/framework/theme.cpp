#include "ui/framework/theme.h"

#include "platform/win32/system_function.h"

namespace my {

CTheme OpenTheme(HWND window, const wchar_t* className, UINT dpi) {
  // Older systems have one DPI for all windows.
  using Function = HTHEME WINAPI(HWND, const wchar_t*, UINT);
  static const auto openForDpi = SystemFunction<Function>(L"uxtheme.dll", "OpenThemeDataForDpi");
  return CTheme(openForDpi ? openForDpi(window, className, dpi) : ::OpenThemeData(window, className));
}

}  // namespace my
