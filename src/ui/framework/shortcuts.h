// The keys of commands as text.
#pragma once

#include <windows.h>

#include <string>

namespace my {

// Returns the keys that an accelerator table gives a command, as "Ctrl+Shift+S"; empty if there are none.
std::wstring ShortcutText(HACCEL table, int command);

}  // namespace my
