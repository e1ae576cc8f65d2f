#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

#include "support/enum_names.h"

namespace qlm {

class CReplaceRule;

enum class DstType { FOLDER, ZIP, PASSWORD_ZIP, AES_256_ZIP };

// The names by which DstType stands in files.
extern const my::CEnumTable kDstTypeNames;
extern const my::CEnumTexts<DstType> kDstTypeTexts;

constexpr bool IsZip(DstType type) {
  return type != DstType::FOLDER;
}

constexpr bool NeedsPassword(DstType type) {
  return type == DstType::PASSWORD_ZIP || type == DstType::AES_256_ZIP;
}

// One destination: where backups go, as what, and under which name.
struct CDst {
  std::wstring folder = L"C:\\Backup";
  DstType type = DstType::FOLDER;
  std::wstring pattern = L"<ID>_<Y>_<M>_<D>_<h>_<m>";  // see name_pattern.h

  // The active rule of the replace tool while this item is among its rows; not owned, not stored.
  const CReplaceRule* replaceRule = nullptr;

  friend bool operator==(const CDst&, const CDst&) = default;
};

using CDstPtr = boost::shared_ptr<CDst>;

// What must hold when a destination is confirmed: throws IDS_PATH_EMPTY or IDS_PATTERN_EMPTY.
void CheckDst(const CDst& dst);

}  // namespace qlm
