#pragma once

#include <cstdint>

namespace qlm {

// How often CBackupThread::Tick is called during a run, in milliseconds.
inline constexpr uint32_t kRunTickMs = 100;

}  // namespace qlm
