#include "settings/settings_enums.h"

#include <iterator>

#include "text_ids.h"

namespace qlm {
namespace {

constexpr std::wstring_view kPasswordTypes[] = {L"EXEC", L"EXEC_ONCE", L"SAVE"};
constexpr std::wstring_view kPowerOffTypes[] = {L"LOGOFF", L"SLEEP", L"HIBERNATE", L"POWEROFF"};
constexpr std::wstring_view kBrushTypes[] = {L"DEFAULT", L"OS_DEFAULT", L"CUSTOM_COLOR", L"CUSTOM_BK",
                                             L"CHECK",   L"DIA",        L"STRIPE",       L"INTERLACE"};
constexpr std::wstring_view kFitTypes[] = {L"NONE", L"WIDTH", L"HEIGHT", L"AUTO_FIT", L"AUTO_FILL"};
constexpr std::wstring_view kImgOrigins[] = {L"LT", L"LB", L"RB", L"RT"};
constexpr std::wstring_view kBkImgTypes[] = {
    L"DEFAULT",     L"NONE",   L"CUSTOM",   L"OK",        L"LOVELOVE", L"NO",       L"HATENA",
    L"MASSAKASAMA", L"ASE",    L"GAKKURI",  L"PEROON",    L"DARUDARU", L"CHOUDAI",  L"DOGEZA",
    L"MANEKI",      L"ONEGAI", L"BUTSUYO",  L"GUROKKII",  L"GUTTARI",  L"DOWN",     L"IYAIYA",
    L"OMOI",        L"ZUKO",   L"BIRIBIRI", L"URAMIMASU", L"CHANCE",   L"GETTODAZE"};

}  // namespace

const my::CEnumTable kPasswordTypeNames{L"PasswordType", kPasswordTypes};
const my::CEnumTable kPowerOffTypeNames{L"PowerOffType", kPowerOffTypes};
const my::CEnumTable kBrushTypeNames{L"BrushType", kBrushTypes};
const my::CEnumTable kFitTypeNames{L"FitType", kFitTypes};
const my::CEnumTable kImgOriginNames{L"ImgOrigin", kImgOrigins};
const my::CEnumTable kBkImgTypeNames{L"BkImgType", kBkImgTypes};

constexpr my::CEnumTexts<PasswordType> kPasswordTypeTexts{IDS_PASSWORD_TYPE_EXEC, IDS_PASSWORD_TYPE_SAVE};
constexpr my::CEnumTexts<PasswordType> kPasswordTypeDescriptions{IDS_PASSWORD_DESC_EXEC,
                                                                 IDS_PASSWORD_DESC_SAVE};
constexpr my::CEnumTexts<PowerOffType> kPowerOffTypeTexts{IDS_POWER_OFF_TYPE_LOGOFF,
                                                          IDS_POWER_OFF_TYPE_POWEROFF};
constexpr my::CEnumTexts<PowerOffType> kPowerOffTypeDescriptions{IDS_POWER_OFF_DESC_LOGOFF,
                                                                 IDS_POWER_OFF_DESC_POWEROFF};
constexpr my::CEnumTexts<BrushType> kBrushTypeTexts{IDS_BRUSH_DEFAULT, IDS_BRUSH_INTERLACE};
constexpr my::CEnumTexts<FitType> kFitTypeTexts{IDS_FIT_NONE, IDS_FIT_AUTO_FILL};
constexpr my::CEnumTexts<ImgOrigin> kImgOriginTexts{IDS_ORIGIN_LT, IDS_ORIGIN_RT};
constexpr my::CEnumTexts<BkImgType> kBkImgTypeTexts{IDS_IMAGE_DEFAULT, IDS_IMAGE_GETTODAZE};

static_assert(kPasswordTypeTexts.size() == std::size(kPasswordTypes));
static_assert(kPasswordTypeDescriptions.size() == std::size(kPasswordTypes));
static_assert(kPowerOffTypeTexts.size() == std::size(kPowerOffTypes));
static_assert(kPowerOffTypeDescriptions.size() == std::size(kPowerOffTypes));
static_assert(kBrushTypeTexts.size() == std::size(kBrushTypes));
static_assert(kFitTypeTexts.size() == std::size(kFitTypes));
static_assert(kImgOriginTexts.size() == std::size(kImgOrigins));
static_assert(kBkImgTypeTexts.size() == std::size(kBkImgTypes));

}  // namespace qlm
