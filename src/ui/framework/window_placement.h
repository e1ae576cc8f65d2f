// Where a window stood, kept from one start of the program to the next.
#pragma once

#include <windows.h>

#include <vector>

#include "support/placement.h"

namespace my {

// The work areas of all screens, in pixels of the whole desktop.
std::vector<CRect> WorkAreas();

CRect FromRect(const RECT& rect);
CRect WindowBounds(HWND window);
CRect ScreenBounds(HWND window);  // of the screen that has most of it

// The bounds of the restored window, also of a maximized or minimized one.
CPlacement ReadPlacement(HWND window);

// The same of a window that had this placement when it was on its present screen.
CPlacement ReadPlacement(HWND window, const WINDOWPLACEMENT& placement);

// Returns `bounds`, pulled back until what is seen of the window lies on a screen.
CRect PulledBack(HWND window, const CRect& bounds);

// Moves the window to `bounds`, pulled back until what is seen of it lies on a screen; does not show it.
void PlaceWindow(HWND window, const CRect& bounds);

// Where a window of this size goes by default: centred on its owner, or without one that can be seen on
// the screen that it stands on.
CRect DefaultBounds(HWND window, SIZE size);

}  // namespace my
