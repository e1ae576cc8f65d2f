#include "ui/framework/check_images.h"

#include <vssym32.h>

#include <algorithm>
#include <iterator>

#include "ui/framework/dpi.h"
#include "ui/framework/pixel_bitmap.h"
#include "ui/framework/theme.h"

namespace my {
namespace {

// Pixels at 96 DPI.
constexpr int kBoxSize = 13;  // without a visual style
constexpr int kMargin = 3;    // beside both sides of the box, together

constexpr struct {
  int themed;
  UINT plain;
} kStates[] = {{CBS_UNCHECKEDNORMAL, DFCS_BUTTONCHECK},
               {CBS_CHECKEDNORMAL, DFCS_BUTTONCHECK | DFCS_CHECKED},
               {CBS_MIXEDNORMAL, DFCS_BUTTON3STATE | DFCS_CHECKED}};
constexpr int kCount = static_cast<int>(std::size(kStates));

int LineHeight(HWND list) {
  const CWindowDc dc(list);
  const CSelect font(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(list, WM_GETFONT, 0, 0)));
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(dc.Get(), &metrics);
  return static_cast<int>(metrics.tmHeight);
}

SIZE BoxSize(HTHEME theme, UINT dpi) {
  const SIZE plain{Scale(kBoxSize, dpi), Scale(kBoxSize, dpi)};
  return theme ? ThemedSize(theme, BP_CHECKBOX, CBS_UNCHECKEDNORMAL).value_or(plain) : plain;
}

void DrawBox(HTHEME theme, HDC dc, RECT box, int state) {
  if (theme)
    DrawThemed(theme, dc, BP_CHECKBOX, kStates[state].themed, box);
  else
    ::DrawFrameControl(dc, &box, DFC_BUTTON, kStates[state].plain);
}

// Makes the boxes opaque if they were drawn by functions that do not know transparency.
void CompleteAlpha(const CPixelBitmap& bitmap, SIZE image, SIZE box) {
  constexpr uint32_t kOpaque = 0xFF000000;
  ::GdiFlush();
  const auto pixels = bitmap.Pixels();
  if (std::ranges::any_of(pixels, [](uint32_t pixel) { return (pixel & kOpaque) != 0; })) return;
  const int top = (image.cy - box.cy) / 2;
  for (int y = top; y < top + box.cy; ++y) {
    for (int x = 0; x < image.cx * kCount; ++x) {
      if (x % image.cx < box.cx) pixels[static_cast<size_t>(y * image.cx * kCount + x)] |= kOpaque;
    }
  }
}

}  // namespace

CImageList CheckImages(HWND list, UINT dpi) {
  const CTheme theme = OpenTheme(L"BUTTON", dpi);
  const SIZE box = BoxSize(theme.Get(), dpi);
  const SIZE image{box.cx + Scale(kMargin, dpi), std::max<LONG>(box.cy, LineHeight(list))};
  CPixelBitmap bitmap({image.cx * kCount, image.cy});
  for (int i = 0; i < kCount; ++i) {
    const LONG left = i * image.cx;
    const LONG top = (image.cy - box.cy) / 2;
    DrawBox(theme.Get(), bitmap.Dc(), {left, top, left + box.cx, top + box.cy}, i);
  }
  CompleteAlpha(bitmap, image, box);
  CImageList images(::ImageList_Create(image.cx, image.cy, ILC_COLOR32, kCount, 0));
  if (images) ::ImageList_Add(images.Get(), bitmap.Finish(), nullptr);
  return images;
}

}  // namespace my
