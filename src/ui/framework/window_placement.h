// Window placements that are stored in the settings.
#pragma once

#include <windows.h>

#include <vector>

#include "support/placement.h"

namespace my {

// Returns the work areas of all screens, in virtual-screen coordinates.
std::vector<CRect> WorkAreas();

CRect FromRect(const RECT& rect);
CRect WindowBounds(HWND window);
CRect ScreenBounds(HWND window);  // of the screen that contains most of the window
CRect WorkArea(HWND window);      // of that screen

// Returns the bounds of the restored window, also for a maximized or minimized one.
CPlacement ReadPlacement(HWND window);

// The same for a window that had `placement` earlier, on its current screen.
CPlacement ReadPlacement(HWND window, const WINDOWPLACEMENT& placement);

// Returns `bounds`, moved so that the visible part of the window is on a screen.
CRect PulledBack(HWND window, const CRect& bounds);

// Moves the window to exactly these bounds. Does not show it.
void MoveTo(HWND window, const CRect& bounds);

// Moves the window to `bounds`, adjusted by PulledBack. Does not show it.
void PlaceWindow(HWND window, const CRect& bounds);

// Returns the default bounds for a window of this size: centred on its owner, or on its screen if there is no
// visible owner.
CRect DefaultBounds(HWND window, SIZE size);

}  // namespace my
