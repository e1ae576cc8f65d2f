#pragma once

#include <string>
#include <vector>

namespace my {
class IFileSystem;
class IKnownFolders;
}  // namespace my

namespace qlm {

// Returns where an installed archiver may be, the most likely path first.
std::vector<std::wstring> ArchiverCandidates(const my::IKnownFolders& folders);

// Returns the first of these paths that exists, empty if none does.
std::wstring FindArchiver(my::IFileSystem& files, const my::IKnownFolders& folders);

}  // namespace qlm
