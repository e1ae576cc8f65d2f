// Dots per inch: every length in pixels is written for 96 of them and scaled to those of the window.
#pragma once

#include <windows.h>

#include "ui/framework/gdi.h"

namespace my {

inline constexpr UINT kDefaultDpi = 96;

// Of the screen that the window stands on, as far as the system tells it window by window.
UINT WindowDpi(HWND window);

// From pixels at 96 DPI, and back; rounded, so that Unscale(Scale(n)) is n from 96 DPI on.
inline int Scale(int pixels, UINT dpi) {
  return ::MulDiv(pixels, static_cast<int>(dpi), kDefaultDpi);
}
inline int Unscale(int pixels, UINT dpi) {
  return ::MulDiv(pixels, kDefaultDpi, static_cast<int>(dpi));
}

// GetSystemMetrics for a DPI.
int SystemMetric(int index, UINT dpi);

// The outer rectangle of a window with this client area, without a menu.
RECT OuterRect(RECT client, DWORD style, DWORD exStyle, UINT dpi);

// The font in which the user wants to read messages and dialogs.
LOGFONTW MessageLogFont(UINT dpi);
CFont MessageFont(UINT dpi);

// Tells every window below `parent` a new DPI by a message of our own, DpiMessage(), whose WPARAM is the DPI.
// The system's message for children comes only from newer systems, and not with every DPI awareness.
UINT DpiMessage();
void BroadcastDpi(HWND parent, UINT dpi);

}  // namespace my
