#include "app/plan_scope.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <unordered_map>
#include <unordered_set>

namespace qlm {

CPlanScope MakePlanScope(const CContent& content, const std::vector<size_t>& tasks) {
  std::unordered_set<const CDst*> used;
  for (const size_t row : tasks) {
    for (const CDstPtr& dst : content.tasks[row]->dsts) used.insert(dst.get());
  }
  CPlanScope scope;
  std::unordered_map<const CDst*, CDstPtr> copies;
  for (size_t row = 0; row < content.dsts.size(); ++row) {
    const CDstPtr& dst = content.dsts[row];
    if (!used.contains(dst.get())) continue;
    const auto copy = boost::make_shared<CDst>(*dst);
    copies.emplace(dst.get(), copy);
    scope.content.dsts.Append(copy);
    scope.dstRows.push_back(row);
  }
  for (const size_t row : tasks) {
    const auto copy = boost::make_shared<CTask>(*content.tasks[row]);
    for (CDstPtr& dst : copy->dsts) dst = copies.at(dst.get());
    scope.content.tasks.Append(copy);
    scope.taskRows.push_back(row);
  }
  return scope;
}

}  // namespace qlm
