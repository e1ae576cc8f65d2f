#pragma once

#include <string>

#include "engine/result.h"

namespace qlm {

// Returns the text about what the program waits for after it was closed during a run. `rows` are the current
// rows of the run.
std::wstring ClosingText(const my::IMessageTexts& texts, const CResults& rows);

}  // namespace qlm
