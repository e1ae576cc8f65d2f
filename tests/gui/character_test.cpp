#include "ui/look/character.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "control_ids.h"
#include "gui/gui.h"
#include "ui/framework/gdi.h"
#include "ui/look/tool_icons.h"

namespace {

using namespace qlm;
using Gdiplus::Bitmap;

constexpr int kAll = static_cast<int>(BkImgType::GETTODAZE) - static_cast<int>(BkImgType::OK) + 1;

BkImgType Nth(int index) {
  return static_cast<BkImgType>(static_cast<int>(BkImgType::OK) + index);
}

// How many pixels inside and outside the square of the given side in the middle are not transparent.
struct CCover {
  int inside = 0;
  int outside = 0;
  int smooth = 0;  // pixels on an edge
};

CCover CoverOf(BkImgType type, int side) {
  const int margin = 8;
  const int size = side + 2 * margin;
  Bitmap bitmap(size, size, PixelFormat32bppARGB);
  Gdiplus::Graphics graphics(&bitmap);
  const auto place = static_cast<float>(margin);
  DrawCharacter(graphics, type, {place, place, static_cast<float>(side), static_cast<float>(side)});
  Gdiplus::BitmapData data;
  const Gdiplus::Rect all(0, 0, size, size);
  bitmap.LockBits(&all, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data);
  CCover cover;
  for (int y = 0; y < size; ++y) {
    const auto* row =
        reinterpret_cast<const uint32_t*>(static_cast<const BYTE*>(data.Scan0) + y * data.Stride);
    for (int x = 0; x < size; ++x) {
      if (row[x] >> 24 == 0) continue;
      if (row[x] >> 24 != 0xFF) ++cover.smooth;
      const bool in = std::min(x, y) >= margin && std::max(x, y) < size - margin;
      ++(in ? cover.inside : cover.outside);
    }
  }
  bitmap.UnlockBits(&data);
  return cover;
}

TEST(Character, stays_in_its_place_at_any_size) {
  const my::CGdiplus gdiplus;
  for (int i = 0; i < kAll; ++i) {
    for (const int side : {50, 200, 800}) {
      const CCover cover = CoverOf(Nth(i), side);
      EXPECT_GT(cover.inside, side * side / 5) << i << " at " << side;
      EXPECT_EQ(cover.outside, 0) << i << " at " << side;
      EXPECT_GT(cover.smooth, side) << i << " at " << side;
    }
  }
  EXPECT_EQ(CoverOf(BkImgType::NONE, 50).inside, 0);
}

// A strip is a PNG file, with its width and height in the first chunk.
TEST(Icons, are_in_the_program) {
  for (const int icon : {IDI_QUILLMOOR, IDI_DOCUMENT}) {
    const my::CIcon loaded(static_cast<HICON>(
        ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(icon), IMAGE_ICON, 256, 256, 0)));
    EXPECT_NE(loaded.Get(), nullptr) << icon;
  }
  const int strips[][2] = {{IDR_TOOLS_16, 16}, {IDR_TOOLS_24, 24}, {IDR_TOOLS_32, 32}, {IDR_TOOLS_48, 48}};
  for (const auto& [id, size] : strips) {
    const HRSRC found = ::FindResourceW(nullptr, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(10));  // RT_RCDATA
    ASSERT_NE(found, nullptr);
    const auto* bytes = static_cast<const BYTE*>(::LockResource(::LoadResource(nullptr, found)));
    EXPECT_EQ(bytes[18] << 8 | bytes[19], size * kToolIconCount);
    EXPECT_EQ(bytes[23], size);
  }
}

}  // namespace
