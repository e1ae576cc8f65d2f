#pragma once

#include "ui/framework/gdi.h"

namespace my {

// The icons that the system shows for a window.
class CWindowIcons {
 public:
  // Loads both sizes of an icon of the program's resources for a DPI. Must outlive the window.
  void Use(HWND window, int iconId, UINT dpi);

 private:
  CIcon m_small;
  CIcon m_large;
};

}  // namespace my
