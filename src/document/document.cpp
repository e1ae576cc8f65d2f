#include "document/document.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <limits>

#include "resource.h"
#include "support/exception.h"

namespace qlm {
namespace {

constexpr std::wstring_view kChangeNames[] = {L"RESET", L"CHNAGE_PATH", L"CHNAGE_TASKS", L"CHNAGE_DSTS"};

// The ID itself, or the ID with the first number from 2 on that makes it free.
std::wstring FreeId(const CTasks& tasks, const std::wstring& id) {
  std::wstring candidate = id;
  for (int32_t n = 1; tasks.FindId(candidate);) {
    if (n == std::numeric_limits<int32_t>::max()) throw my::CException(IDS_ID_NUMBERS_EXHAUSTED);
    candidate = id + std::to_wstring(++n);
  }
  return candidate;
}

// A copy of the task that uses the equal destinations of the list.
CTaskPtr CopyOnto(const CTask& task, const CDsts& dsts) {
  auto copy = boost::make_shared<CTask>();
  copy->id = task.id;
  copy->path = task.path;
  copy->filterPath = task.filterPath;
  for (const CDstPtr& dst : task.dsts) {
    CDstPtr own = dsts.FindEqual(*dst);
    if (!own) throw my::CException(IDS_INTERNAL_ERROR, {L"A dst of task is not found in commonDsts"});
    copy->dsts.push_back(std::move(own));
  }
  return copy;
}

}  // namespace

const my::CEnumTable kDocChangeEventNames{L"DocChangeEventFlags", kChangeNames};

void CDsts::Insert(std::ptrdiff_t position, CDstPtr dst) {
  if (FindEqual(*dst)) throw my::CException(IDS_DST_DUPLICATE);
  InsertAt(position, std::move(dst));
}

std::ptrdiff_t CDsts::IndexOf(const CDstPtr& dst) const {
  const auto found = std::find(begin(), end(), dst);
  return found == end() ? -1 : found - begin();
}

void CTasks::Insert(std::ptrdiff_t position, CTaskPtr task) {
  CheckId(task->id);
  if (FindId(task->id)) throw my::CException(IDS_ID_DUPLICATE);
  InsertAt(position, std::move(task));
}

CTaskPtr CTasks::FindId(const std::wstring& id) const {
  return FindIf([&id](const CTask& task) { return task.id == id; });
}

bool CDocument::Merge(const CDocument& source, std::ptrdiff_t position) {
  CDsts dsts = m_dsts;
  CTasks tasks = m_tasks;
  if (position < 0 || position > static_cast<std::ptrdiff_t>(tasks.size())) {
    position = static_cast<std::ptrdiff_t>(tasks.size());
  }
  for (const CDstPtr& dst : source.Dsts()) {
    if (!dsts.FindEqual(*dst)) dsts.Insert(-1, boost::make_shared<CDst>(*dst));
  }
  for (const CTaskPtr& task : source.Tasks()) {
    CTaskPtr copy = CopyOnto(*task, dsts);
    if (tasks.FindEqual(*copy)) continue;
    copy->id = FreeId(tasks, copy->id);
    tasks.Insert(position++, std::move(copy));
  }
  const bool added = dsts.size() != m_dsts.size() || tasks.size() != m_tasks.size();
  m_dsts = std::move(dsts);
  m_tasks = std::move(tasks);
  return added;
}

void CDocument::NotifyChange(DocChangeEventFlags flags) const {
  for (const Listener& listener : m_listeners) listener(flags);
}

}  // namespace qlm
