// Geometry and pixels of the background, without an OS header.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "settings/settings_enums.h"
#include "support/contrast.h"
#include "support/placement.h"

namespace qlm {

struct CExtent {
  int width = 0;  // pixels
  int height = 0;

  friend bool operator==(const CExtent&, const CExtent&) = default;
};

// Returns the rectangle of the scaled image, which may extend beyond the view.
my::CRect PlaceImage(CExtent view, CExtent image, FitType fit, ImgOrigin origin);

// A part of the view without rows, and the words in it.
struct CRoom {
  bool upper = false;  // of the upper list
  my::CRect area;
  std::vector<my::CRect> words;
};

// Returns the largest square up to `side` that is clear of words: in the corner of a room in the list nearest
// to the origin, or else of another room. Returns an empty rectangle if all are below `smallest`.
my::CRect PlaceCharacter(std::span<const CRoom> rooms, int side, int smallest, ImgOrigin origin);

// Returns the part of a picture to keep and its size, sufficient for any view on this screen.
struct CPicturePart {
  my::CRect part;  // of the picture
  CExtent size;
};
CPicturePart NeededPart(CExtent picture, CExtent screen, FitType fit, ImgOrigin origin);

// Fills rows of `width` opaque pixels. For BrushType::CUSTOM_BK it fills with the colour only.
void FillBrush(std::span<my::CPixel> pixels, int width, BrushType type, my::CColor color, int dpi);

// Covers the pixels with copies of a tile, starting in the upper left corner.
void FillTiles(std::span<my::CPixel> pixels, int width, std::span<const my::CPixel> tile, int tileWidth);

// Blends a layer with premultiplied alpha over opaque pixels.
void Blend(std::span<my::CPixel> pixels, std::span<const my::CPixel> layer);

// Returns the smallest rectangle with all pixels that differ; empty if there are none.
my::CRect Difference(std::span<const my::CPixel> pixels, std::span<const my::CPixel> others, int width);

// Limits all pixels to those on which text is readable. Returns the luminance closest to that of the text.
double LimitPixels(std::span<my::CPixel> pixels, my::CColor text);

}  // namespace qlm
