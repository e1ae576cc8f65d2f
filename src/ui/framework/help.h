// Help for dialogs. The system asks for it when the user presses F1.
#pragma once

#include <windows.h>

#include <functional>

namespace my {

// Shows the help for a dialog, identified by its template. Returns false if there is none; the parent of the
// dialog is asked next.
using CHelpHandler = std::function<bool(UINT templateId)>;

// Sets the help handler and returns the previous one. User-interface thread only.
CHelpHandler SetHelpHandler(CHelpHandler handler);

// Returns false without a handler.
bool ShowHelp(UINT templateId);

}  // namespace my
