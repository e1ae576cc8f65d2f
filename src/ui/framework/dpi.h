// Scaling for the DPI. Lengths in the code are pixels at 96 DPI and are scaled to the DPI of the window.
#pragma once

#include <windows.h>

#include "ui/framework/gdi.h"

namespace my {

inline constexpr UINT kDefaultDpi = 96;

// Returns the DPI of the window, or of the primary screen on systems without DPI per window.
UINT WindowDpi(HWND window);

// Convert pixels from and to 96 DPI, rounded. Unscale(Scale(n)) is n for 96 DPI and above.
inline int Scale(int pixels, UINT dpi) {
  return ::MulDiv(pixels, static_cast<int>(dpi), kDefaultDpi);
}
inline int Unscale(int pixels, UINT dpi) {
  return ::MulDiv(pixels, kDefaultDpi, static_cast<int>(dpi));
}

// Returns GetSystemMetrics for a DPI.
int SystemMetric(int index, UINT dpi);

// Returns the outer rectangle of a window without a menu that has this client area.
RECT OuterRect(RECT client, DWORD style, DWORD exStyle, UINT dpi);

// The user's font for message boxes and dialogs.
LOGFONTW MessageLogFont(UINT dpi);
CFont MessageFont(UINT dpi);

// Returns the DPI at which the usual message font is as large as the user's one is at `dpi`, at least `dpi`:
// the scale for lengths that go with texts, such as column widths. Texts can be enlarged up to 225 %.
UINT TextDpi(UINT dpi);

// Sends DpiMessage() to all descendants of `parent` when the DPI or the size of the user's font has changed;
// its WPARAM is the DPI. The system has a message of its own for children only in newer versions and only for
// some DPI awareness modes.
UINT DpiMessage();
void BroadcastDpi(HWND parent, UINT dpi);

}  // namespace my
