#include "app/drop_command.h"

#include <algorithm>

#include "app/document_commands.h"
#include "app/windows.h"
#include "document/document_edits.h"
#include "document/file_formats.h"
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
  for (const std::wstring& path : m_paths) Drop(path);
}

void CCommandDrop::Drop(const std::wstring& path) {
  CDocument& document = m_context.document;
  IEditList& tasks = m_context.window.TaskList();
  if (my::KindIfKnown(m_context.ports.engine.files, path) == my::PathKind::Folder) {
    tasks.Select({AddFolderTask(document, PositionAfterSelection(tasks), path)});
  } else if (IsOneOf(kFilterFormats, path)) {
    if (!m_taskRow) throw CListException(IDS_DROP_FILTER_ON_TASK, tasks);
    SetTaskFilter(document, *m_taskRow, path);
  } else if (IsOneOf(kFileFormats, path)) {
    CCommandOpen(m_context, m_append, path).Execute(true);
  } else {
    throw my::CException(IDS_DROP_UNKNOWN, {path});
  }
}

}  // namespace qlm
