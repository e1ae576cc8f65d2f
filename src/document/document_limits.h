#pragma once

#include <cstddef>

namespace qlm {

class CDsts;

// No edit makes more destinations than this. A file that has more can still be opened.
inline constexpr size_t kMostDsts = 99;

// Throws IDS_TOO_MANY_DSTS if the list cannot take another destination.
void CheckRoom(const CDsts& dsts);

}  // namespace qlm
