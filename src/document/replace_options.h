// Options of the replace tool, and their names in the settings file.
#pragma once

#include <cstdint>
#include <string>

#include "support/enum_names.h"

namespace qlm {

// The rows that the replace tool changes.
enum class ReplaceRow { ALL, SELECTED, FOCUSED };
extern const my::CEnumTable kReplaceRowNames;

// The columns that the replace tool changes, as flags.
using ReplaceCol = uint32_t;
inline constexpr ReplaceCol kReplaceTaskId = 1u << 0;
inline constexpr ReplaceCol kReplaceTaskPath = 1u << 1;
inline constexpr ReplaceCol kReplaceTaskFilter = 1u << 2;
inline constexpr ReplaceCol kReplaceDstFolder = 1u << 3;
inline constexpr ReplaceCol kReplaceDstPattern = 1u << 4;
extern const my::CEnumTable kReplaceColNames;

// If `regex` is set, `src` is a regular expression and `dst` its format.
struct CReplaceOptions {
  ReplaceRow row = ReplaceRow::ALL;
  ReplaceCol col = 0;
  std::wstring src;
  std::wstring dst;
  bool regex = false;
  bool preview = true;  // show the result in the lists while the dialog is open
};

}  // namespace qlm
