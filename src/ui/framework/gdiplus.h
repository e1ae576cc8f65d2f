// GDI+ with the headers that its own leave out.
#pragma once

#include <windows.h>

#include <objidl.h>
#include <propidl.h>

#include <gdiplus.h>

namespace my {

// GDI+ in this process for as long as the object lives.
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
