#pragma once

#include <string>

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CFileQuestion;

// What the dialogs ask that let the user choose a filter file.
CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath);

}  // namespace qlm
