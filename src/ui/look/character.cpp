#include "ui/look/character.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <vector>

#include "ui/look/character_data.h"

namespace qlm {
namespace {

using art::CAffine;

constexpr int kFirst = static_cast<int>(BkImgType::OK);
constexpr int kCount = static_cast<int>(std::size(art::kCharacters));
static_assert(kFirst + kCount == static_cast<int>(BkImgType::GETTODAZE) + 1);
static_assert(std::size(art::kStateIcons) == kStateCount);

constexpr Gdiplus::PixelFormat kFormat = PixelFormat32bppPARGB;
constexpr int kMostPixels = 4;    // source pixels per result pixel, in each direction
constexpr int kLargeSide = 2400;  // of the enlarged drawing: 23 MB
constexpr float kSidesInIconRim = 20;

CAffine operator*(const CAffine& outer, const CAffine& inner) {
  return {outer.a * inner.a + outer.c * inner.b,           outer.b * inner.a + outer.d * inner.b,
          outer.a * inner.c + outer.c * inner.d,           outer.b * inner.c + outer.d * inner.d,
          outer.a * inner.e + outer.c * inner.f + outer.e, outer.b * inner.e + outer.d * inner.f + outer.f};
}

Gdiplus::PointF PointAt(const int16_t* numbers, const CAffine& matrix) {
  const float x = numbers[0];
  const float y = numbers[1];
  return {matrix.a * x + matrix.c * y + matrix.e, matrix.b * x + matrix.d * y + matrix.f};
}

// Returns the scale of line widths. A line has the same width everywhere, even if the drawing is distorted.
float LineScale(const CAffine& matrix) {
  return std::sqrt(std::abs(matrix.a * matrix.d - matrix.b * matrix.c));
}

Gdiplus::Color WithOpacity(uint32_t color, float opacity) {
  const auto alpha = static_cast<uint32_t>(std::lround(static_cast<float>(color >> 24) * opacity));
  return Gdiplus::Color(alpha << 24 | (color & 0xFFFFFFU));
}

constexpr Gdiplus::ARGB kRimColor = 0xFFFFF8ECU;
constexpr float kSolid = 0.5F;  // opacity from which a shape has a rim

class CPainter {
 public:
  // If `rim` is not 0, draws only a rim of this width (pixels) around the shapes.
  CPainter(Gdiplus::Graphics& graphics, float rim) : m_graphics(graphics), m_rim(rim) {}

  void DrawGroup(int group, const CAffine& matrix, float opacity) {
    const art::CGroup& rows = art::kGroups[group];
    for (const art::CItem& item : std::span(art::kItems + rows.firstItem, rows.itemCount)) {
      const float own = opacity * static_cast<float>(item.opacity) / 255;
      if (item.index < 0)
        DrawGroup(-1 - item.index, matrix * art::kMatrices[item.matrix], own);
      else
        DrawShape(art::kShapes[item.index], matrix, own);
    }
  }

 private:
  void DrawShape(const art::CShape& shape, const CAffine& matrix, float opacity) {
    if (m_rim > 0) return DrawRim(shape, matrix, opacity);
    Trace(shape, matrix);
    const Gdiplus::GraphicsPath path(m_points.data(), m_types.data(), static_cast<INT>(m_points.size()),
                                     Gdiplus::FillModeWinding);
    if (shape.fill != 0) {
      const Gdiplus::SolidBrush brush(WithOpacity(shape.fill, opacity));
      m_graphics.FillPath(&brush, &path);
    }
    if (shape.stroke == 0) return;
    DrawLine(path, WithOpacity(shape.stroke, opacity), static_cast<float>(shape.width) * LineScale(matrix));
  }

  void DrawRim(const art::CShape& shape, const CAffine& matrix, float opacity) {
    if (opacity < kSolid) return;
    Trace(shape, matrix);
    const Gdiplus::GraphicsPath path(m_points.data(), m_types.data(), static_cast<INT>(m_points.size()),
                                     Gdiplus::FillModeWinding);
    const float line = shape.stroke == 0 ? 0 : static_cast<float>(shape.width) * LineScale(matrix);
    DrawLine(path, Gdiplus::Color(kRimColor), line + 2 * m_rim);
  }

  void DrawLine(const Gdiplus::GraphicsPath& path, const Gdiplus::Color& color, float width) {
    Gdiplus::Pen pen(color, width);
    pen.SetLineJoin(Gdiplus::LineJoinRound);
    pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
    m_graphics.DrawPath(&pen, &path);
  }

  void Trace(const art::CShape& shape, const CAffine& matrix) {
    m_points.clear();
    m_types.clear();
    const int16_t* next = art::kPoints + shape.firstNumber;
    const auto add = [&](BYTE type) {
      m_points.push_back(PointAt(next, matrix));
      m_types.push_back(type);
      next += 2;
    };
    for (const char verb : std::span(art::kVerbs + shape.firstVerb, shape.verbCount)) {
      if (verb == 'M') add(Gdiplus::PathPointTypeStart);
      if (verb == 'L') add(Gdiplus::PathPointTypeLine);
      for (int i = 0; verb == 'C' && i < 3; ++i) add(Gdiplus::PathPointTypeBezier);
      if (verb == 'Z') m_types.back() |= Gdiplus::PathPointTypeCloseSubpath;
    }
  }

  Gdiplus::Graphics& m_graphics;
  float m_rim;
  std::vector<Gdiplus::PointF> m_points;
  std::vector<BYTE> m_types;
};

uint32_t Average(const Gdiplus::BitmapData& from, int column, int row, int factor) {
  uint32_t sums[4] = {};
  for (int y = row * factor; y < (row + 1) * factor; ++y) {
    const BYTE* pixel = static_cast<const BYTE*>(from.Scan0) + y * from.Stride + column * factor * 4;
    for (int i = 0; i < factor * 4; ++i) sums[i % 4] += pixel[i];
  }
  const auto count = static_cast<uint32_t>(factor * factor);
  uint32_t average = 0;
  for (int i = 3; i >= 0; --i) average = average << 8 | (sums[i] + count / 2) / count;
  return average;
}

bool Lock(Gdiplus::Bitmap& bitmap, Gdiplus::ImageLockMode mode, Gdiplus::BitmapData& data) {
  const Gdiplus::Rect all(0, 0, static_cast<INT>(bitmap.GetWidth()), static_cast<INT>(bitmap.GetHeight()));
  return bitmap.LockBits(&all, mode, kFormat, &data) == Gdiplus::Ok;
}

void Shrink(Gdiplus::Bitmap& large, Gdiplus::Bitmap& small, int factor) {
  Gdiplus::BitmapData from;
  Gdiplus::BitmapData to;
  if (!Lock(large, Gdiplus::ImageLockModeRead, from)) return;
  if (Lock(small, Gdiplus::ImageLockModeWrite, to)) {
    for (int y = 0; y < static_cast<int>(to.Height); ++y) {
      auto* row = reinterpret_cast<uint32_t*>(static_cast<BYTE*>(to.Scan0) + y * to.Stride);
      for (int x = 0; x < static_cast<int>(to.Width); ++x) row[x] = Average(from, x, y, factor);
    }
    small.UnlockBits(&to);
  }
  large.UnlockBits(&from);
}

// Draws the group with its rim to fill the bitmap.
void Fill(Gdiplus::Bitmap& bitmap, int group, float rim) {
  Gdiplus::Graphics graphics(&bitmap);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  const float scale = (static_cast<float>(bitmap.GetWidth()) - 2 * rim) / (art::kUnits * art::kStepsInUnit);
  const CAffine matrix{scale, 0, 0, scale, rim, rim};
  if (rim > 0) CPainter(graphics, rim).DrawGroup(group, matrix, 1);
  CPainter(graphics, 0).DrawGroup(group, matrix, 1);
}

// Draws enlarged and averages the pixels: GDI+ antialiases each shape on its own, so the background would
// show where two shapes meet, and not every implementation antialiases at all.
void DrawGroupAt(Gdiplus::Graphics& graphics, int group, Gdiplus::Point place, int side, float rim) {
  const int factor = std::clamp(kLargeSide / side, 1, kMostPixels);
  Gdiplus::Bitmap large(side * factor, side * factor, kFormat);
  Gdiplus::Bitmap small(side, side, kFormat);
  Fill(large, group, rim * static_cast<float>(factor));
  Shrink(large, small, factor);
  graphics.DrawImage(&small, place.X, place.Y, side, side);
}

}  // namespace

void DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type, const Gdiplus::RectF& where, float rim) {
  const int index = static_cast<int>(type) - kFirst;
  const int side = static_cast<int>(std::min(where.Width, where.Height));
  if (index < 0 || index >= kCount || side <= 0) return;
  const auto middle = [&](float start, float size) {
    return static_cast<INT>(std::ceil(start + (size - static_cast<float>(side)) / 2 - 0.5F));
  };
  DrawGroupAt(graphics, art::kCharacters[index],
              {middle(where.X, where.Width), middle(where.Y, where.Height)}, side, rim);
}

void DrawStateIcon(Gdiplus::Graphics& graphics, ResultState state, int side) {
  const float rim = static_cast<float>(side) / kSidesInIconRim;
  DrawGroupAt(graphics, art::kStateIcons[static_cast<size_t>(state)], {0, 0}, side, rim);
}

BkImgType PickCharacter(uint32_t random) {
  return static_cast<BkImgType>(kFirst + static_cast<int>(random % kCount));
}

}  // namespace qlm
