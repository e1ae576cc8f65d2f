#include "run/json_values.h"

#include "support/strings.h"

namespace qlm {

nlohmann::ordered_json IsoTime(my::CFileTime time) {
  constexpr uint64_t kBeyondCalendar = uint64_t{1} << 63;
  if (!time || time.ticks >= kBeyondCalendar) return nullptr;
  const my::CCalendar at = my::UtcCalendar(time);
  return my::Utf8FromWide(my::CalendarText(at, L'-', L'T') + L"Z");
}

std::string TypeName(const CDst& dst) {
  return my::Utf8FromWide(*my::EnumName(kDstTypeNames, static_cast<uint32_t>(dst.type)));
}

}  // namespace qlm
