#include "ui/framework/pixel_bitmap.h"

#include <algorithm>
#include <utility>

#include "support/exception.h"

namespace my {
namespace {

CBitmap CreatePixels(SIZE size, std::span<uint32_t>& pixels) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = -size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  CBitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) throw CException(CSystemError::FromWin32(ERROR_OUTOFMEMORY));
  pixels = {static_cast<uint32_t*>(bits), static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy)};
  return bitmap;
}

}  // namespace

CPixelBitmap::CPixelBitmap(SIZE size)
    : m_size{std::max(1L, size.cx), std::max(1L, size.cy)},
      m_dc(::CreateCompatibleDC(nullptr)),
      m_bitmap(CreatePixels(m_size, m_pixels)),
      m_select(std::in_place, m_dc.Get(), m_bitmap.Get()) {}

}  // namespace my
