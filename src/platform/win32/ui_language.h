// The language of texts, dialogs and menus, and the resources in it. The choice does not depend on the order
// in which the system tries languages, because that order differs between its functions and between versions.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>

namespace my {

// The value is the language id of the resources.
enum class UiLanguage : LANGID {
  Japanese = MAKELANGID(LANG_JAPANESE, SUBLANG_JAPANESE_JAPAN),
  English = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)
};

// Returns Japanese if that is the user's display language when first called, otherwise English. Any thread
// may call.
UiLanguage CurrentUiLanguage();

// Sets the language of what is loaded from now on. Used by tests and for pictures.
void SetUiLanguage(UiLanguage language);

// Returns the data of a resource of this program in the current language, or in any if it is not in that one.
// If there is none, returns an empty span and sets the last error. The data stay valid. Any thread may call.
std::span<const std::byte> LocalResource(const wchar_t* type, UINT id);

}  // namespace my
