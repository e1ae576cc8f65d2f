// The characters for the background of the main view.
#pragma once

#include <cstdint>

#include "settings/settings_enums.h"
#include "ui/framework/gdiplus.h"

namespace qlm {

constexpr float kCharacterRatio = 1;  // width to height

// Draws the character in the middle of `where` (pixels), as large as it fits in; what it does not cover
// stays. The types before OK have no drawing. GDI+ must have been started. Takes some milliseconds: keep the
// picture of one that is shown often.
void DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type, const Gdiplus::RectF& where);

// One of the characters; each for the same share of the numbers.
BkImgType PickCharacter(uint32_t random);

}  // namespace qlm
