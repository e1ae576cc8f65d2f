#include "ui/framework/check_images.h"

#include "ui/framework/dpi.h"

namespace my {
namespace {

constexpr int kImageSize = 16;
constexpr int kBoxSize = 13;
constexpr COLORREF kTransparent = RGB(255, 0, 255);

void DrawBox(HDC dc, int left, int size, int box, UINT state) {
  const int margin = (size - box) / 2;
  RECT rect{left + margin, margin, left + margin + box, margin + box};
  ::DrawFrameControl(dc, &rect, DFC_BUTTON, state);
}

}  // namespace

CImageList CheckImages(UINT dpi) {
  constexpr UINT kStates[] = {DFCS_BUTTONCHECK, DFCS_BUTTONCHECK | DFCS_CHECKED,
                              DFCS_BUTTON3STATE | DFCS_CHECKED};
  constexpr int kCount = static_cast<int>(std::size(kStates));
  const int size = Scale(kImageSize, dpi);
  const CWindowDc screen(nullptr);
  const CBitmap bitmap(::CreateCompatibleBitmap(screen.Get(), size * kCount, size));
  {
    const CMemoryDc dc(::CreateCompatibleDC(screen.Get()));
    const CSelect select(dc.Get(), bitmap.Get());
    const CBrush background(::CreateSolidBrush(kTransparent));
    const RECT all{0, 0, size * kCount, size};
    ::FillRect(dc.Get(), &all, background.Get());
    for (int i = 0; i < kCount; ++i) DrawBox(dc.Get(), i * size, size, Scale(kBoxSize, dpi), kStates[i]);
  }
  CImageList images(::ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, kCount, 0));
  if (images) ::ImageList_AddMasked(images.Get(), bitmap.Get(), kTransparent);
  return images;
}

}  // namespace my
