#pragma once

#include <optional>
#include <string>

namespace my {
class IMessageTexts;
}

namespace qlm {

class CDocument;

// Returns the title of the main window. `percent` is what is done of the active run, and comes first, because
// the taskbar shows the beginning.
std::wstring MainTitle(const my::IMessageTexts& texts, const CDocument& document, std::optional<int> percent);

}  // namespace qlm
