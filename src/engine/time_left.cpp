#include "engine/time_left.h"

#include <algorithm>
#include <cmath>

namespace qlm {
namespace {

constexpr uint64_t kTrustMs = 4000;  // of estimates before a time is shown
constexpr double kInertiaMs = 10'000;

constexpr uint64_t kMinute = 60;
constexpr uint64_t kHour = 3600;

// Returns the step of rounding for a time, in seconds.
uint64_t StepOf(double seconds) {
  if (seconds < kMinute) return 10;
  if (seconds < 10 * kMinute) return kMinute;
  if (seconds < kHour) return 5 * kMinute;
  return seconds < 10 * kHour ? 10 * kMinute : kHour;
}

uint64_t Rounded(double seconds) {
  const auto step = static_cast<double>(StepOf(seconds));
  return static_cast<uint64_t>(std::max(1.0, std::round(seconds / step)) * step);
}

}  // namespace

void CTimeLeft::Update(uint64_t tick, std::optional<double> estimateMs) {
  if (!estimateMs) {
    *this = {};
    return;
  }
  if (!m_ms) {
    m_since = m_tick = tick;
    m_ms = estimateMs;
  }
  const auto passed = static_cast<double>(tick - m_tick);
  const double expected = std::max(0.0, *m_ms - passed);
  m_ms = expected + (*estimateMs - expected) * (1 - std::exp(-passed / kInertiaMs));
  Show(tick);
}

void CTimeLeft::Pass(uint64_t tick) {
  if (!m_ms) return;
  m_ms = std::max(0.0, *m_ms - static_cast<double>(tick - m_tick));
  Show(tick);
}

void CTimeLeft::Show(uint64_t tick) {
  m_tick = tick;
  if (tick - m_since < kTrustMs) return;
  const double seconds = *m_ms / 1000;
  // A time close to the border of two rounded ones would alternate between them.
  constexpr double kTolerance = 0.75;
  const auto shown = static_cast<double>(m_shown.value_or(0));
  if (m_shown && std::abs(seconds - shown) < kTolerance * static_cast<double>(StepOf(shown))) return;
  m_shown = Rounded(seconds);
}

}  // namespace qlm
