// The background of the main view as numbers: what is drawn where, and how much of a picture is kept.
#pragma once

#include <cstdint>
#include <span>

#include "settings/settings.h"
#include "support/contrast.h"

namespace qlm {

struct CExtent {
  int width = 0;  // pixels
  int height = 0;

  friend bool operator==(const CExtent&, const CExtent&) = default;
};

// Where an image goes; it may reach beyond the view.
my::CRect PlaceImage(CExtent view, CExtent image, FitType fit, ImgOrigin origin);

// What of a picture is kept, and how large, so that it can fill any view of this screen.
struct CPicturePart {
  my::CRect part;  // of the picture
  CExtent size;
};
CPicturePart NeededPart(CExtent picture, CExtent screen, FitType fit, ImgOrigin origin);

// Fills rows of `width` opaque pixels. Not for BrushType::CUSTOM_BK beyond its colour.
void FillBrush(std::span<my::CPixel> pixels, int width, BrushType type, my::CColor color, int dpi);

// Covers the pixels with copies of a tile, from the left upper corner on.
void FillTiles(std::span<my::CPixel> pixels, int width, std::span<const my::CPixel> tile, int tileWidth);

// Puts a layer over opaque pixels.
void Blend(std::span<my::CPixel> pixels, std::span<const my::CPixel> layer);

// Applies the table to all pixels; answers the luminance that comes nearest to the text's.
double LimitPixels(std::span<my::CPixel> pixels, my::CColor text);

}  // namespace qlm
