// Texts of values, for windows and runner.
#pragma once

#include <cstdint>
#include <string>

#include "support/file_time.h"

namespace my {
class IClock;
class IMessageTexts;
}  // namespace my

namespace qlm {

// Returns a number of bytes with a unit: "12.3 MB" (1 MB = 1024 KB), or the bytes below 1 KB.
std::wstring SizeText(const my::IMessageTexts& texts, uint64_t bytes);

// Returns the time as "2024/03/05 07:04:09" in the user's time zone; empty if it is zero or cannot be
// converted.
std::wstring LocalTimeText(const my::IClock& clock, my::CFileTime time);

}  // namespace qlm
