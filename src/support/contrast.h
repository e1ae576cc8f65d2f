// Readable colours, by the contrast ratio of the Web Content Accessibility Guidelines.
#pragma once

#include <array>
#include <cstdint>

#include "support/value_codecs.h"

namespace my {

using CPixel = uint32_t;  // 0xAARRGGBB with premultiplied alpha

constexpr CPixel PixelOf(CColor color) {
  return 0xFF000000U | uint32_t{color.red} << 16 | uint32_t{color.green} << 8 | color.blue;
}

constexpr CColor ColorOf(CPixel pixel) {
  return {static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8), static_cast<uint8_t>(pixel)};
}

inline constexpr double kReadable = 4.5;

double Luminance(CColor color);                   // 0 (black) to 1 (white)
double Contrast(double luminance, double other);  // 1 (equal) to 21 (black and white)
double Contrast(CColor color, CColor other);

// Returns whether text of this colour needs a dark background rather than a light one.
bool NeedsDark(CColor text);

// Returns the colour, changed as little as possible to have this contrast to every background up to this
// luminance (if `onDark`, otherwise from this luminance). Black and white are the limits.
CColor Readable(CColor color, double luminance, bool onDark, double contrast = kReadable);

// Moves background colours away from the colour of the text on them.
class CContrastTable {
 public:
  // Changes only colours on which the text is not readable, and only as far as needed.
  static CContrastTable Limit(CColor text);

  // For pictures: keeps differences between bright colours, and leaves room for text in other colours.
  static CContrastTable Soft(CColor text);

  // The pixel must be opaque.
  CPixel Apply(CPixel pixel) const;

 private:
  static constexpr size_t kSteps = 4096;

  // `farthest`: largest luminance distance in the result; `from`: distance from which colours change.
  CContrastTable(bool dark, double farthest, double from);

  bool m_dark;
  std::array<uint32_t, kSteps> m_factors{};  // by luminance; 1 << 16: unchanged
};

// Applies a table to a pixel that may be translucent.
CPixel ApplyToLayer(const CContrastTable& table, CPixel pixel);

}  // namespace my
