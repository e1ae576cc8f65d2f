#pragma once

#include <string>

namespace my {
class IConsole;
class IMessageTexts;
}  // namespace my

namespace qlm {

// Prints a line with a warning to the error stream.
void Warn(my::IConsole& console, const my::IMessageTexts& texts, std::wstring text);

}  // namespace qlm
