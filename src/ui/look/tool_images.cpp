#include "ui/look/tool_images.h"

#include "control_ids.h"
#include "ui/framework/dpi.h"
#include "ui/framework/gdiplus.h"

namespace qlm {
namespace {

constexpr int kDesignSize = 16;  // pixels at 96 DPI

constexpr struct {
  int size;
  int id;
} kStrips[] = {{16, IDR_TOOLS_16}, {24, IDR_TOOLS_24}, {32, IDR_TOOLS_32}, {48, IDR_TOOLS_48}};

// Returns the largest strip not larger than `wanted`, or else the smallest.
auto StripFor(int wanted) {
  auto found = kStrips[0];
  for (const auto& strip : kStrips) {
    if (strip.size <= wanted) found = strip;
  }
  return found;
}

// Bitmaps, because a decoder for compressed pictures takes long to load at the start of the program.
my::CBitmap LoadStrip(int id) {
  return my::CBitmap(static_cast<HBITMAP>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                       IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}

bool g_menusBlend = true;

Gdiplus::Color MenuColor() {
  Gdiplus::Color color;
  color.SetFromCOLORREF(::GetSysColor(COLOR_MENU));
  return color;
}

// Returns an image of the strip on a background.
my::CBitmap CutOut(Gdiplus::Bitmap& strip, int left, int size, const Gdiplus::Color& background) {
  Gdiplus::Bitmap part(size, size, PixelFormat32bppPARGB);
  Gdiplus::Graphics graphics(&part);
  graphics.Clear(background);
  graphics.DrawImage(&strip, Gdiplus::Rect(0, 0, size, size), left, 0, size, size, Gdiplus::UnitPixel);
  HBITMAP bitmap = nullptr;
  part.GetHBITMAP(Gdiplus::Color(0, 0, 0, 0), &bitmap);
  return my::CBitmap(bitmap);
}

}  // namespace

CToolImages::CToolImages(UINT dpi) {
  const auto strip = StripFor(my::Scale(kDesignSize, dpi));
  m_size = strip.size;
  m_list = my::CImageList(::ImageList_Create(m_size, m_size, ILC_COLOR32, kToolIconCount, 0));
  ::ImageList_Add(m_list.Get(), LoadStrip(strip.id).Get(), nullptr);
}

void AssumeMenusBlend(bool blend) {
  g_menusBlend = blend;
}

// At first use, because the start of the program needs none.
void CToolImages::CreateBitmaps() {
  if (!m_bitmaps.empty()) return;
  const Gdiplus::Color background = g_menusBlend ? Gdiplus::Color(0, 0, 0, 0) : MenuColor();
  const my::CBitmap strip = LoadStrip(StripFor(m_size).id);
  DIBSECTION pixels{};
  if (::GetObjectW(strip.Get(), sizeof pixels, &pixels) != sizeof pixels) return;
  const BITMAP& all = pixels.dsBm;  // its rows are bottom up
  Gdiplus::Bitmap picture(all.bmWidth, all.bmHeight, -all.bmWidthBytes, PixelFormat32bppPARGB,
                          static_cast<BYTE*>(all.bmBits) + (all.bmHeight - 1) * all.bmWidthBytes);
  for (int i = 0; i < kToolIconCount; ++i)
    m_bitmaps.push_back(CutOut(picture, i * m_size, m_size, background));
}

HBITMAP CToolImages::Bitmap(int command) {
  CreateBitmaps();
  const auto index = static_cast<size_t>(ToolIconOf(command));
  return index < m_bitmaps.size() ? m_bitmaps[index].Get() : nullptr;
}

}  // namespace qlm
