#pragma once

#include <string>

namespace my {

// Returns version, language and code page of the system for support, such as "Windows 10.0.19045, 0411, 932".
std::wstring SystemInfoText();

}  // namespace my
