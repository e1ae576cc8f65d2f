// Visual styles of the system. uxtheme.dll is loaded by name from the system folder; without it nothing is
// themed.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include <optional>

#include "platform/win32/handle.h"

namespace my {

// Returns false if the handle is not valid.
bool CloseTheme(HTHEME theme);

using CTheme = CHandle<HTHEME, &CloseTheme>;

// Returns the visual style of a class of controls ("BUTTON") for a DPI; null if the system draws without
// visual styles. It belongs to no window, because a control draws itself with the style that was opened last
// for its window.
CTheme OpenTheme(const wchar_t* className, UINT dpi);

// Returns the size in pixels in which a part is drawn; nullopt if the style has none.
std::optional<SIZE> ThemedSize(HTHEME theme, int part, int state);

void DrawThemed(HTHEME theme, HDC dc, int part, int state, const RECT& rect);

// Draws what the parent of a control shows below `rect`, in coordinates of the control.
void DrawParentBackground(HWND control, HDC dc, RECT rect);

// Gives a dialog that is a page of a tab control the background of the tabs.
void UseTabTexture(HWND dialog);

}  // namespace my
