// Bitmaps with direct access to their pixels.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>

#include "ui/framework/gdi.h"

namespace my {

// A top-down bitmap with 32 bits per pixel and a device context. At least 1 x 1 pixels. Throws the system
// error.
class CPixelBitmap {
 public:
  explicit CPixelBitmap(SIZE size);

  SIZE Size() const { return m_size; }
  HDC Dc() const { return m_dc.Get(); }

  // Call GdiFlush after drawing to Dc() and before using the pixels.
  std::span<uint32_t> Pixels() const { return m_pixels; }

  // Returns the bitmap for functions that accept none selected into a device context. Nothing can be drawn
  // afterwards.
  HBITMAP Finish() {
    m_select.reset();
    return m_bitmap.Get();
  }

 private:
  SIZE m_size;
  std::span<uint32_t> m_pixels;
  CMemoryDc m_dc;
  CBitmap m_bitmap;
  std::optional<CSelect> m_select;  // destroyed first, because a selected bitmap cannot be deleted
};

}  // namespace my
