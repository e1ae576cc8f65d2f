#pragma once

#include <windows.h>

#include "support/placement.h"

namespace my {

// The full-screen state of a top-level window with WS_OVERLAPPEDWINDOW.
class CFullScreen {
 public:
  bool IsOn() const { return m_on; }

  // Covers the window's screen with it, or puts the window back to its former place.
  void Toggle(HWND window);

  // The placement of the window, in full screen that of before.
  CPlacement Placement(HWND window) const;

 private:
  bool m_on = false;
  WINDOWPLACEMENT m_before{};
};

}  // namespace my
