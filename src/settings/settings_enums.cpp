#include "settings/settings_enums.h"

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

}  // namespace qlm
