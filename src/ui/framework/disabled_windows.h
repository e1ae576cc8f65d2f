#pragma once

#include <windows.h>

#include <vector>

namespace my {

// Disables the visible top-level windows of the calling thread until destroyed. A modal dialog disables only
// its owner: if a modeless dialog owns it, the user could still work in the main window or close it.
class CDisabledWindows {
 public:
  // The top-level window of `except` is left enabled: the owner, which the system disables and enables
  // itself. Null for none.
  explicit CDisabledWindows(HWND except);
  CDisabledWindows(const CDisabledWindows&) = delete;
  CDisabledWindows& operator=(const CDisabledWindows&) = delete;
  ~CDisabledWindows();

 private:
  std::vector<HWND> m_windows;
};

}  // namespace my
