// The form of the history: one JSON object per line, in UTF-8.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "history/history_record.h"

namespace qlm {

nlohmann::ordered_json HistoryJson(const CHistoryRun& run);

// Returns the object in one line, with its line end.
std::string HistoryLine(const CHistoryRun& run);

// Returns nullopt unless the line is a whole record. Unknown fields are ignored.
std::optional<CHistoryRun> ParseHistoryLine(std::string_view line);

}  // namespace qlm
