#pragma once

#include <windows.h>

#include <utility>

namespace my {

// Remembers which control of a window had the focus.
class CFocusMemory {
 public:
  void Remember(HWND focus) { m_last = focus; }

  // Returns the focus to the remembered control, once. Returns false if it cannot have the focus or is not in
  // the window.
  bool Restore(HWND window) {
    const HWND last = std::exchange(m_last, nullptr);
    const bool usable = ::IsChild(window, last) && ::IsWindowVisible(last) && ::IsWindowEnabled(last);
    if (usable) ::SetFocus(last);
    return usable;
  }

 private:
  HWND m_last = nullptr;
};

}  // namespace my
