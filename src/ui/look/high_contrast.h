#pragma once

#include <optional>

namespace my {

// Whether the user has asked the system for colours of high contrast, which go before any of our own.
bool IsHighContrast();

// For systems on which it cannot be asked for, as Wine: what to take for granted; nothing: to ask the system.
void AssumeHighContrast(std::optional<bool> assumed);

}  // namespace my
