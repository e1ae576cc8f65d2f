// What the transfer of one row has done so far.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "engine/targets.h"

namespace qlm {

// Written by the worker, which does nothing more than count; any thread may read. Each figure only grows.
// Bytes are those of the listing, so that both figures end at what was to be done.
class CTransferCounters {
 public:
  // `startTick` is the time of IClock::TickCount at the start of the transfer.
  CTransferCounters(const CTargetCounts& toDo, uint64_t startTick) : m_toDo(toDo), m_startTick(startTick) {}

  // `target` is the index of the file in the target list.
  void BeginFile(size_t target, uint64_t listedSize) {
    m_size = listedSize;
    m_target.store(target, std::memory_order_relaxed);
  }

  // The file may have changed its size since the listing.
  void CountWithinFile(uint64_t copied) {
    m_bytes.store(m_before + std::min(copied, m_size), std::memory_order_relaxed);
  }

  void EndFile() {
    m_before += m_size;
    m_bytes.store(m_before, std::memory_order_relaxed);
    m_files.store(++m_ended, std::memory_order_relaxed);
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

  // Used by the worker only.
  uint64_t m_ended = 0;   // files
  uint64_t m_before = 0;  // bytes of these files
  uint64_t m_size = 0;    // of the current file
};

}  // namespace qlm
