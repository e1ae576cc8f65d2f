#pragma once

#include <string>

#include "engine/result.h"

namespace qlm {

// What the program waits for when it has been closed during a run. `rows` are those that the run has so far.
std::wstring ClosingText(const my::IMessageTexts& texts, const CResults& rows);

}  // namespace qlm
