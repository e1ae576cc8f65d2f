// Images for the check boxes of a list.
#pragma once

#include "ui/framework/gdi.h"
#include "ui/framework/list_model.h"

namespace my {

// Returns state images 1 to 3: unchecked, checked, mixed, drawn in the system's visual style. They are as
// high as a line of the list's font, because a control may draw them at the top of its rows. Null if the
// system is out of resources.
CImageList CheckImages(HWND list, UINT dpi);

// Returns the state image index of a row; 0 for none.
inline UINT CheckImageIndex(ListCheck check) {
  return static_cast<UINT>(check);
}

}  // namespace my
