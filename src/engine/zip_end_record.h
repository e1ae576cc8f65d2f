#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace my {
class IFileSystem;
}

namespace qlm {

// Returns the number of entries in the end record of a zip file (the Zip64 one, if there is one). Returns
// nullopt if there is no end record, so the zip is incomplete. Throws IDS_OPEN_FILE_FAILED,
// IDS_READ_FILE_FAILED.
std::optional<uint64_t> CountZipEntries(my::IFileSystem& files, const std::wstring& path);

}  // namespace qlm
