#pragma once

#include <string>

namespace test {

// Returns a path in the source tree. Only one source knows where the tree is, so that compiler caches serve
// trees in different folders.
std::string InSourceTree(const std::string& relativePath);

}  // namespace test
