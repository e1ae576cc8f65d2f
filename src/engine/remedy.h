// What the user can do about the error of a row.
#pragma once

#include <cstdint>
#include <string>

#include "support/exception.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// Returns the id of the text that says what to do: one of IDS_REMEDY_*, never 0. It depends on the message
// and on the system error. IDS_REMEDY_OTHER is for errors of which nothing is known.
uint32_t RemedyOf(const my::CSimpleErr& error);

// Returns the line to show below an error; empty if there is no error.
std::wstring RemedyLine(const my::IMessageTexts& texts, const my::CSimpleErr& error);

}  // namespace qlm
