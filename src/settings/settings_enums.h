// Enumerations of the settings and their names in the settings file.
#pragma once

#include <cstdint>

#include "support/enum_names.h"

namespace qlm {

// When the zip password is asked for: at every run, or once per program session; or it is stored in the file.
enum class PasswordType { EXEC, EXEC_ONCE, SAVE };
extern const my::CEnumTable kPasswordTypeNames;

// The action after a run with power-off.
enum class PowerOffType { LOGOFF, SLEEP, HIBERNATE, POWEROFF };
extern const my::CEnumTable kPowerOffTypeNames;

// The fill of the main view's background.
enum class BrushType { DEFAULT, OS_DEFAULT, CUSTOM_COLOR, CUSTOM_BK, CHECK, DIA, STRIPE, INTERLACE };
extern const my::CEnumTable kBrushTypeNames;

// The scaling of the background image.
enum class FitType { NONE, WIDTH, HEIGHT, AUTO_FIT, AUTO_FILL };
extern const my::CEnumTable kFitTypeNames;

// The corner of the view in which the background image is placed: left or right, top or bottom.
enum class ImgOrigin { LT, LB, RB, RT };
extern const my::CEnumTable kImgOriginNames;

// The background image: a random character, none, an image file, or the named character.
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
