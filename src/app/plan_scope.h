#pragma once

#include <cstddef>
#include <vector>

#include "document/document.h"

namespace qlm {

// The tasks of a plan with the destinations that they use, as they were when the plan was requested. The
// items are copies, so another thread may read them while the document is edited.
struct CPlanScope {
  CContent content;
  std::vector<size_t> taskRows;  // in the document, of each task
  std::vector<size_t> dstRows;   // in the document, of each destination
};

// `tasks` are rows of the content, ascending.
CPlanScope MakePlanScope(const CContent& content, const std::vector<size_t>& tasks);

}  // namespace qlm
