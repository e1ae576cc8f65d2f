// What the transfer of one row has done so far.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/targets.h"

namespace qlm {

// A file that is being copied.
struct CFileCount {
  size_t target = 0;     // its index in the target list
  uint64_t size = 0;     // as listed
  uint64_t counted = 0;  // the bytes in the figures so far
};

// Written by the threads of the job, which do nothing more than count; any thread may read. Each figure only
// grows. Bytes are those of the listing, so that both figures end at what was to be done.
class CTransferCounters {
 public:
  // `startTick` is the time of IClock::TickCount at the start of the transfer.
  CTransferCounters(const CTargetCounts& toDo, uint64_t startTick) : m_toDo(toDo), m_startTick(startTick) {}

  // Several files may be in progress. Files begin in the order of the list. BeginFile and EndFile must not be
  // called at the same time.
  CFileCount BeginFile(size_t target, uint64_t listedSize) {
    m_inProgress.push_back(target);
    m_target.store(m_inProgress.front(), std::memory_order_relaxed);
    return {target, listedSize};
  }

  // The file may have changed its size since the listing. Only the thread that copies it may call.
  void CountWithinFile(CFileCount& file, uint64_t copied) {
    const uint64_t counted = std::clamp(copied, file.counted, file.size);
    m_bytes.fetch_add(counted - file.counted, std::memory_order_relaxed);
    file.counted = counted;
  }

  void EndFile(CFileCount& file) {
    CountWithinFile(file, file.size);
    m_files.fetch_add(1, std::memory_order_relaxed);
    std::erase(m_inProgress, file.target);
    if (!m_inProgress.empty()) m_target.store(m_inProgress.front(), std::memory_order_relaxed);
  }

  void SetArchiveBytes(uint64_t bytes) { m_archiveBytes.store(bytes, std::memory_order_relaxed); }

  // The archive holds all files.
  void EndArchive() {
    m_bytes.store(m_toDo.bytes, std::memory_order_relaxed);
    m_files.store(m_toDo.counted, std::memory_order_relaxed);
  }

  const CTargetCounts& ToDo() const { return m_toDo; }
  uint64_t StartTick() const { return m_startTick; }
  size_t Target() const { return m_target.load(std::memory_order_relaxed); }
  uint64_t Files() const { return m_files.load(std::memory_order_relaxed); }
  uint64_t Bytes() const { return m_bytes.load(std::memory_order_relaxed); }

  // The size of the archive that is being written.
  uint64_t ArchiveBytes() const { return m_archiveBytes.load(std::memory_order_relaxed); }

 private:
  const CTargetCounts m_toDo;
  const uint64_t m_startTick;
  std::atomic<size_t> m_target = 0;
  std::atomic<uint64_t> m_files = 0;
  std::atomic<uint64_t> m_bytes = 0;
  std::atomic<uint64_t> m_archiveBytes = 0;

  std::vector<size_t> m_inProgress;  // files, in the order of the list; used by BeginFile and EndFile
};

}  // namespace qlm
