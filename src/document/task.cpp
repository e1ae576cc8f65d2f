#include "document/task.h"

#include <algorithm>

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {

bool operator==(const CTask& a, const CTask& b) {
  const auto sameDst = [](const CDstPtr& x, const CDstPtr& y) { return x == y || *x == *y; };
  return a.id == b.id && a.path == b.path && a.filterPath == b.filterPath && a.replaceRule == b.replaceRule &&
         std::equal(a.dsts.begin(), a.dsts.end(), b.dsts.begin(), b.dsts.end(), sameDst);
}

bool AnyDst(const std::vector<CTaskPtr>& tasks, bool (*test)(DstType)) {
  return std::ranges::any_of(tasks, [test](const CTaskPtr& task) {
    return std::ranges::any_of(task->dsts, [test](const CDstPtr& dst) { return test(dst->type); });
  });
}

void CheckId(std::wstring_view id) {
  if (id.empty()) throw my::CException(IDS_ID_EMPTY);
  if (id.find_first_of(kBadIdCharacters) != id.npos) throw my::CException(IDS_ID_BAD_CHARACTER);
}

void CheckTask(const CTask& task) {
  if (task.path.empty()) throw my::CException(IDS_PATH_EMPTY);
  CheckId(task.id);
}

}  // namespace qlm
