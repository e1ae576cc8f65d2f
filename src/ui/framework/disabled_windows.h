#pragma once

#include <windows.h>

#include <vector>

namespace my {

// Keeps the user out of the calling thread's visible windows as long as it lives. A modal dialog disables its
// owner only: beside a modeless dialog that owns it, the main window could be worked on, or closed.
class CDisabledWindows {
 public:
  // `except` is left alone, or the window that it is a child of: the owner that the system itself disables
  // and enables. Null for none.
  explicit CDisabledWindows(HWND except);
  CDisabledWindows(const CDisabledWindows&) = delete;
  CDisabledWindows& operator=(const CDisabledWindows&) = delete;
  ~CDisabledWindows();

 private:
  std::vector<HWND> m_windows;
};

}  // namespace my
