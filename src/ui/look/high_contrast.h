#pragma once

#include <optional>

namespace my {

// Returns whether the user has enabled high contrast; its colours override those of the program.
bool IsHighContrast();

// Overrides the system's setting on systems that cannot change it, such as Wine; nullopt ends the override.
void AssumeHighContrast(std::optional<bool> assumed);

}  // namespace my
