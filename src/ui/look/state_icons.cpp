#include "ui/look/state_icons.h"

#include "ui/framework/gdiplus.h"
#include "ui/look/character.h"

namespace qlm {
namespace {

my::CImageList DrawIcons(int size) {
  my::CImageList list(::ImageList_Create(size, size, ILC_COLOR32, kStateCount, 0));
  for (int state = 0; list && state < kStateCount; ++state) {
    Gdiplus::Bitmap picture(size, size, PixelFormat32bppPARGB);
    Gdiplus::Graphics graphics(&picture);
    DrawStateIcon(graphics, static_cast<ResultState>(state), size);
    HBITMAP bitmap = nullptr;
    picture.GetHBITMAP(Gdiplus::Color(0, 0, 0, 0), &bitmap);
    const my::CBitmap owner(bitmap);
    ::ImageList_Add(list.Get(), bitmap, nullptr);
  }
  return list;
}

}  // namespace

void CStateIcons::Draw(HDC dc, int state, POINT place, int size) {
  if (size <= 0) return;
  if (size != m_size) m_list = DrawIcons(size);
  m_size = size;
  ::ImageList_Draw(m_list.Get(), state, dc, place.x, place.y, ILD_NORMAL);
}

}  // namespace qlm
