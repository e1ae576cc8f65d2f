// Names that Windows takes for something else than a file of that name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace my {

// The id of the text that explains the fault; its argument is the name.
struct CNameFault {
  uint32_t id = 0;    // IDS_NAME_ONLY_DOTS, IDS_NAME_IS_DEVICE or IDS_NAME_HAS_COLON
  std::wstring name;  // the component at fault
};

// Returns the first component of `folder`\`name` that does not name a file or folder of its own:
// - dots and spaces alone, which Windows drops ("...") or follows (".."). Only in `name`: a folder that the
//   user chose may be relative to another one;
// - a device such as "NUL" or "com1.zip", in any folder and with any extension;
// - a name with ":", which would write a hidden stream, except for the drive of `folder`.
std::optional<CNameFault> FindNameFault(std::wstring_view folder, std::wstring_view name);

}  // namespace my
