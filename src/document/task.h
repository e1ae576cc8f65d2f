#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "document/dst.h"

namespace qlm {

// The destinations of one task, in order: each is one of the objects of the document's common list.
using CTaskDsts = std::vector<CDstPtr>;

// One backup task: what is backed up, and to which of the common destinations.
struct CTask {
  std::wstring id;          // unique in the document
  std::wstring path;        // source folder
  std::wstring filterPath;  // filter file; empty for none
  CTaskDsts dsts;

  // The active rule of the replace tool while this item is among its rows; not owned, not stored.
  const CReplaceRule* replaceRule = nullptr;
};

// Equal in every field; destinations are compared by value, in order.
bool operator==(const CTask& a, const CTask& b);

using CTaskPtr = boost::shared_ptr<CTask>;

// Returns whether a destination of one of the tasks has a type that passes the test.
bool AnyDst(const std::vector<CTaskPtr>& tasks, bool (*test)(DstType));

// What no ID may contain.
inline constexpr std::wstring_view kBadIdCharacters = L"/?:*\"><|";

// The rules of an ID by itself: throws IDS_ID_EMPTY or IDS_ID_BAD_CHARACTER. A backslash is allowed: it
// makes a subfolder in the destination.
void CheckId(std::wstring_view id);

// What must hold when a task is confirmed: throws IDS_PATH_EMPTY or what CheckId throws.
void CheckTask(const CTask& task);

}  // namespace qlm
