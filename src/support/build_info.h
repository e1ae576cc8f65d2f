#pragma once

#include <string>

namespace my {

// Returns the version of the build with its commit, "1.0.0 (12ab34cd56)"; without a commit if it was built
// outside a repository.
std::wstring BuildText();

}  // namespace my
