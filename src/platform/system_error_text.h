#pragma once

#include <string>

#include "support/exception.h"

namespace my {

class IMessageTexts;

// Returns the system's text for an error with its code, "access denied (0x80070005)"; the code alone if the
// system has no text.
std::wstring SystemErrorText(const IMessageTexts& texts, CSystemError error);

}  // namespace my
