#include "ui/framework/theme.h"

#include "platform/win32/system_function.h"

namespace my {
namespace {

constexpr wchar_t kLibrary[] = L"uxtheme.dll";

}  // namespace

bool CloseTheme(HTHEME theme) {
  static const auto close = SystemFunction<decltype(::CloseThemeData)>(kLibrary, "CloseThemeData");
  return close && SUCCEEDED(close(theme));
}

CTheme OpenTheme(const wchar_t* className, UINT dpi) {
  // Older systems have one DPI for all windows.
  using Function = HTHEME WINAPI(HWND, const wchar_t*, UINT);
  static const auto openForDpi = SystemFunction<Function>(kLibrary, "OpenThemeDataForDpi");
  static const auto open = SystemFunction<decltype(::OpenThemeData)>(kLibrary, "OpenThemeData");
  if (openForDpi) return CTheme(openForDpi(nullptr, className, dpi));
  return CTheme(open ? open(nullptr, className) : nullptr);
}

std::optional<SIZE> ThemedSize(HTHEME theme, int part, int state) {
  static const auto getSize = SystemFunction<decltype(::GetThemePartSize)>(kLibrary, "GetThemePartSize");
  SIZE size{};
  if (!getSize || FAILED(getSize(theme, nullptr, part, state, nullptr, TS_DRAW, &size))) return {};
  return size;
}

void DrawThemed(HTHEME theme, HDC dc, int part, int state, const RECT& rect) {
  static const auto draw = SystemFunction<decltype(::DrawThemeBackground)>(kLibrary, "DrawThemeBackground");
  if (draw) draw(theme, dc, part, state, &rect, nullptr);
}

void DrawParentBackground(HWND control, HDC dc, RECT rect) {
  static const auto draw =
      SystemFunction<decltype(::DrawThemeParentBackground)>(kLibrary, "DrawThemeParentBackground");
  if (draw) draw(control, dc, &rect);
}

void UseTabTexture(HWND dialog) {
  static const auto enable =
      SystemFunction<decltype(::EnableThemeDialogTexture)>(kLibrary, "EnableThemeDialogTexture");
  if (enable) enable(dialog, ETDT_ENABLETAB);
}

}  // namespace my
