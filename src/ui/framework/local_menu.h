#pragma once

#include <windows.h>

namespace my {

// Returns the menu of a resource in the current language; null if there is none. The caller owns it.
HMENU LoadLocalMenu(UINT id);

}  // namespace my
