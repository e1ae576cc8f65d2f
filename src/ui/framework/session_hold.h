#pragma once

#include <windows.h>

#include <string>

namespace my {

// Shows `reason` beside the window while the system waits for the session to end; an empty one shows nothing.
// To be called on the window's thread. Whether the session may end is what the window answers to
// WM_QUERYENDSESSION.
void HoldSession(HWND window, const std::wstring& reason);

}  // namespace my
