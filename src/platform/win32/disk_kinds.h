#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "platform/file_system.h"

namespace my {

// The kinds of the disks that paths are on, asked from the system once a minute for each volume. Any thread
// may call.
class CDiskKinds {
 public:
  // Returns Unknown for a removable drive: most do not tell, and many are slow at alternating writes.
  DiskKind Of(const std::wstring& path);

 private:
  struct CAnswer {
    DiskKind kind = DiskKind::Unknown;
    uint64_t tick = 0;  // milliseconds
  };

  std::mutex m_lock;
  std::map<std::wstring, CAnswer> m_answers;  // by volume
};

}  // namespace my
