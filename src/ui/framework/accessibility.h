// What screen readers hear in addition to what the system's controls tell them.
#pragma once

#include <windows.h>

#include <string>

namespace my {

// Sets the value that screen readers speak for an item of a list; an empty text removes it. Must be removed
// before the list is destroyed. Does nothing if the system lacks the service.
void SetSpokenValue(HWND list, size_t row, const std::wstring& value);

// Reports that the state of an item, such as its check box, has changed.
void ReportItemState(HWND list, size_t row);

}  // namespace my
