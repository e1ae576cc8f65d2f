#include "document/document_clip.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <unordered_set>

#include "document/document_file.h"
#include "document/document_limits.h"
#include "platform/message_texts.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Joins the fields with tabs. Line breaks and tabs within a field become spaces.
std::wstring Line(const std::vector<std::wstring>& fields) {
  std::wstring line;
  for (size_t i = 0; i < fields.size(); ++i) {
    std::wstring field = my::OneLine(fields[i]);
    std::replace(field.begin(), field.end(), L'\t', L' ');
    line += (i == 0 ? L"" : L"\t") + field;
  }
  return line + L"\r\n";
}

std::wstring Folders(const CTask& task) {
  std::wstring folders;
  for (const CDstPtr& dst : task.dsts) folders += (folders.empty() ? L"" : L", ") + dst->folder;
  return folders;
}

struct CTaken {
  CDstPtr dst;  // object of the document
  bool isNew = false;
};

// Inserts the destination at `row` unless the list has an equal one.
CTaken TakeDst(CDsts& dsts, const CDst& dst, size_t row) {
  if (CDstPtr own = dsts.FindEqual(dst)) return {std::move(own)};
  CheckRoom(dsts);
  const auto copy = boost::make_shared<CDst>(dst);
  dsts.Insert(row, copy);
  return {copy, true};
}

}  // namespace

CClip CopyTasks(my::IXmlDom& dom, const CDocument& document, const CRows& rows) {
  CClip clip;
  CContent content;
  std::unordered_set<const CDst*> used;
  for (const size_t row : rows) {
    const CTaskPtr& task = document.Tasks()[row];
    content.tasks.Append(task);
    for (const CDstPtr& dst : task->dsts) used.insert(dst.get());
    clip.text += Line({task->id, task->path, task->filterPath, Folders(*task)});
  }
  for (const CDstPtr& dst : document.Dsts()) {
    if (used.contains(dst.get())) content.dsts.Append(dst);
  }
  clip.document = DocumentBytes(dom, content);
  return clip;
}

CClip CopyDsts(my::IXmlDom& dom, const my::IMessageTexts& texts, const CDocument& document,
               const CRows& rows) {
  CClip clip;
  CContent content;
  for (const size_t row : rows) {
    const CDstPtr& dst = document.Dsts()[row];
    content.dsts.Append(dst);
    const std::wstring type = texts.Text(kDstTypeTexts[dst->type]);
    clip.text += Line({dst->folder, type, dst->pattern});
  }
  clip.document = DocumentBytes(dom, content);
  return clip;
}

CRows PasteTasks(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position) {
  const CContent pasted = ContentFromBytes(dom, clip);
  CContent changed = document.Content();
  CRows rows;
  size_t to = InsertRow(position, changed.tasks.size());
  for (const CTaskPtr& task : pasted.tasks) {
    const auto copy = boost::make_shared<CTask>(*task);
    copy->id = changed.tasks.FreeId(copy->id);
    for (CDstPtr& dst : copy->dsts) dst = TakeDst(changed.dsts, *dst, changed.dsts.size()).dst;
    changed.tasks.Insert(to, copy);
    rows.push_back(to++);
  }
  const auto tasks = DocChangeEventFlags::CHNAGE_TASKS;
  const bool sameDsts = changed.dsts.size() == document.Dsts().size();
  const auto what = sameDsts ? tasks : tasks | DocChangeEventFlags::CHNAGE_DSTS;
  document.Edit(IDS_EDIT_PASTE_TASKS, what, [&](CContent& content) {
    content = std::move(changed);
    return !rows.empty();
  });
  return rows;
}

CRows PasteDsts(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position,
                const CRows& users) {
  const CContent pasted = ContentFromBytes(dom, clip);
  CRows rows;
  const auto dsts = DocChangeEventFlags::CHNAGE_DSTS;
  document.Edit(IDS_EDIT_PASTE_DSTS, users.empty() ? dsts : dsts | DocChangeEventFlags::CHNAGE_TASKS,
                [&](CContent& content) {
                  size_t to = InsertRow(position, content.dsts.size());
                  for (const CDstPtr& dst : pasted.dsts) {
                    const CTaken taken = TakeDst(content.dsts, *dst, to);
                    if (!taken.isNew) continue;
                    AddUse(content, users, taken.dst);
                    rows.push_back(to++);
                  }
                  if (rows.empty() && !pasted.dsts.empty()) throw my::CException(IDS_DST_DUPLICATE);
                  return !rows.empty();
                });
  return rows;
}

}  // namespace qlm
