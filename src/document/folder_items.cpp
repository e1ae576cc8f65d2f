#include "document/folder_items.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "document/document_limits.h"
#include "support/exception.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {

CRows AddFolderTasks(CDocument& document, std::ptrdiff_t position, const std::vector<std::wstring>& folders,
                     const CTaskDsts& dsts) {
  CRows rows;
  document.Edit(IDS_EDIT_ADD_TASK, DocChangeEventFlags::CHNAGE_TASKS, [&](CContent& content) {
    size_t row = InsertRow(position, content.tasks.size());
    for (const std::wstring& folder : folders) {
      const auto task = boost::make_shared<CTask>();
      task->id = FolderTaskId(content.tasks, folder);
      task->path = folder;
      task->dsts = dsts;
      CheckTask(*task);
      content.tasks.Insert(row, task);
      rows.push_back(row++);
    }
    return !rows.empty();
  });
  return rows;
}

std::wstring FolderTaskId(const CTasks& tasks, const std::wstring& folderPath) {
  std::wstring_view path = folderPath;
  while (!path.empty() && my::IsSeparator(path.back())) path.remove_suffix(1);
  std::wstring id(my::LastComponent(path));
  if (id.ends_with(L':')) id.pop_back();
  const auto isBad = [](wchar_t c) { return kBadIdCharacters.find(c) != std::wstring_view::npos; };
  std::replace_if(id.begin(), id.end(), isBad, L'_');
  return tasks.FreeId(id);
}

CTaskDsts NewTaskDsts(const CDocument& document, const CRows& selectedTasks) {
  const CTasks& tasks = document.Tasks();
  if (!selectedTasks.empty() && selectedTasks.back() < tasks.size()) {
    const CTaskDsts& dsts = tasks[selectedTasks.back()]->dsts;
    if (!dsts.empty()) return dsts;
  }
  if (document.Dsts().size() != 1) return {};
  return {document.Dsts()[0]};
}

CRows AddFolderDsts(CDocument& document, std::ptrdiff_t position, const std::vector<std::wstring>& folders,
                    const CRows& users) {
  CRows rows;
  const auto what = DocChangeEventFlags::CHNAGE_DSTS | DocChangeEventFlags::CHNAGE_TASKS;
  document.Edit(IDS_EDIT_ADD_DST, what, [&](CContent& content) {
    size_t row = InsertRow(position, content.dsts.size());
    for (const std::wstring& folder : folders) {
      const auto dst = boost::make_shared<CDst>();
      dst->folder = folder;
      CheckDst(*dst);
      if (content.dsts.FindEqual(*dst)) continue;
      CheckRoom(content.dsts);
      content.dsts.Insert(row, dst);
      AddUse(content, users, dst);
      rows.push_back(row++);
    }
    if (rows.empty() && !folders.empty()) throw my::CException(IDS_DST_DUPLICATE);
    return !rows.empty();
  });
  return rows;
}

}  // namespace qlm
