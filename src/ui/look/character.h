// The characters for the background of the main view, and the icons of the lists.
#pragma once

#include <cstdint>

#include "settings/settings_enums.h"
#include "ui/framework/gdiplus.h"
#include "ui/models/row_colors.h"

namespace qlm {

// Draws the character centred in `where` (pixels), as large as fits; pixels outside the drawing are
// unchanged. Within `where` it has a light rim of width `rim`, visible on dark backgrounds. Types before OK
// have no drawing. GDI+ must be started. Takes several milliseconds, so callers should keep the result.
void DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type, const Gdiplus::RectF& where, float rim = 0);

// Draws an icon in the upper left corner. Otherwise like DrawCharacter.
void DrawStateIcon(Gdiplus::Graphics& graphics, ResultState state, int side);

// Returns a character; each has the same share of the values of `random`.
BkImgType PickCharacter(uint32_t random);

}  // namespace qlm
