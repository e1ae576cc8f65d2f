#include "ui/look/character.h"

#include <gtest/gtest.h>

#include "ui/framework/gdi.h"

namespace {

using namespace qlm;
using Gdiplus::Bitmap;

constexpr int kMargin = 8;

// Returns the number of drawn pixels in the centred square, or outside it.
int Drawn(Bitmap& bitmap, bool inside) {
  const auto size = static_cast<int>(bitmap.GetWidth());
  int count = 0;
  for (int i = 0; i < size * size; ++i) {
    const int x = i % size;
    const int y = i / size;
    const bool in = std::min(x, y) >= kMargin && std::max(x, y) < size - kMargin;
    Gdiplus::Color color;
    bitmap.GetPixel(x, y, &color);
    if (in == inside && color.GetAlpha() != 0) ++count;
  }
  return count;
}

TEST(Character, is_drawn_within_its_square_at_any_size) {
  const my::CGdiplus gdiplus;
  for (int type = static_cast<int>(BkImgType::OK); type <= static_cast<int>(BkImgType::GETTODAZE); ++type) {
    for (const int side : {50, 100}) {
      Bitmap bitmap(side + 2 * kMargin, side + 2 * kMargin, PixelFormat32bppARGB);
      Gdiplus::Graphics graphics(&bitmap);
      const auto place = static_cast<float>(side);
      DrawCharacter(graphics, static_cast<BkImgType>(type), {kMargin, kMargin, place, place});
      EXPECT_GT(Drawn(bitmap, true), side * side / 5) << type << " at " << side;
      EXPECT_EQ(Drawn(bitmap, false), 0) << type << " at " << side;
    }
  }
}

}  // namespace
