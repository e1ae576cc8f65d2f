#include "app/drop_command.h"

#include <algorithm>

#include "app/document_commands.h"
#include "app/windows.h"
#include "document/document_edits.h"
#include "document/file_formats.h"
#include "document/folder_items.h"
#include "platform/file_system.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

bool HasExtension(const std::wstring& path, std::wstring_view extension) {
  return my::EqualNoCase(my::SplitExtension(my::LastComponent(path)).extension, extension);
}

template <class TFormats>
bool IsOneOf(const TFormats& formats, const std::wstring& path) {
  return std::any_of(std::begin(formats), std::end(formats),
                     [&](const CFormat& format) { return HasExtension(path, format.extension); });
}

}  // namespace

void CCommandDrop::Execute(bool run) {
  RefuseDuringReplace(m_context);
  if (!run) return;
  my::IFileSystem& files = m_context.ports.engine.files;
  std::vector<std::wstring> folders;
  std::vector<std::wstring> others;
  for (const std::wstring& path : m_paths) {
    const bool isFolder = my::KindIfKnown(files, path) == my::PathKind::Folder;
    (isFolder ? folders : others).push_back(path);
  }
  if (!folders.empty()) AddFolders(m_context, m_place.list, folders);
  for (const std::wstring& path : others) Drop(path);
}

void CCommandDrop::Drop(const std::wstring& path) {
  CDocument& document = m_context.document;
  IEditList& tasks = m_context.window.TaskList();
  if (IsOneOf(kFilterFormats, path)) {
    if (!m_place.taskRow) throw CListException(IDS_DROP_FILTER_ON_TASK, tasks);
    SetTaskFilter(document, *m_place.taskRow, path);
  } else if (IsOneOf(kFileFormats, path)) {
    CCommandOpen(m_context, m_place.append, path).Execute(true);
  } else {
    throw my::CException(IDS_DROP_UNKNOWN, {path});
  }
}

void AddFolders(CAppContext& context, ListKind list, const std::vector<std::wstring>& folders) {
  CDocument& document = context.document;
  IEditList& target = ListOf(context.window, list);
  const std::ptrdiff_t position = PositionAfterSelection(target);
  const CRows selected = context.window.TaskList().SelectedRows();
  target.Select(list == ListKind::Tasks
                    ? AddFolderTasks(document, position, folders, NewTaskDsts(document, selected))
                    : AddFolderDsts(document, position, folders, selected));
}

std::vector<std::wstring> PathsInText(std::wstring_view text) {
  std::vector<std::wstring> paths;
  while (!text.empty()) {
    const size_t end = std::min(text.find(L'\n'), text.size());
    const std::wstring_view path = my::Trim(text.substr(0, end), L" \t\r\"");
    const bool full =
        my::IsOnNetwork(path) || (path.size() >= 3 && path[1] == L':' && my::IsSeparator(path[2]));
    if (full) paths.emplace_back(path);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return paths;
}

}  // namespace qlm
