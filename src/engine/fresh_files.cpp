#include "engine/fresh_files.h"

namespace qlm {

uint64_t FlushFresh(const CTransferPorts& ports, const std::wstring& path, my::FlushDepth depth) {
  return RetryFresh(ports, [&] { return ports.files.FlushFile(path, depth); });
}

void RenameFresh(const CTransferPorts& ports, const std::wstring& from, const std::wstring& to) {
  RetryFresh(ports, [&] { ports.files.Move(from, to); });
}

}  // namespace qlm
