#include "document/duplicate_items.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <numeric>
#include <string>

#include "document/document_limits.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

CRows Range(size_t first, size_t count) {
  CRows rows(count);
  std::iota(rows.begin(), rows.end(), first);
  return rows;
}

// Returns a copy of the destination, with a number in the pattern if needed to differ from the others.
CDstPtr NumberedCopy(const CDst& dst, const CDsts& others) {
  auto copy = boost::make_shared<CDst>(dst);
  const auto [stem, extension] = my::SplitExtension(my::LastComponent(dst.pattern));
  const size_t stemEnd = stem.data() + stem.size() - dst.pattern.data();
  for (int number = 2; others.FindEqual(*copy); ++number) {
    copy->pattern = dst.pattern;
    copy->pattern.insert(stemEnd, L"_" + std::to_wstring(number));
  }
  return copy;
}

}  // namespace

CRows DuplicateTasks(CDocument& document, const CRows& rows) {
  if (rows.empty()) return {};
  const size_t first = rows.back() + 1;
  document.Edit(IDS_EDIT_DUPLICATE_TASKS, DocChangeEventFlags::CHNAGE_TASKS, [&](CContent& content) {
    size_t to = first;
    for (const size_t row : rows) {
      const auto copy = boost::make_shared<CTask>(*content.tasks[row]);
      copy->id = content.tasks.FreeId(copy->id);
      content.tasks.Insert(to++, copy);
    }
    return true;
  });
  return Range(first, rows.size());
}

CRows DuplicateDsts(CDocument& document, const CRows& rows) {
  if (rows.empty()) return {};
  const size_t first = rows.back() + 1;
  document.Edit(IDS_EDIT_DUPLICATE_DSTS, DocChangeEventFlags::CHNAGE_DSTS, [&](CContent& content) {
    size_t to = first;
    for (const size_t row : rows) {
      CheckRoom(content.dsts);
      content.dsts.Insert(to++, NumberedCopy(*content.dsts[row], content.dsts));
    }
    return true;
  });
  return Range(first, rows.size());
}

}  // namespace qlm
