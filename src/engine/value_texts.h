// Texts of values, for windows and runner.
#pragma once

#include <cstdint>
#include <string>

namespace my {
class IMessageTexts;
}  // namespace my

namespace qlm {

// Returns a number of bytes with a unit: "12.3 MB" (1 MB = 1024 KB), or the bytes below 1 KB.
std::wstring SizeText(const my::IMessageTexts& texts, uint64_t bytes);

}  // namespace qlm
