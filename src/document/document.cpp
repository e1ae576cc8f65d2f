#include "document/document.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <limits>

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Maximum number of undo steps.
constexpr size_t kMostSteps = 500;

// Returns a copy of the task that refers to the equal destinations in the list.
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

// Returns whether anything was added.
bool AddMissing(CContent& content, const CContent& source, std::ptrdiff_t position) {
  const size_t before = content.dsts.size() + content.tasks.size();
  size_t row = InsertRow(position, content.tasks.size());
  for (const CDstPtr& dst : source.dsts) {
    if (!content.dsts.FindEqual(*dst)) content.dsts.Append(boost::make_shared<CDst>(*dst));
  }
  for (const CTaskPtr& task : source.tasks) {
    CTaskPtr copy = CopyOnto(*task, content.dsts);
    if (content.tasks.FindEqual(*copy)) continue;
    copy->id = content.tasks.FreeId(copy->id);
    content.tasks.Insert(row++, std::move(copy));
  }
  return content.dsts.size() + content.tasks.size() != before;
}

}  // namespace

void CDsts::Insert(size_t row, CDstPtr dst) {
  if (FindEqual(*dst)) throw my::CException(IDS_DST_DUPLICATE);
  InsertAt(row, std::move(dst));
}

void CDsts::Replace(size_t index, CDstPtr dst) {
  for (size_t i = 0; i < size(); ++i) {
    if (i != index && *(*this)[i] == *dst) throw my::CException(IDS_DST_DUPLICATE);
  }
  Set(index, std::move(dst));
}

void CTasks::Insert(size_t row, CTaskPtr task) {
  if (FindId(task->id)) throw my::CException(IDS_ID_DUPLICATE);
  InsertAt(row, std::move(task));
}

CTaskPtr CTasks::FindId(const std::wstring& id) const {
  return FindIf([&id](const CTask& task) { return task.id == id; });
}

void CTasks::Replace(size_t index, CTaskPtr task) {
  const CTaskPtr sameId = FindId(task->id);
  if (sameId && sameId != (*this)[index]) throw my::CException(IDS_ID_DUPLICATE);
  Set(index, std::move(task));
}

std::wstring CTasks::FreeId(const std::wstring& id) const {
  std::wstring candidate = id;
  for (int32_t n = 1; FindId(candidate);) {
    if (n == std::numeric_limits<int32_t>::max()) throw my::CException(IDS_ID_NUMBERS_EXHAUSTED);
    candidate = id + std::to_wstring(++n);
  }
  return candidate;
}

bool CDocument::Edit(uint32_t nameId, DocChangeEventFlags what,
                     const std::function<bool(CContent&)>& change) {
  CContent changed = m_content;
  if (!change(changed)) return false;
  m_undo.push_back({std::move(m_content), m_revision, nameId});
  if (m_undo.size() > kMostSteps) m_undo.pop_front();
  m_redo.clear();
  m_content = std::move(changed);
  m_revision = ++m_lastRevision;
  NotifyChange(what);
  return true;
}

bool CDocument::Merge(const CContent& source, std::ptrdiff_t position) {
  const auto everything = DocChangeEventFlags::CHNAGE_TASKS | DocChangeEventFlags::CHNAGE_DSTS;
  return Edit(IDS_EDIT_MERGE, everything,
              [&](CContent& content) { return AddMissing(content, source, position); });
}

void CDocument::Restore(std::deque<CStep>& from, std::deque<CStep>& to) {
  if (from.empty()) return;
  to.push_back({std::move(m_content), m_revision, from.back().nameId});
  m_content = std::move(from.back().content);
  m_revision = from.back().revision;
  from.pop_back();
  NotifyChange(DocChangeEventFlags::CHNAGE_TASKS | DocChangeEventFlags::CHNAGE_DSTS);
}

void CDocument::Undo() {
  Restore(m_undo, m_redo);
}

void CDocument::Redo() {
  Restore(m_redo, m_undo);
}

void CDocument::Reset(CContent content, std::wstring path) {
  m_content = std::move(content);
  m_path = std::move(path);
  m_undo.clear();
  m_redo.clear();
  m_revision = m_savedRevision = ++m_lastRevision;
  NotifyChange(DocChangeEventFlags::RESET);
}

void CDocument::SetSaved(std::wstring path) {
  m_path = std::move(path);
  m_savedRevision = m_revision;
  NotifyChange(DocChangeEventFlags::CHNAGE_PATH);
}

void CDocument::NotifyChange(DocChangeEventFlags flags) const {
  for (const Listener& listener : m_listeners) listener(flags);
}

}  // namespace qlm
