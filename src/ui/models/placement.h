// Where a window may stand on the screens; all in pixels.
#pragma once

#include <vector>

#include "settings/settings.h"

namespace my {

using qlm::CRect;

// `window` moved, and cut only where it is larger than the screen, so that it lies wholly within the work
// area that it overlaps most, or when it overlaps none, that is nearest. Without work areas: as it was.
CRect PullBack(const CRect& window, const std::vector<CRect>& workAreas);

// A rectangle as large as `window` and centred on `owner`.
CRect CentreOn(const CRect& window, const CRect& owner);

}  // namespace my
