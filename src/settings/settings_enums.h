// The choices among the settings, with their names in the settings file and their texts.
#pragma once

#include "support/enum_names.h"

namespace qlm {

// How the zip password is kept: asked for at every run, once per program session, or stored in the file.
enum class PasswordType { EXEC, EXEC_ONCE, SAVE };
extern const my::CEnumTable kPasswordTypeNames;
extern const my::CEnumTexts<PasswordType> kPasswordTypeTexts;
extern const my::CEnumTexts<PasswordType> kPasswordTypeDescriptions;

// What a run that powers off ends with.
enum class PowerOffType { LOGOFF, SLEEP, HIBERNATE, POWEROFF };
extern const my::CEnumTable kPowerOffTypeNames;
extern const my::CEnumTexts<PowerOffType> kPowerOffTypeTexts;
extern const my::CEnumTexts<PowerOffType> kPowerOffTypeDescriptions;

// What the background of the main view is filled with.
enum class BrushType { DEFAULT, OS_DEFAULT, CUSTOM_COLOR, CUSTOM_BK, CHECK, DIA, STRIPE, INTERLACE };
extern const my::CEnumTable kBrushTypeNames;
extern const my::CEnumTexts<BrushType> kBrushTypeTexts;

// How the background image is scaled to the view.
enum class FitType { NONE, WIDTH, HEIGHT, AUTO_FIT, AUTO_FILL };
extern const my::CEnumTable kFitTypeNames;
extern const my::CEnumTexts<FitType> kFitTypeTexts;

// The corner of the view that the background image keeps to: left or right, top or bottom.
enum class ImgOrigin { LT, LB, RB, RT };
extern const my::CEnumTable kImgOriginNames;
extern const my::CEnumTexts<ImgOrigin> kImgOriginTexts;

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
extern const my::CEnumTexts<BkImgType> kBkImgTypeTexts;

}  // namespace qlm
