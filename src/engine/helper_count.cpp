#include "engine/helper_count.h"

#include <algorithm>
#include <thread>

#include "engine/engine_ports.h"

namespace qlm {
namespace {

// One thread suits a disk of unknown kind: if it pays for seeks, more threads may take twice the time, and
// those disks that do not tell are mostly old, removable or behind an adapter. If it does not, one thread
// takes the time that it takes anyway.
size_t CountFor(my::DiskKind disk, size_t processors) {
  switch (disk) {
    case my::DiskKind::NoSeeks: return std::clamp<size_t>(processors, 2, 4);
    case my::DiskKind::Network:
      return std::clamp<size_t>(2 * processors, 4, 8);  // most of the time is spent waiting for the server
    case my::DiskKind::Seeks:
    case my::DiskKind::Unknown: break;
  }
  return 1;
}

}  // namespace

size_t HelperCount(const std::vector<my::DiskKind>& disks, size_t processors) {
  size_t count = 1;
  for (const my::DiskKind disk : disks) {
    const size_t suits = CountFor(disk, processors);
    if (suits == 1) return 1;
    count = std::max(count, suits);
  }
  return count;
}

my::CHelpers HelpersFor(const CEnginePorts& ports, const std::vector<std::wstring>& paths) {
  if (!ports.threads) return {};
  if (ports.threadCount != 0) return {ports.threads, ports.threadCount};
  std::vector<my::DiskKind> disks;
  disks.reserve(paths.size());
  for (const std::wstring& path : paths) disks.push_back(ports.files.Disk(path));
  return {ports.threads, HelperCount(disks, std::thread::hardware_concurrency())};
}

}  // namespace qlm
