#pragma once

#include <optional>

namespace my {

// Returns whether the system uses high contrast, whose colours replace those of the design.
bool IsHighContrast();

// Overrides the system's setting for the whole process; nullopt ends the override.
void AssumeHighContrast(std::optional<bool> assumed);

}  // namespace my
