// GDI+, with the headers that it needs but does not include.
#pragma once

#include <windows.h>

#include <objidl.h>
#include <propidl.h>

#include <gdiplus.h>

namespace my {

// Keeps GDI+ started.
class CGdiplus {
 public:
  CGdiplus() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
  }
  CGdiplus(const CGdiplus&) = delete;
  CGdiplus& operator=(const CGdiplus&) = delete;
  ~CGdiplus() { Gdiplus::GdiplusShutdown(m_token); }

 private:
  ULONG_PTR m_token = 0;
};

}  // namespace my
