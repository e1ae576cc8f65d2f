#pragma once

#include <string>

namespace my {
class IFileSystem;
class IStopQuery;
}  // namespace my

namespace qlm {

class CTargets;

// Copies every counted file of the list from the source into a fresh folder. A folder is made only as the
// parent of a copied file. Ends at the first failure and leaves what is copied so far where it is.
// Throws IDS_STOPPED, IDS_CREATE_FOLDER_FAILED, IDS_COPY_FILE_FAILED, IDS_COPY_INCOMPLETE.
void CopyToFolder(my::IFileSystem& files, const my::IStopQuery* stop, const std::wstring& source,
                  const CTargets& targets, const std::wstring& folder);

}  // namespace qlm
