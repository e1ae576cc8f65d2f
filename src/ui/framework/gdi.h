// Owners of window-system objects, and guards for drawing.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "platform/win32/handle.h"

namespace my {

// Shared objects (from LoadIcon, stock objects, menus owned by a window) must not be stored in these.
using CFont = CHandle<HFONT, &::DeleteObject>;
using CBrush = CHandle<HBRUSH, &::DeleteObject>;
using CBitmap = CHandle<HBITMAP, &::DeleteObject>;
using CIcon = CHandle<HICON, &::DestroyIcon>;
using CMenu = CHandle<HMENU, &::DestroyMenu>;
using CImageList = CHandle<HIMAGELIST, &::ImageList_Destroy>;
using CAccelerators = CHandle<HACCEL, &::DestroyAcceleratorTable>;
using CMemoryDc = CHandle<HDC, &::DeleteDC>;

// The device context of a window, or of the screen if `window` is null.
class CWindowDc {
 public:
  explicit CWindowDc(HWND window) : m_window(window), m_dc(::GetDC(window)) {}
  CWindowDc(const CWindowDc&) = delete;
  CWindowDc& operator=(const CWindowDc&) = delete;
  ~CWindowDc() { ::ReleaseDC(m_window, m_dc); }

  HDC Get() const { return m_dc; }

 private:
  HWND m_window;
  HDC m_dc;
};

// Selects an object and restores the previous one when destroyed.
class CSelect {
 public:
  CSelect(HDC dc, HGDIOBJ object) : m_dc(dc), m_before(::SelectObject(dc, object)) {}
  CSelect(const CSelect&) = delete;
  CSelect& operator=(const CSelect&) = delete;
  ~CSelect() { ::SelectObject(m_dc, m_before); }

 private:
  HDC m_dc;
  HGDIOBJ m_before;
};

// A device context of the screen for measuring texts. Selecting a font is slow, so it stays selected.
class CFontDc {
 public:
  explicit CFontDc(HFONT font) : m_font(font), m_before(::SelectObject(m_dc.Get(), font)) {}
  CFontDc(const CFontDc&) = delete;
  CFontDc& operator=(const CFontDc&) = delete;
  ~CFontDc() { ::SelectObject(m_dc.Get(), m_before); }

  HDC With(HFONT font) {
    if (std::exchange(m_font, font) != font) ::SelectObject(m_dc.Get(), font);
    return m_dc.Get();
  }

 private:
  CWindowDc m_dc{nullptr};
  HFONT m_font;
  HGDIOBJ m_before;
};

// Calls BeginPaint, and EndPaint when destroyed.
class CPaint {
 public:
  explicit CPaint(HWND window) : m_window(window), m_dc(::BeginPaint(window, &m_paint)) {}
  CPaint(const CPaint&) = delete;
  CPaint& operator=(const CPaint&) = delete;
  ~CPaint() { ::EndPaint(m_window, &m_paint); }

  HDC Get() const { return m_dc; }
  const RECT& Area() const { return m_paint.rcPaint; }

 private:
  HWND m_window;
  PAINTSTRUCT m_paint{};
  HDC m_dc;
};

// Double buffering: drawing uses the coordinates of `target`, and the destructor copies `area` to it.
class CBuffer {
 public:
  CBuffer(HDC target, const RECT& area)
      : m_target(target),
        m_area(area),
        m_dc(::CreateCompatibleDC(target)),
        m_bitmap(::CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
        m_select(m_dc.Get(), m_bitmap.Get()) {
    ::SetViewportOrgEx(m_dc.Get(), -area.left, -area.top, nullptr);
  }
  CBuffer(const CBuffer&) = delete;
  CBuffer& operator=(const CBuffer&) = delete;
  ~CBuffer() {
    ::BitBlt(m_target, m_area.left, m_area.top, m_area.right - m_area.left, m_area.bottom - m_area.top,
             m_dc.Get(), m_area.left, m_area.top, SRCCOPY);
  }

  HDC Get() const { return m_dc.Get(); }

 private:
  HDC m_target;
  RECT m_area;
  CMemoryDc m_dc;
  CBitmap m_bitmap;
  CSelect m_select;  // destroyed first, because a selected bitmap cannot be deleted
};

}  // namespace my
