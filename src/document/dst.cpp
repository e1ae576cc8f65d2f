#include "document/dst.h"

#include <iterator>

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr std::wstring_view kNames[] = {L"FOLDER", L"ZIP", L"PASSWORD_ZIP", L"AES_256_ZIP"};

}  // namespace

const my::CEnumTable kDstTypeNames{L"DstType", kNames};

constexpr my::CEnumTexts<DstType> kDstTypeTexts{IDS_DST_TYPE_FOLDER, IDS_DST_TYPE_AES_256_ZIP};
static_assert(kDstTypeTexts.size() == std::size(kNames));

void CheckDst(const CDst& dst) {
  if (dst.folder.empty()) throw my::CException(IDS_PATH_EMPTY);
  if (dst.pattern.empty()) throw my::CException(IDS_PATTERN_EMPTY);
}

}  // namespace qlm
