// Rectangles and window placements on the screens, in pixels.
#pragma once

#include <cstdint>
#include <vector>

namespace my {

// Screen coordinates. All zeros: unknown.
struct CRect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;

  friend bool operator==(const CRect&, const CRect&) = default;
};

// The placement of a window.
struct CPlacement {
  bool maximized = false;
  CRect rect;  // of the restored window, also while it is maximized
};

// Width of the invisible border of a window on each side.
struct CBorder {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
};

// Returns `window`, moved to be completely within a work area, and cut only if it is larger: the area that it
// overlaps most, or the nearest one. An edge may exceed the area by the invisible border. Without work areas
// it is returned unchanged.
CRect PullBack(const CRect& window, const std::vector<CRect>& workAreas, const CBorder& border = {});

// Returns a rectangle of the size of `window`, centred on `owner`.
CRect CentreOn(const CRect& window, const CRect& owner);

}  // namespace my
