#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace my {
class IAnsiCodec;
class IFileSystem;
}  // namespace my

namespace qlm {

// The lines of a text file without their ends. The first bytes tell the encoding: UTF-8 or UTF-16 by their
// byte-order mark, else the system's ANSI code page. CR LF, LF and CR each end a line; a last line without an
// end counts, nothing after a last end does not. What is no text becomes U+FFFD.
// Throws IDS_PATH_EMPTY, IDS_OPEN_FILE_FAILED, IDS_READ_FILE_FAILED.
std::vector<std::wstring> ReadTextLines(my::IFileSystem& files, const my::IAnsiCodec& ansi,
                                        const std::wstring& path);

// The same for bytes at hand.
std::vector<std::wstring> TextLines(const my::IAnsiCodec& ansi, std::string_view bytes);

}  // namespace qlm
