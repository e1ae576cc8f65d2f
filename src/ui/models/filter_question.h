#pragma once

#include <string>

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CFileQuestion;

// Returns the parameters of the dialog for choosing a filter file.
CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath);

}  // namespace qlm
