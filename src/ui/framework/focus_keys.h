#pragma once

#include <windows.h>

namespace my {

// Handles the keys that a dialog would handle, for a window that is not a dialog: Tab and Shift+Tab move the
// focus between its descendants with WS_TABSTOP, and Enter presses the focused button. Parents of controls
// must have WS_EX_CONTROLPARENT. Returns whether the message was handled.
bool HandleFocusKey(HWND window, const MSG& message);

}  // namespace my
