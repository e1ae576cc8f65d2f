#include "support/placement.h"

#include <algorithm>
#include <tuple>

namespace my {
namespace {

int64_t Overlap(const CRect& a, const CRect& b) {
  const int64_t width = int64_t{std::min(a.right, b.right)} - std::max(a.left, b.left);
  const int64_t height = int64_t{std::min(a.bottom, b.bottom)} - std::max(a.top, b.top);
  return width > 0 && height > 0 ? width * height : 0;
}

// Returns the distance between two ranges; 0 if they touch or overlap.
int64_t Gap(int64_t low, int64_t high, int64_t otherLow, int64_t otherHigh) {
  return std::max({int64_t{0}, otherLow - high, low - otherHigh});
}

int64_t Distance(const CRect& a, const CRect& b) {
  return Gap(a.left, a.right, b.left, b.right) + Gap(a.top, a.bottom, b.top, b.bottom);
}

// Moves [low, high) into [from, to) and cuts it if it is longer. Uses 64 bits, because an edited settings
// file may contain any numbers.
void PullRange(int32_t& low, int32_t& high, int32_t from, int32_t to) {
  const int64_t length = std::clamp<int64_t>(int64_t{high} - low, 0, int64_t{to} - from);
  const int64_t start = std::clamp<int64_t>(low, from, to - length);
  low = static_cast<int32_t>(start);
  high = static_cast<int32_t>(start + length);
}

bool IsWithin(int32_t low, int32_t high, int32_t from, int32_t to) {
  return from <= low && low <= high && high <= to;
}

}  // namespace

CRect PullBack(const CRect& window, const std::vector<CRect>& workAreas, const CBorder& border) {
  if (workAreas.empty()) return window;
  const auto rank = [&](const CRect& area) {
    return std::make_tuple(-Overlap(window, area), Distance(window, area));
  };
  const CRect area = *std::min_element(workAreas.begin(), workAreas.end(),
                                       [&](const CRect& a, const CRect& b) { return rank(a) < rank(b); });
  CRect pulled = window;
  if (!IsWithin(window.left, window.right, area.left - border.left, area.right + border.right))
    PullRange(pulled.left, pulled.right, area.left, area.right);
  if (!IsWithin(window.top, window.bottom, area.top - border.top, area.bottom + border.bottom))
    PullRange(pulled.top, pulled.bottom, area.top, area.bottom);
  return pulled;
}

CRect CentreOn(const CRect& window, const CRect& owner) {
  const auto shift = [](int64_t low, int64_t high, int64_t ownerLow, int64_t ownerHigh) {
    return (ownerLow + ownerHigh - low - high) / 2;
  };
  const auto dx = static_cast<int32_t>(shift(window.left, window.right, owner.left, owner.right));
  const auto dy = static_cast<int32_t>(shift(window.top, window.bottom, owner.top, owner.bottom));
  return {window.left + dx, window.top + dy, window.right + dx, window.bottom + dy};
}

}  // namespace my
