// What screen readers hear in addition to what the system's controls tell them.
#pragma once

#include <windows.h>

#include <string>

namespace my {

// Sets the value that screen readers speak for an item of a list; an empty text removes it. Must be removed
// before the list is destroyed. Does nothing if the system lacks the service.
void SetSpokenValue(HWND list, size_t row, const std::wstring& value);

// Sets the name that screen readers speak for an item, in the same way.
void SetSpokenName(HWND list, size_t row, const std::wstring& name);

// Makes screen readers speak an item that has the focus and has got another name.
void ReportItemFocus(HWND list, size_t row);

// Reports that the state of an item, such as its check box, has changed.
void ReportItemState(HWND list, size_t row);

}  // namespace my
