// The choices among the settings, and the names by which they stand in the settings file.
#pragma once

#include <cstdint>

#include "support/enum_names.h"

namespace qlm {

// How the zip password is kept: asked for at every run, once per program session, or stored in the file.
enum class PasswordType { EXEC, EXEC_ONCE, SAVE };
extern const my::CEnumTable kPasswordTypeNames;

// What a run that powers off ends with.
enum class PowerOffType { LOGOFF, SLEEP, HIBERNATE, POWEROFF };
extern const my::CEnumTable kPowerOffTypeNames;

// What the background of the main view is filled with.
enum class BrushType { DEFAULT, OS_DEFAULT, CUSTOM_COLOR, CUSTOM_BK, CHECK, DIA, STRIPE, INTERLACE };
extern const my::CEnumTable kBrushTypeNames;

// How the background image is scaled to the view.
enum class FitType { NONE, WIDTH, HEIGHT, AUTO_FIT, AUTO_FILL };
extern const my::CEnumTable kFitTypeNames;

// The corner of the view that the background image keeps to: left or right, top or bottom.
enum class ImgOrigin { LT, LB, RB, RT };
extern const my::CEnumTable kImgOriginNames;

// The background image: a character image picked at random, none, the user's own, or that character image.
enum class BkImgType {
  DEFAULT,
  NONE,
  CUSTOM,
  OK,
  LOVELOVE,
  NO,
  HATENA,
  MASSAKASAMA,
  ASE,
  GAKKURI,
  PEROON,
  DARUDARU,
  CHOUDAI,
  DOGEZA,
  MANEKI,
  ONEGAI,
  BUTSUYO,
  GUROKKII,
  GUTTARI,
  DOWN,
  IYAIYA,
  OMOI,
  ZUKO,
  BIRIBIRI,
  URAMIMASU,
  CHANCE,
  GETTODAZE
};
extern const my::CEnumTable kBkImgTypeNames;

}  // namespace qlm
