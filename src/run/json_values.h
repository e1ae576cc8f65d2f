#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "document/dst.h"
#include "support/file_time.h"

namespace qlm {

// Returns the time in UTC as "2016-03-05T07:04:09Z"; null if it is zero or beyond the calendar.
nlohmann::ordered_json IsoTime(my::CFileTime time);

// Returns the name of the destination's type in files.
std::string TypeName(const CDst& dst);

}  // namespace qlm
