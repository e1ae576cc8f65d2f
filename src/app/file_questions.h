// Questions for files that several dialogs and commands ask.
#pragma once

#include <string>

#include "app/windows.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// `initialPath` is preselected; it may be empty.
CFileQuestion OpenDocumentQuestion(const my::IMessageTexts& texts, std::wstring initialPath);
CFileQuestion SaveDocumentQuestion(const my::IMessageTexts& texts, std::wstring initialPath);
CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath);

}  // namespace qlm
