// Visual styles of the system.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include "platform/win32/handle.h"

namespace my {

using CTheme = CHandle<HTHEME, &::CloseThemeData>;

// Returns the visual style of a class of controls ("BUTTON") for a DPI; null if the system draws without
// visual styles. It belongs to no window, because a control draws itself with the style that was opened last
// for its window.
CTheme OpenTheme(const wchar_t* className, UINT dpi);

}  // namespace my
