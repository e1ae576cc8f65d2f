// Where a run creates a backup.
#pragma once

#include <string>
#include <string_view>

#include "document/dst.h"

namespace qlm {

// Returns the folder of a destination as a run uses it: trimmed, without separators at its end.
std::wstring_view DestinationFolder(const CDst& dst);

// Returns the path of the backup with this expanded name.
std::wstring DestinationPath(const CDst& dst, std::wstring_view expandedName);

}  // namespace qlm
