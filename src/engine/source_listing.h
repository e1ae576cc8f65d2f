#pragma once

#include <string>

namespace my {
class IFileSystem;
class IStopQuery;
}  // namespace my

namespace qlm {

class CFilter;
class CTargets;

// Appends every entry below the source folder to the targets, each with the filter item that decides for it.
// A folder that an item excludes is listed, its contents are not. A folder that cannot be read, or whose
// search pattern reaches 260 characters, is passed over and noted as unlisted, except for links that deny
// listing. Links to folders are entered like folders; the limit of 260 characters ends a loop of them.
// Throws IDS_STOPPED, and what CFilter::Find throws.
void ListSource(my::IFileSystem& files, const CFilter& filter, const my::IStopQuery* stop,
                const std::wstring& source, CTargets& targets);

}  // namespace qlm
