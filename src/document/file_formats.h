// The kinds of files that the dialogs offer, in the order in which they offer them.
#pragma once

#include <cstddef>
#include <string_view>

namespace qlm {

// Kinds of documents; both are read and written the same way.
enum class FileFormat { QLMR, XML };

// Kinds of filters; both are read the same way.
enum class FilterFormat { FLT, TXT };

struct CFormat {
  std::wstring_view pattern;
  std::wstring_view extension;  // without a dot
};

inline constexpr CFormat kFileFormats[] = {{L"*.qlmr", L"qlmr"}, {L"*.xml", L"xml"}};
inline constexpr CFormat kFilterFormats[] = {{L"*.flt", L"flt"}, {L"*.txt", L"txt"}};

constexpr const CFormat& FormatOf(FileFormat format) {
  return kFileFormats[static_cast<size_t>(format)];
}

constexpr const CFormat& FormatOf(FilterFormat format) {
  return kFilterFormats[static_cast<size_t>(format)];
}

}  // namespace qlm
