// Where a window may stand on the screens; all in pixels.
#pragma once

#include <cstdint>
#include <vector>

namespace my {

// Bounds on the screen. All zeros: none are known.
struct CRect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;

  friend bool operator==(const CRect&, const CRect&) = default;
};

// The place of a window.
struct CPlacement {
  bool maximized = false;
  CRect rect;  // of the restored window, also while it is maximized
};

// How far a window reaches on each side beyond what is seen of it.
struct CBorder {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
};

// `window` moved, and cut only where it is larger than the screen, so that it lies wholly within the work
// area that it overlaps most, or when it overlaps none, that is nearest. An edge that reaches beyond the area
// by no more than the invisible border stays. Without work areas: as it was.
CRect PullBack(const CRect& window, const std::vector<CRect>& workAreas, const CBorder& border = {});

// A rectangle as large as `window` and centred on `owner`.
CRect CentreOn(const CRect& window, const CRect& owner);

}  // namespace my
