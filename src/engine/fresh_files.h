// Operations on new files and folders, which virus scanners, indexers and sync clients may have open.
#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace my {
class IClock;
class IStopQuery;
}  // namespace my

namespace qlm {

struct CTransferPorts {
  my::IFileSystem& files;
  const my::IClock& clock;
  const my::IStopQuery* stop;  // may be null
};

// Each function repeats the operation while another program prevents it, for up to 15 s or until a stop is
// requested.

// Flushes a file and returns its size in bytes. Throws IDS_WRITE_FILE_FAILED.
uint64_t FlushFresh(const CTransferPorts& ports, const std::wstring& path, my::FlushDepth depth);

// Renames a file or folder; never overwrites. Throws IDS_MOVE_FILE_FAILED.
void RenameFresh(const CTransferPorts& ports, const std::wstring& from, const std::wstring& to);

}  // namespace qlm
