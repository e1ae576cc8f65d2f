#pragma once

#include <string>

#include "document/task.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// Returns folder, name pattern and type of each destination, one per line, for an edit control.
std::wstring PasswordDstsText(const my::IMessageTexts& texts, const CTaskDsts& dsts);

}  // namespace qlm
