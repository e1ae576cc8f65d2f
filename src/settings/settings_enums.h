// Enumerations of the settings, their names in the settings file and their texts.
#pragma once

#include "support/enum_names.h"

namespace qlm {

// When the zip password is asked for: at every run, or once per program session; or it is stored in the file.
enum class PasswordType { EXEC, EXEC_ONCE, SAVE };
extern const my::CEnumTable kPasswordTypeNames;
extern const my::CEnumTexts<PasswordType> kPasswordTypeTexts;
extern const my::CEnumTexts<PasswordType> kPasswordTypeDescriptions;

// The action after a run with power-off.
enum class PowerOffType { LOGOFF, SLEEP, HIBERNATE, POWEROFF };
extern const my::CEnumTable kPowerOffTypeNames;
extern const my::CEnumTexts<PowerOffType> kPowerOffTypeTexts;
extern const my::CEnumTexts<PowerOffType> kPowerOffTypeDescriptions;

// The fill of the main view's background.
enum class BrushType { DEFAULT, OS_DEFAULT, CUSTOM_COLOR, CUSTOM_BK, CHECK, DIA, STRIPE, INTERLACE };
extern const my::CEnumTable kBrushTypeNames;
extern const my::CEnumTexts<BrushType> kBrushTypeTexts;

// The scaling of the background image.
enum class FitType { NONE, WIDTH, HEIGHT, AUTO_FIT, AUTO_FILL };
extern const my::CEnumTable kFitTypeNames;
extern const my::CEnumTexts<FitType> kFitTypeTexts;

// The corner of the view in which the background image is placed: left or right, top or bottom.
enum class ImgOrigin { LT, LB, RB, RT };
extern const my::CEnumTable kImgOriginNames;
extern const my::CEnumTexts<ImgOrigin> kImgOriginTexts;

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
extern const my::CEnumTexts<BkImgType> kBkImgTypeTexts;

}  // namespace qlm
