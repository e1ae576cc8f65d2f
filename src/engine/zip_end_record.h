#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace my {
class IFileSystem;
}

namespace qlm {

// How many entries a zip file's end record counts (that of Zip64 where the file has one); nothing when the
// file has no end record, so is no complete zip. Throws IDS_OPEN_FILE_FAILED, IDS_READ_FILE_FAILED.
std::optional<uint64_t> CountZipEntries(my::IFileSystem& files, const std::wstring& path);

}  // namespace qlm
