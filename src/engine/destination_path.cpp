#include "engine/destination_path.h"

#include "support/paths.h"
#include "support/strings.h"

namespace qlm {

std::wstring_view DestinationFolder(const CDst& dst) {
  return my::TrimEnd(my::Trim(dst.folder, my::kBlanks), L"/\\");
}

std::wstring DestinationPath(const CDst& dst, std::wstring_view expandedName) {
  const std::wstring_view name = my::Trim(my::Trim(expandedName, my::kBlanks), L"/\\");
  return std::wstring(DestinationFolder(dst)).append(1, my::kSeparator).append(name);
}

}  // namespace qlm
