#pragma once

#include <cstdint>
#include <optional>

namespace qlm {

// A time left that does not jump: estimates are smoothed, and the shown time is rounded and changes only if
// it is clearly wrong.
class CTimeLeft {
 public:
  // `estimateMs` is what the last seconds suggest; nullopt if unknown, which starts again.
  void Update(uint64_t tick, std::optional<double> estimateMs);

  // Time passes without a new estimate.
  void Pass(uint64_t tick);

  // Returns the rounded time; nullopt until there have been estimates for some seconds.
  std::optional<uint64_t> Seconds() const { return m_shown; }

 private:
  void Show(uint64_t tick);

  std::optional<double> m_ms;
  uint64_t m_since = 0;  // tick of the first estimate
  uint64_t m_tick = 0;   // of the last update
  std::optional<uint64_t> m_shown;
};

}  // namespace qlm
