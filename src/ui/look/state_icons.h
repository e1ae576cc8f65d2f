#pragma once

#include <windows.h>

#include "ui/framework/gdi.h"

namespace qlm {

// The icons of result rows. They are drawn for the last size used, because all rows have the same height.
class CStateIcons {
 public:
  // Draws the icon of a ResultState as a square. GDI+ must be started.
  void Draw(HDC dc, int state, POINT place, int size);

 private:
  int m_size = 0;
  my::CImageList m_list;
};

}  // namespace qlm
