#pragma once

#include <optional>

namespace my {

// Whether the system is set to high contrast, whose colours replace those of the design.
bool IsHighContrast();

// Replaces the system's setting for the rest of the process; nullopt: the system's setting holds again.
void AssumeHighContrast(std::optional<bool> assumed);

}  // namespace my
