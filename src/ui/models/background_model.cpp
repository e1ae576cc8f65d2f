#include "ui/models/background_model.h"

#include <algorithm>
#include <cmath>

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kCheckSize = 16;
constexpr int kDiamondSize = 24;
constexpr int kStripeWidth = 12;
constexpr int kLineHeight = 2;

// Percent by which the brush colour is lightened and darkened.
constexpr int kPatternShade = 12;
constexpr int kGradientShade = 22;

// Lightens the colour, or darkens it if `percent` is negative.
my::CColor Shade(my::CColor color, int percent) {
  const auto shade = [percent](uint8_t value) {
    return static_cast<uint8_t>(std::clamp(value + (value + 16) * percent / 100, 0, 255));
  };
  return {shade(color.red), shade(color.green), shade(color.blue)};
}

my::CColor Between(my::CColor from, my::CColor to, int part, int whole) {
  const auto mix = [&](uint8_t a, uint8_t b) { return static_cast<uint8_t>(a + (b - a) * part / whole); };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

int Scaled(int pixels, int dpi) {
  return std::max(1, pixels * dpi / 96);
}

int FloorDiv(int value, int divisor) {
  return value >= 0 ? value / divisor : -1 - (-1 - value) / divisor;
}

// Returns whether a point is on the lighter part of a pattern.
bool IsLight(BrushType type, int x, int y, int dpi) {
  switch (type) {
    case BrushType::CHECK: {
      const int size = Scaled(kCheckSize, dpi);
      return ((x / size + y / size) & 1) == 0;
    }
    case BrushType::DIA: {
      const int size = Scaled(kDiamondSize, dpi);
      return ((FloorDiv(x + y, size) + FloorDiv(x - y, size)) & 1) == 0;
    }
    case BrushType::STRIPE: return (x / Scaled(kStripeWidth, dpi) & 1) == 0;
    case BrushType::INTERLACE: return (y / Scaled(kLineHeight, dpi) & 1) == 0;
    default: return false;
  }
}

void FillGradient(std::span<my::CPixel> pixels, int width, my::CColor color) {
  const auto row = static_cast<size_t>(width);
  const auto rows = static_cast<int>(pixels.size() / row);
  const my::CColor top = Shade(color, kGradientShade);
  const my::CColor bottom = Shade(color, -kGradientShade);
  for (int y = 0; y < rows; ++y) {
    const auto line = pixels.subspan(static_cast<size_t>(y) * row, row);
    std::fill(line.begin(), line.end(), my::PixelOf(Between(top, bottom, y, rows)));
  }
}

void FillPattern(std::span<my::CPixel> pixels, int width, BrushType type, my::CColor color, int dpi) {
  const my::CPixel shades[] = {my::PixelOf(Shade(color, -kPatternShade)),
                               my::PixelOf(Shade(color, kPatternShade))};
  int x = 0;
  int y = 0;
  for (my::CPixel& pixel : pixels) {
    pixel = shades[IsLight(type, x, y, dpi) ? 1 : 0];
    if (++x < width) continue;
    x = 0;
    ++y;
  }
}

// Returns the factor by which an image is scaled.
double FitScale(CExtent view, CExtent image, FitType fit) {
  const double x = static_cast<double>(view.width) / image.width;
  const double y = static_cast<double>(view.height) / image.height;
  switch (fit) {
    case FitType::WIDTH: return x;
    case FitType::HEIGHT: return y;
    case FitType::AUTO_FIT: return std::min(x, y);
    case FitType::AUTO_FILL: return std::max(x, y);
    case FitType::NONE: break;
  }
  return 1;
}

CExtent ScaledExtent(CExtent extent, double scale) {
  return {std::max(1, static_cast<int>(std::lround(extent.width * scale))),
          std::max(1, static_cast<int>(std::lround(extent.height * scale)))};
}

bool IsRight(ImgOrigin origin) {
  return origin == ImgOrigin::RB || origin == ImgOrigin::RT;
}

bool IsBottom(ImgOrigin origin) {
  return origin == ImgOrigin::LB || origin == ImgOrigin::RB;
}

my::CRect InCorner(const my::CRect& area, CExtent image, ImgOrigin origin) {
  const int left = IsRight(origin) ? area.right - image.width : area.left;
  const int top = IsBottom(origin) ? area.bottom - image.height : area.top;
  return {left, top, left + image.width, top + image.height};
}

my::CRect InCorner(CExtent view, CExtent image, ImgOrigin origin) {
  return InCorner(my::CRect{0, 0, view.width, view.height}, image, origin);
}

// Returns the side of the largest square in the corner of a room; not above 0 if there is none.
int FreeSide(const CRoom& room, ImgOrigin origin) {
  const my::CRect& area = room.area;
  int side = std::min(area.right - area.left, area.bottom - area.top);
  for (const my::CRect& words : room.words) {
    const int x = IsRight(origin) ? area.right - words.right : words.left - area.left;
    const int y = IsBottom(origin) ? area.bottom - words.bottom : words.top - area.top;
    side = std::min(side, std::max(x, y));
  }
  return side;
}

}  // namespace

my::CRect PlaceImage(CExtent view, CExtent image, FitType fit, ImgOrigin origin) {
  return InCorner(view, ScaledExtent(image, FitScale(view, image, fit)), origin);
}

my::CRect PlaceCharacter(std::span<const CRoom> rooms, int side, int smallest, ImgOrigin origin) {
  const CRoom* best = nullptr;
  int bestSide = 0;
  bool bestIsNear = false;
  for (const CRoom& room : rooms) {
    const int free = std::min(side, FreeSide(room, origin));
    const bool isNear = room.upper != IsBottom(origin);
    if (free < smallest || (bestIsNear && !isNear)) continue;
    if (free <= bestSide && bestIsNear == isNear) continue;
    best = &room;
    bestSide = free;
    bestIsNear = isNear;
  }
  if (!best) return {};
  return InCorner(best->area, {bestSide, bestSide}, origin);
}

CPicturePart NeededPart(CExtent picture, CExtent screen, FitType fit, ImgOrigin origin) {
  const CExtent shown{std::min(picture.width, screen.width), std::min(picture.height, screen.height)};
  if (fit == FitType::NONE) return {InCorner(picture, shown, origin), shown};
  const double pixels = static_cast<double>(picture.width) * picture.height;
  const double most = 4.0 * screen.width * screen.height;  // limits the size of long, narrow pictures
  const double scale = std::min({1.0, FitScale(screen, picture, fit), std::sqrt(most / pixels)});
  return {{0, 0, picture.width, picture.height}, ScaledExtent(picture, scale)};
}

void FillBrush(std::span<my::CPixel> pixels, int width, BrushType type, my::CColor color, int dpi) {
  switch (type) {
    case BrushType::DEFAULT: return FillGradient(pixels, width, color);
    case BrushType::CHECK:
    case BrushType::DIA:
    case BrushType::STRIPE:
    case BrushType::INTERLACE: return FillPattern(pixels, width, type, color, dpi);
    default: std::fill(pixels.begin(), pixels.end(), my::PixelOf(color));
  }
}

void FillTiles(std::span<my::CPixel> pixels, int width, std::span<const my::CPixel> tile, int tileWidth) {
  const auto row = static_cast<size_t>(width);
  const auto tileRow = static_cast<size_t>(tileWidth);
  const size_t tileRows = tile.size() / tileRow;
  for (size_t y = 0; y * row < pixels.size(); ++y) {
    const auto from = tile.subspan(y % tileRows * tileRow, tileRow);
    const auto to = pixels.subspan(y * row, row);
    for (size_t x = 0; x < row; x += tileRow) Blend(to.subspan(x, std::min(tileRow, row - x)), from);
  }
}

void Blend(std::span<my::CPixel> pixels, std::span<const my::CPixel> layer) {
  for (size_t i = 0; i < pixels.size(); ++i) {
    const my::CPixel over = layer[i];
    const uint32_t alpha = over >> 24;
    if (alpha == 0) continue;
    const auto mix = [&](int shift) {
      const uint32_t below = (pixels[i] >> shift & 0xFF) * (255 - alpha) / 255;
      return std::min(255U, (over >> shift & 0xFF) + below) << shift;
    };
    pixels[i] = 0xFF000000U | mix(16) | mix(8) | mix(0);
  }
}

my::CRect Difference(std::span<const my::CPixel> pixels, std::span<const my::CPixel> others, int width) {
  const auto row = static_cast<size_t>(width);
  my::CRect found{width, 0, 0, 0};
  for (size_t y = 0; y * row < pixels.size(); ++y) {
    const auto line = pixels.subspan(y * row, row);
    const auto other = others.subspan(y * row, row);
    const auto first = std::ranges::mismatch(line, other).in1;
    if (first == line.end()) continue;
    const auto last = std::mismatch(line.rbegin(), line.rend(), other.rbegin()).first;
    if (found.bottom == 0) found.top = static_cast<int>(y);
    found.bottom = static_cast<int>(y) + 1;
    found.left = std::min(found.left, static_cast<int>(first - line.begin()));
    found.right = std::max(found.right, static_cast<int>(line.rend() - last));
  }
  return found.bottom == 0 ? my::CRect{} : found;
}

double LimitPixels(std::span<my::CPixel> pixels, my::CColor text) {
  const my::CContrastTable limit = my::CContrastTable::Limit(text);
  const bool dark = my::NeedsDark(text);
  double nearest = dark ? 0 : 1;
  my::CPixel before = 0;
  my::CPixel result = 0;  // cached, because neighbouring pixels are often equal
  for (my::CPixel& pixel : pixels) {
    if (pixel != before) {
      before = pixel;
      result = limit.Apply(pixel);
      const double luminance = my::Luminance(my::ColorOf(result));
      nearest = dark ? std::max(nearest, luminance) : std::min(nearest, luminance);
    }
    pixel = result;
  }
  return nearest;
}

}  // namespace qlm
