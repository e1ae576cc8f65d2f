// The pictures of commands at the size of one DPI.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/framework/gdi.h"
#include "ui/look/tool_icons.h"

namespace qlm {

class CToolImages {
 public:
  CToolImages() = default;
  explicit CToolImages(UINT dpi);  // GDI+ must run

  // In the order of ToolIcon; the object keeps it.
  HIMAGELIST List() const { return m_list.Get(); }
  int Size() const { return m_size; }  // pixels

  // For a menu, null for a command without a picture; the object keeps it.
  HBITMAP Bitmap(int command) const;

 private:
  int m_size = 0;
  my::CImageList m_list;
  std::vector<my::CBitmap> m_bitmaps;
};

// Whether the system's menus blend transparent pictures, which is assumed at first. If not, pictures made
// later have the background of menus. For the rest of the process.
void AssumeMenusBlend(bool blend);

}  // namespace qlm
