#pragma once

#include <string>

namespace qlm {

class CTargets;
struct CTransferPorts;

// Copies every counted file of the list from the source into a fresh folder. A folder is created only as the
// parent of a copied file. When it returns, all copies are flushed to their device. Ends at the first failure
// and leaves what is copied so far where it is. Throws IDS_STOPPED, IDS_CREATE_FOLDER_FAILED,
// IDS_COPY_FILE_FAILED, IDS_COPY_INCOMPLETE, IDS_WRITE_FILE_FAILED.
void CopyToFolder(const CTransferPorts& ports, const std::wstring& source, const CTargets& targets,
                  const std::wstring& folder);

}  // namespace qlm
