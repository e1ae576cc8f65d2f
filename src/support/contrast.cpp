#include "support/contrast.h"

#include <algorithm>
#include <cmath>

namespace my {
namespace {

constexpr uint32_t kOne = 65535;       // full linear light
constexpr uint32_t kWhole = 1U << 16;  // the factor 1
constexpr double kAmbient = 0.05;      // the constant of the contrast formula
constexpr double kWanted = 4.6;        // above kReadable, to allow for rounding
constexpr double kWantedSoftly = 7.0;
constexpr size_t kLinearSteps = 4096;
constexpr int kLinearShift = 4;  // from light to an index of `floor`

double Linear(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

struct CLightTables {
  CLightTables() {
    for (size_t i = 0; i < light.size(); ++i) {
      exact[i] = Linear(static_cast<double>(i) / 255);
      light[i] = static_cast<uint32_t>(std::lround(exact[i] * kOne));
    }
    uint8_t value = 0;
    for (size_t i = 0; i < floor.size(); ++i) {
      while (value < 255 && light[value + 1U] <= i << kLinearShift) ++value;
      floor[i] = value;
    }
  }

  std::array<double, 256> exact{};
  std::array<uint32_t, 256> light{};
  std::array<uint8_t, kLinearSteps>
      floor{};  // the brightest channel value whose light does not exceed the step
};

const CLightTables& Lights() {
  static const CLightTables tables;
  return tables;
}

struct CLight {
  uint32_t red;
  uint32_t green;
  uint32_t blue;

  uint32_t Luminance() const { return (13933 * red + 46871 * green + 4732 * blue) >> 16; }
};

CLight LightOf(CPixel pixel) {
  const auto& light = Lights().light;
  return {light[pixel >> 16 & 0xFF], light[pixel >> 8 & 0xFF], light[pixel & 0xFF]};
}

uint32_t Darkened(uint32_t light, uint32_t factor) {
  return Lights().floor[static_cast<uint64_t>(light) * factor >> 16 >> kLinearShift];
}

// Scales the distance to full light by the factor and rounds up.
uint32_t Lightened(uint32_t light, uint32_t factor) {
  const uint32_t wanted = kOne - static_cast<uint32_t>(static_cast<uint64_t>(kOne - light) * factor >> 16);
  const uint32_t value = Lights().floor[wanted >> kLinearShift];
  return Lights().light[value] >= wanted ? value : value + 1;
}

// Returns the distance from black (`dark`) or white up to which backgrounds have this contrast to text of
// luminance `text`.
double FarthestFor(double text, double contrast, bool dark) {
  return dark ? (text + kAmbient) / contrast - kAmbient : 1 - (contrast * (text + kAmbient) - kAmbient);
}

// A curve that starts at `from` with slope 1 and ends at `end` for distance 1.
class CSoftCurve {
 public:
  CSoftCurve(double from, double end) : m_from(from), m_end(end) {
    double low = 1e-6;
    double high = 1e6;
    for (int i = 0; i < 60; ++i) {
      m_bend = std::sqrt(low * high);
      const double slope = (end - from) * m_bend / std::log1p(m_bend * (1 - from));
      (slope < 1 ? low : high) = m_bend;
    }
  }

  double At(double distance) const {
    const double part = std::log1p(m_bend * (distance - m_from)) / std::log1p(m_bend * (1 - m_from));
    return m_from + (m_end - m_from) * part;
  }

 private:
  double m_from;
  double m_end;
  double m_bend = 0;
};

}  // namespace

double Luminance(CColor color) {
  const auto& light = Lights().exact;
  return 0.2126 * light[color.red] + 0.7152 * light[color.green] + 0.0722 * light[color.blue];
}

double Contrast(double luminance, double other) {
  return (std::max(luminance, other) + kAmbient) / (std::min(luminance, other) + kAmbient);
}

double Contrast(CColor color, CColor other) {
  return Contrast(Luminance(color), Luminance(other));
}

bool NeedsDark(CColor text) {
  // Black and white have equal contrast to this luminance.
  return Luminance(text) >= 0.179;
}

CColor Readable(CColor color, double luminance, bool onDark, double contrast) {
  const auto isReadable = [&](CColor candidate) {
    const double own = Luminance(candidate);
    return (own > luminance) == onDark && Contrast(own, luminance) >= contrast;
  };
  const int end = onDark ? 255 : 0;
  for (int step = 0; step < 256; ++step) {
    const auto moved = [&](uint8_t value) {
      return static_cast<uint8_t>(value + (end - value) * step / 255);
    };
    const CColor candidate{moved(color.red), moved(color.green), moved(color.blue)};
    if (step == 255 || isReadable(candidate)) return candidate;
  }
  return color;
}

CContrastTable CContrastTable::Limit(CColor text) {
  const bool dark = NeedsDark(text);
  const double farthest = std::max(0.0, FarthestFor(Luminance(text), kWanted, dark));
  return {dark, farthest, farthest};
}

CContrastTable CContrastTable::Soft(CColor text) {
  const bool dark = NeedsDark(text);
  const double limit = std::max(0.0, FarthestFor(Luminance(text), kWanted, dark));
  const double farthest = std::max(limit / 2, FarthestFor(Luminance(text), kWantedSoftly, dark));
  return {dark, farthest, farthest / 3};
}

CContrastTable::CContrastTable(bool dark, double farthest, double from) : m_dark(dark) {
  const CSoftCurve curve(from, farthest);
  for (size_t i = 0; i < kSteps; ++i) {
    // The far end of the step, so that no pixel of the step exceeds the limit.
    const double distance = std::min(1.0, static_cast<double>(i + 1) / kSteps);
    const double left = distance <= from ? distance : from < farthest ? curve.At(distance) : farthest;
    m_factors[i] = distance <= from ? kWhole : static_cast<uint32_t>(left / distance * kWhole);
  }
}

CPixel CContrastTable::Apply(CPixel pixel) const {
  const CLight light = LightOf(pixel);
  const uint32_t luminance = light.Luminance();
  const uint32_t distance = m_dark ? luminance : kOne - luminance;
  const uint32_t factor = m_factors[distance >> kLinearShift];
  if (factor == kWhole) return pixel;
  const auto move = m_dark ? Darkened : Lightened;
  return (pixel & 0xFF000000U) | move(light.red, factor) << 16 | move(light.green, factor) << 8 |
         move(light.blue, factor);
}

CPixel ApplyToLayer(const CContrastTable& table, CPixel pixel) {
  const uint32_t alpha = pixel >> 24;
  if (alpha == 0) return pixel;
  if (alpha == 255) return table.Apply(pixel);
  const auto whole = [&](int shift) {
    return std::min(255U, (pixel >> shift & 0xFF) * 255 / alpha) << shift;
  };
  const CPixel moved = table.Apply(whole(16) | whole(8) | whole(0));
  const auto part = [&](int shift) { return (moved >> shift & 0xFF) * alpha / 255 << shift; };
  return alpha << 24 | part(16) | part(8) | part(0);
}

}  // namespace my
