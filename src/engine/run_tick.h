#pragma once

#include <cstdint>

namespace qlm {

// The period of CBackupThread::Tick during a run, in milliseconds.
inline constexpr uint32_t kRunTickMs = 100;

}  // namespace qlm
