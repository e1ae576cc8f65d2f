// The images of commands for one DPI.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/framework/gdi.h"
#include "ui/look/tool_icons.h"

namespace qlm {

class CToolImages {
 public:
  CToolImages() = default;
  explicit CToolImages(UINT dpi);  // GDI+ must be started

  // The images in the order of ToolIcon; owned by this object.
  HIMAGELIST List() const { return m_list.Get(); }
  int Size() const { return m_size; }  // pixels

  // Returns the menu bitmap, owned by this object; null for a command without an image.
  HBITMAP Bitmap(int command);

 private:
  void CreateBitmaps();

  int m_size = 0;
  my::CImageList m_list;
  std::vector<my::CBitmap> m_bitmaps;  // created at first use
};

// Sets whether the system's menus blend transparent images (default: yes). If not, images created later have
// the background colour of menus. Holds for the whole process.
void AssumeMenusBlend(bool blend);

}  // namespace qlm
