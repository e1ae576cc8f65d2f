#include "engine/fresh_files.h"

#include "engine/task_base.h"
#include "platform/retry.h"

namespace qlm {
namespace {

template <class Operation>
auto Retry(const CTransferPorts& ports, Operation operation) {
  constexpr uint32_t kLimitMs = 15'000;
  return my::RetryWhileRefused(ports.clock, kLimitMs, operation,
                               [&ports] { return !ports.stop || !ports.stop->IsStopRequested(); });
}

}  // namespace

uint64_t FlushFresh(const CTransferPorts& ports, const std::wstring& path, my::FlushDepth depth) {
  return Retry(ports, [&] { return ports.files.FlushFile(path, depth); });
}

void RenameFresh(const CTransferPorts& ports, const std::wstring& from, const std::wstring& to) {
  Retry(ports, [&] { ports.files.Move(from, to); });
}

}  // namespace qlm
