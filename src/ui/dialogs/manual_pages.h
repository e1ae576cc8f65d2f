#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace qlm {

// Returns the page of the manual for a dialog, identified by its template; nullopt if it has none.
std::optional<std::wstring> ManualPage(UINT templateId);

}  // namespace qlm
