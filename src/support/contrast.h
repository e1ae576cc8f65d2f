// Colours that can be read on each other, after the contrast ratio of the web accessibility guidelines.
#pragma once

#include <array>
#include <cstdint>

#include "support/value_codecs.h"

namespace my {

using CPixel = uint32_t;  // 0xAARRGGBB; with a transparent part the colours are multiplied by it

constexpr CPixel PixelOf(CColor color) {
  return 0xFF000000U | uint32_t{color.red} << 16 | uint32_t{color.green} << 8 | color.blue;
}

constexpr CColor ColorOf(CPixel pixel) {
  return {static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8), static_cast<uint8_t>(pixel)};
}

inline constexpr double kReadable = 4.5;

double Luminance(CColor color);                   // 0 (black) to 1 (white)
double Contrast(double luminance, double other);  // 1 (the same) to 21 (black and white)
double Contrast(CColor color, CColor other);

// Whether text of this colour is read on a dark background, else on a light one.
bool NeedsDark(CColor text);

// A colour moved as little as makes it readable on every background up to this luminance (or, when
// `onDark` is false, from it on), as far as white and black reach.
CColor Readable(CColor color, double luminance, bool onDark);

// Moves the colours of a background away from that of the text on it.
class CContrastTable {
 public:
  // Only what cannot be read moves, and only as far as it has to.
  static CContrastTable Limit(CColor text);

  // For pictures: bright and brighter stay different, and there is room for text in further colours.
  static CContrastTable Soft(CColor text);

  // For opaque pixels.
  CPixel Apply(CPixel pixel) const;

 private:
  static constexpr size_t kSteps = 4096;

  // The farthest luminance that is left, and from where on colours move.
  CContrastTable(bool dark, double farthest, double from);

  bool m_dark;
  std::array<uint32_t, kSteps> m_factors{};  // by luminance; 1 << 16: stays
};

// Applies a table to a pixel with a transparent part.
CPixel ApplyToLayer(const CContrastTable& table, CPixel pixel);

}  // namespace my
