// Places the controls of a window by a tree of boxes.
#pragma once

#include <windows.h>

#include <optional>

#include "support/box_layout.h"
#include "ui/framework/control_sizes.h"

namespace my {

// The boxes of a window together with the sizes of its controls, measured when the object is created. The
// boxes must outlive it.
class CWindowLayout {
 public:
  CWindowLayout(HWND window, const CBox& root, const CControlSizes& sizes);

  // Return sizes of the client area, with a margin around the controls.
  CSizeRange Width() const;
  CSizeRange Height(int width) const;

  // Places all shown controls in a client area of this size, moved by `scrolled`.
  void Apply(SIZE client, POINT scrolled) const;

 private:
  HWND m_window;
  const CControlSizes& m_sizes;
  CBoxLayout m_layout;
  int m_margin;
};

}  // namespace my
