#pragma once

#include <string>
#include <vector>

namespace my {
class IFileSystem;
class IKnownFolders;
}  // namespace my

namespace qlm {

// Returns possible paths of an installed archiver, the most likely first.
std::vector<std::wstring> ArchiverCandidates(const my::IKnownFolders& folders);

// Returns the first of these paths that exists; empty if there is none.
std::wstring FindArchiver(my::IFileSystem& files, const my::IKnownFolders& folders);

// Returns whether archives cannot be created: nothing exists at the path in the settings or, if that is
// empty, at any of the possible ones. A path on the network is not checked, because that can take half a
// minute.
bool IsArchiverMissing(my::IFileSystem& files, const my::IKnownFolders& folders, const std::wstring& path);

}  // namespace qlm
