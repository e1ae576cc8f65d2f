#include "ui/framework/dpi.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/system_function.h"
#include "ui/framework/window.h"

namespace my {
namespace {

UINT ScreenDpi() {
  return static_cast<UINT>(::GetDeviceCaps(CWindowDc(nullptr).Get(), LOGPIXELSY));
}

}  // namespace

UINT WindowDpi(HWND window) {
  static const auto getDpi = SystemFunction<UINT WINAPI(HWND)>(L"user32.dll", "GetDpiForWindow");
  const UINT dpi = getDpi ? getDpi(window) : 0;
  return dpi != 0 ? dpi : ScreenDpi();
}

int SystemMetric(int index, UINT dpi) {
  static const auto getMetric =
      SystemFunction<int WINAPI(int, UINT)>(L"user32.dll", "GetSystemMetricsForDpi");
  if (getMetric) return getMetric(index, dpi);
  return ::MulDiv(::GetSystemMetrics(index), static_cast<int>(dpi), static_cast<int>(ScreenDpi()));
}

RECT OuterRect(RECT client, DWORD style, DWORD exStyle, UINT dpi) {
  static const auto adjust =
      SystemFunction<BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT)>(L"user32.dll", "AdjustWindowRectExForDpi");
  if (!adjust || !adjust(&client, style, FALSE, exStyle, dpi))
    ::AdjustWindowRectEx(&client, style, FALSE, exStyle);
  return client;
}

LOGFONTW MessageLogFont(UINT dpi) {
  static const auto getForDpi =
      SystemFunction<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)>(L"user32.dll", "SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (getForDpi && getForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi))
    return metrics.lfMessageFont;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW& font = metrics.lfMessageFont;
  font.lfHeight = ::MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(ScreenDpi()));
  return font;
}

CFont MessageFont(UINT dpi) {
  const LOGFONTW font = MessageLogFont(dpi);
  return CFont(::CreateFontIndirectW(&font));
}

UINT TextDpi(UINT dpi) {
  constexpr int kUsualHeight = 12;  // 9 points at 96 DPI
  const auto height = static_cast<UINT>(std::abs(MessageLogFont(dpi).lfHeight));
  return std::max(dpi, height * kDefaultDpi / kUsualHeight);
}

UINT DpiMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"Quillmoor.Dpi");
  return message;
}

void BroadcastDpi(HWND parent, UINT dpi) {
  SendToDescendants(parent, DpiMessage(), dpi);
}

}  // namespace my
