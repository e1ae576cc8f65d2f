#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>

namespace my {

// Shows the system's arrow on the title of the column by which a report list is sorted, and on no other.
void ShowSortArrow(HWND list, std::optional<size_t> column, bool descending);

}  // namespace my
