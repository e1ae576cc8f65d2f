// Operations on new files and folders, which virus scanners, indexers and sync clients may have open.
#pragma once

#include <cstdint>
#include <string>

#include "engine/task_base.h"
#include "platform/file_system.h"
#include "platform/retry.h"

namespace qlm {

struct CTransferPorts {
  my::IFileSystem& files;
  const my::IClock& clock;
  const my::IStopQuery* stop;  // may be null
};

// Each function repeats the operation while another program prevents it, for up to 15 s or until a stop is
// requested.

template <class Operation>
auto RetryFresh(const CTransferPorts& ports, Operation operation) {
  constexpr uint32_t kLimitMs = 15'000;
  return my::RetryWhileRefused(ports.clock, kLimitMs, operation,
                               [&ports] { return !ports.stop || !ports.stop->IsStopRequested(); });
}

// Flushes a file and returns its size in bytes. Throws IDS_WRITE_FILE_FAILED.
uint64_t FlushFresh(const CTransferPorts& ports, const std::wstring& path, my::FlushDepth depth);

// Renames a file or folder; never overwrites. Throws IDS_MOVE_FILE_FAILED.
void RenameFresh(const CTransferPorts& ports, const std::wstring& from, const std::wstring& to);

}  // namespace qlm
