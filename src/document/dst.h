#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

#include "support/enum_names.h"

namespace qlm {

class CReplaceRule;

enum class DstType { FOLDER, ZIP, PASSWORD_ZIP, AES_256_ZIP };

// The names of DstType in files.
extern const my::CEnumTable kDstTypeNames;
extern const my::CEnumTexts<DstType> kDstTypeTexts;

constexpr bool IsZip(DstType type) {
  return type != DstType::FOLDER;
}

constexpr bool NeedsPassword(DstType type) {
  return type == DstType::PASSWORD_ZIP || type == DstType::AES_256_ZIP;
}

// A destination: folder, type and name of backups.
struct CDst {
  std::wstring folder = L"C:\\Backup";
  DstType type = DstType::FOLDER;
  std::wstring pattern = L"<ID>_<Y>_<M>_<D>_<h>_<m>";  // see name_pattern.h

  // Rule for the preview of the replace tool; null unless the item is affected. Not owned, not stored.
  const CReplaceRule* replaceRule = nullptr;

  friend bool operator==(const CDst&, const CDst&) = default;
};

using CDstPtr = boost::shared_ptr<CDst>;

// Checks the values of a confirmed destination. Throws IDS_PATH_EMPTY or IDS_PATTERN_EMPTY.
void CheckDst(const CDst& dst);

}  // namespace qlm
