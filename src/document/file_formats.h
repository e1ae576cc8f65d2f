// The file types offered in the dialogs, in that order.
#pragma once

#include <cstddef>
#include <string_view>

namespace qlm {

// Types of documents; both have the same content.
enum class FileFormat { QLMR, XML };

// Types of filters; both have the same content.
enum class FilterFormat { FLT, TXT };

struct CFormat {
  std::wstring_view pattern;
  std::wstring_view extension;  // without the dot
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
