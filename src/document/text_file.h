#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace my {
class IAnsiCodec;
class IFileSystem;
}  // namespace my

namespace qlm {

// Returns the lines of a text file without their line ends (CR LF, LF or CR; the last line may lack one). A
// byte-order mark selects UTF-8 or UTF-16, otherwise the text is in the system's ANSI code page. Invalid
// bytes become U+FFFD. Throws IDS_PATH_EMPTY, IDS_OPEN_FILE_FAILED, IDS_READ_FILE_FAILED.
std::vector<std::wstring> ReadTextLines(my::IFileSystem& files, const my::IAnsiCodec& ansi,
                                        const std::wstring& path);

// The same for bytes in memory.
std::vector<std::wstring> TextLines(const my::IAnsiCodec& ansi, std::string_view bytes);

}  // namespace qlm
