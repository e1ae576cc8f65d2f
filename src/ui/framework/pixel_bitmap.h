// Bitmaps whose pixels the program computes itself.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "ui/framework/gdi.h"

namespace my {

// Top-down rows of 32 bits a pixel, and a device context that shows them. At least one pixel large. Throws
// the system's error.
class CPixelBitmap {
 public:
  explicit CPixelBitmap(SIZE size);

  SIZE Size() const { return m_size; }
  HDC Dc() const { return m_dc.Get(); }

  // Not to be used while drawing into Dc() is under way; GdiFlush parts the two.
  std::span<uint32_t> Pixels() const { return m_pixels; }

 private:
  SIZE m_size;
  std::span<uint32_t> m_pixels;
  CMemoryDc m_dc;
  CBitmap m_bitmap;
  CSelect m_select;  // goes first: a selected bitmap cannot be deleted
};

}  // namespace my
