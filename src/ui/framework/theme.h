// Visual styles of the system.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include "platform/win32/handle.h"

namespace my {

using CTheme = CHandle<HTHEME, &::CloseThemeData>;

// Returns the visual style of a class of controls ("BUTTON") for a DPI; null if the system draws without
// visual styles.
CTheme OpenTheme(HWND window, const wchar_t* className, UINT dpi);

}  // namespace my
