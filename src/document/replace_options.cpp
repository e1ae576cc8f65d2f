#include "document/replace_options.h"

namespace qlm {
namespace {

constexpr std::wstring_view kRows[] = {L"ALL", L"SELECTED", L"FOCUSED"};
constexpr std::wstring_view kCols[] = {L"TASK_ID", L"TASK_PATH", L"TASK_FILTER", L"DST_FOLDER",
                                       L"DST_PATTERN"};

}  // namespace

const my::CEnumTable kReplaceRowNames{L"ReplaceRow", kRows};
const my::CEnumTable kReplaceColNames{L"ReplaceCol", kCols};

}  // namespace qlm
