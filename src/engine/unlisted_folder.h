#pragma once

#include <string>

#include "support/exception.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CTask;

// A folder that could not be listed completely.
struct CUnlistedFolder {
  std::wstring folder;  // relative to the source, ending in "\"; empty for the source itself
  my::CSystemError error;
};

// Returns the path of a folder that could not be listed, with the reason: "C:\a\ (access denied
// (0x80070005))".
std::wstring UnlistedText(const my::IMessageTexts& texts, const CTask& task, const CUnlistedFolder& unlisted);

}  // namespace qlm
