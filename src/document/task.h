#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "document/dst.h"

namespace qlm {

// The destinations of a task in order; each is an object of the document's common list.
using CTaskDsts = std::vector<CDstPtr>;

// A backup task: what is backed up, and to which of the common destinations.
struct CTask {
  std::wstring id;          // unique in the document
  std::wstring path;        // source folder
  std::wstring filterPath;  // path of the filter file; empty for none
  CTaskDsts dsts;

  // Rule for the preview of the replace tool; null unless the item is affected. Not owned, not stored.
  const CReplaceRule* replaceRule = nullptr;
};

// Compares all fields; destinations are compared by value and in order.
bool operator==(const CTask& a, const CTask& b);

using CTaskPtr = boost::shared_ptr<CTask>;

// Returns whether `test` is true for the type of any destination of the tasks.
bool AnyDst(const std::vector<CTaskPtr>& tasks, bool (*test)(DstType));

// Characters not allowed in an ID.
inline constexpr std::wstring_view kBadIdCharacters = L"/?:*\"><|";

// Checks the characters of an ID. Throws IDS_ID_EMPTY or IDS_ID_BAD_CHARACTER. A backslash is allowed and
// creates a subfolder in the destination.
void CheckId(std::wstring_view id);

// Checks the values of a confirmed task. Throws IDS_PATH_EMPTY or what CheckId throws.
void CheckTask(const CTask& task);

}  // namespace qlm
