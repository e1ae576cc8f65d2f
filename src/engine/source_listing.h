#pragma once

#include <optional>
#include <string>

#include "engine/ordered_work.h"
#include "support/exception.h"

namespace my {
class IFileSystem;
class IStopQuery;
}  // namespace my

namespace qlm {

class CFilter;
class CTargets;

// Appends every entry below the source folder to the targets, with the filter item that decides for it. An
// excluded folder is listed without its contents. A folder that cannot be read, or whose search pattern has
// 260 characters or more, is skipped and recorded as unlisted, except links that deny listing. Links to
// folders are listed like folders; the limit of 260 characters ends loops. Returns the reason if the source
// folder itself cannot be read. Throws IDS_STOPPED, and what CFilter::Find throws. With helpers, folders are
// read before they are needed; list and failures are the same as without.
std::optional<my::CException> ListSource(my::IFileSystem& files, const CFilter& filter,
                                         const my::IStopQuery* stop, const std::wstring& source,
                                         CTargets& targets, const my::CHelpers& helpers = {});

}  // namespace qlm
