#pragma once

#include <windows.h>

#include "support/placement.h"

namespace my {

// The full-screen state of a top-level window with WS_OVERLAPPEDWINDOW.
class CFullScreen {
 public:
  bool IsOn() const { return m_on; }

  // Makes the window cover its screen, or restores its former placement.
  void Toggle(HWND window);

  // Returns the placement of the window; in full screen the one before it.
  CPlacement Placement(HWND window) const;

 private:
  void Enter(HWND window);
  void Leave(HWND window);

  bool m_on = false;
  WINDOWPLACEMENT m_before{};
};

}  // namespace my
