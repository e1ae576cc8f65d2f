#pragma once

#include <cstddef>

namespace qlm {

class CDsts;

// Maximum number of destinations for edits. A file with more can still be opened.
inline constexpr size_t kMostDsts = 99;

// Throws IDS_TOO_MANY_DSTS if the list cannot take another destination.
void CheckRoom(const CDsts& dsts);

}  // namespace qlm
