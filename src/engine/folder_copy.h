#pragma once

#include <string>

namespace my {
struct CHelpers;
}  // namespace my

namespace qlm {

class CTargets;
class CTransferCounters;
struct CTransferPorts;

// Copies every counted file of the list from the source into an existing empty folder. Folders are created
// only as parents of copied files. On return all copies are flushed to their device. Files are begun in the
// order of the list, and a thread that is done with one begins the next. Stops at the first failure, when the
// files in progress have ended, and leaves the files copied so far. While files of a folder are copied, it
// and its parents up to the source are held in their place. Throws the first failure in the order of the
// list: IDS_STOPPED, IDS_CREATE_FOLDER_FAILED, IDS_COPY_FILE_FAILED, IDS_COPY_INCOMPLETE,
// IDS_SOURCE_BECAME_LINK, IDS_WRITE_FILE_FAILED. `counters` follows the copied files.
void CopyToFolder(const CTransferPorts& ports, const my::CHelpers& helpers, const std::wstring& source,
                  const CTargets& targets, const std::wstring& folder, CTransferCounters& counters);

}  // namespace qlm
