#include "document/dst.h"

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr std::wstring_view kNames[] = {L"FOLDER", L"ZIP", L"PASSWORD_ZIP", L"AES_256_ZIP"};

}  // namespace

const my::CEnumTable kDstTypeNames{L"DstType", kNames};

void CheckDst(const CDst& dst) {
  if (dst.folder.empty()) throw my::CException(IDS_PATH_EMPTY);
  if (dst.pattern.empty()) throw my::CException(IDS_PATTERN_EMPTY);
}

}  // namespace qlm
