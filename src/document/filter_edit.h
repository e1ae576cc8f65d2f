#pragma once

#include <string>
#include <string_view>

namespace my {
class IAnsiCodec;
}

namespace qlm {

// Returns the bytes of a filter file with a line inserted before all others, in the encoding and with the
// line ends that the file has. Without bytes the file is new: UTF-8 with a byte-order mark, CR LF. Throws
// IDS_FILTER_NOT_ENCODABLE with the line if the file is in the ANSI code page, which lacks a character of it.
std::string WithFirstLine(const my::IAnsiCodec& ansi, std::string_view bytes, std::wstring_view line);

}  // namespace qlm
