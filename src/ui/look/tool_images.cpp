#include "ui/look/tool_images.h"

#include <objidl.h>

#include <memory>

#include "control_ids.h"
#include "platform/win32/com.h"
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

std::unique_ptr<Gdiplus::Bitmap> LoadPicture(int id) {
  const HRSRC resource = ::FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_RCDATA);
  const HGLOBAL loaded = ::LoadResource(nullptr, resource);
  const DWORD size = ::SizeofResource(nullptr, resource);
  my::CComPtr<IStream> stream;
  if (FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Out()))) return nullptr;
  stream->Write(::LockResource(loaded), size, nullptr);
  auto picture = std::make_unique<Gdiplus::Bitmap>(stream.Get());
  return picture->GetLastStatus() == Gdiplus::Ok ? std::move(picture) : nullptr;
}

bool g_menusBlend = true;

Gdiplus::Color MenuColor() {
  Gdiplus::Color color;
  color.SetFromCOLORREF(::GetSysColor(COLOR_MENU));
  return color;
}

// Returns a part of the strip on a background.
my::CBitmap CutOut(Gdiplus::Bitmap& strip, int left, SIZE size, const Gdiplus::Color& background) {
  Gdiplus::Bitmap part(size.cx, size.cy, PixelFormat32bppPARGB);
  Gdiplus::Graphics graphics(&part);
  graphics.Clear(background);
  graphics.DrawImage(&strip, Gdiplus::Rect(0, 0, size.cx, size.cy), left, 0, size.cx, size.cy,
                     Gdiplus::UnitPixel);
  HBITMAP bitmap = nullptr;
  part.GetHBITMAP(Gdiplus::Color(0, 0, 0, 0), &bitmap);
  return my::CBitmap(bitmap);
}

}  // namespace

CToolImages::CToolImages(UINT dpi) {
  const auto strip = StripFor(my::Scale(kDesignSize, dpi));
  m_size = strip.size;
  m_list = my::CImageList(::ImageList_Create(m_size, m_size, ILC_COLOR32, kToolIconCount, 0));
  const auto picture = LoadPicture(strip.id);
  if (!picture) return;
  const SIZE all{m_size * kToolIconCount, m_size};
  const my::CBitmap images = CutOut(*picture, 0, all, Gdiplus::Color(0, 0, 0, 0));
  ::ImageList_Add(m_list.Get(), images.Get(), nullptr);
}

void AssumeMenusBlend(bool blend) {
  g_menusBlend = blend;
}

// At first use, because the start of the program needs none.
void CToolImages::CreateBitmaps() {
  if (!m_bitmaps.empty()) return;
  const Gdiplus::Color background = g_menusBlend ? Gdiplus::Color(0, 0, 0, 0) : MenuColor();
  const auto picture = LoadPicture(StripFor(m_size).id);
  for (int i = 0; picture && i < kToolIconCount; ++i)
    m_bitmaps.push_back(CutOut(*picture, i * m_size, {m_size, m_size}, background));
}

HBITMAP CToolImages::Bitmap(int command) {
  CreateBitmaps();
  const auto index = static_cast<size_t>(ToolIconOf(command));
  return index < m_bitmaps.size() ? m_bitmaps[index].Get() : nullptr;
}

}  // namespace qlm
