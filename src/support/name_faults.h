// File names that Windows maps to something else.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace my {

// `id` is the text that explains the fault; its argument is `name`.
struct CNameFault {
  uint32_t id = 0;    // IDS_NAME_ONLY_DOTS, IDS_NAME_IS_DEVICE or IDS_NAME_HAS_COLON
  std::wstring name;  // the faulty component
};

// Returns the first component of `folder`\`name` that does not name a file or folder:
// - only dots and spaces, which Windows drops ("...") or resolves (".."). Checked only in `name`, because a
//   folder chosen by the user may be relative;
// - a device such as "NUL" or "com1.zip", in any folder and with any extension;
// - a name with ":", which would write an alternate data stream, except for the drive of `folder`.
std::optional<CNameFault> FindNameFault(std::wstring_view folder, std::wstring_view name);

// Returns whether a name has a character that file names cannot have. Separators are allowed: they create
// subfolders.
bool HasBadCharacter(std::wstring_view name);

}  // namespace my
