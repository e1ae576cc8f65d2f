// The images of check boxes in a list.
#pragma once

#include "ui/framework/gdi.h"
#include "ui/framework/list_model.h"

namespace my {

// State images 1 to 3: unchecked, checked, mixed. Empty when the system is out of resources.
CImageList CheckImages(UINT dpi);

// The state image of a row; 0 is none.
inline UINT CheckImageIndex(ListCheck check) {
  return static_cast<UINT>(check);
}

}  // namespace my
