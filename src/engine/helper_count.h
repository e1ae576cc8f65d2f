// The number of threads that list and copy at the same time.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/ordered_work.h"
#include "platform/file_system.h"

namespace qlm {

struct CEnginePorts;

// Returns the number of threads for work on these disks with this number of processors.
size_t HelperCount(const std::vector<my::DiskKind>& disks, size_t processors);

// Returns the threads for work on the disks of these paths.
my::CHelpers HelpersFor(const CEnginePorts& ports, const std::vector<std::wstring>& paths);

}  // namespace qlm
