#pragma once

#include <windows.h>

#include <string>

namespace my {

// Shows `reason` for the window while the system waits to end the session; an empty reason removes it. Must
// be called on the thread of the window. Whether the session may end is decided by the result of
// WM_QUERYENDSESSION.
void HoldSession(HWND window, const std::wstring& reason);

}  // namespace my
