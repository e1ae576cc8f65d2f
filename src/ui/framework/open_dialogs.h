// Which window of the program the user works in.
#pragma once

#include <windows.h>

namespace my {

// Returns whether the thread has an open menu, or a visible window with a caption besides `frame`: a dialog,
// message box or modeless window.
bool HasOpenDialog(HWND frame);

// Returns whether the user works in a window of this program.
bool IsInFront();

// Shows a window, or the modal dialog that is open in front of it, to the user.
void BringToFront(HWND frame);

}  // namespace my
