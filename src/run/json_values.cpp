#include "run/json_values.h"

#include "support/strings.h"

namespace qlm {

nlohmann::ordered_json IsoTime(my::CFileTime time) {
  const std::string text = my::Utf8FromWide(my::UtcText(time));
  if (text.empty()) return nullptr;
  return text;
}

std::string TypeName(const CDst& dst) {
  return my::Utf8FromWide(*my::EnumName(kDstTypeNames, static_cast<uint32_t>(dst.type)));
}

}  // namespace qlm
