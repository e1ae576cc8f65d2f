#include "ui/models/edit_actions.h"

#include <numeric>

#include "app/document_commands.h"
#include "app/messenger.h"
#include "app/replace_tool.h"
#include "document/document.h"
#include "platform/file_system.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

bool HasExtension(const std::wstring& path, std::wstring_view extension) {
  return my::EqualNoCase(my::SplitExtension(my::LastComponent(path)).extension, extension);
}

// Where the focus goes when these rows are gone.
CRows RowAfter(const CRows& removed, size_t sizeAfter) {
  if (removed.empty() || sizeAfter == 0) return {};
  return {std::min(removed.front(), sizeAfter - 1)};
}

}  // namespace

bool CEditActions::MayEdit() const {
  return !m_context.replace.IsOpen();
}

size_t CEditActions::SizeOf(ListKind list) const {
  return list == ListKind::TASKS ? m_context.document.Tasks().size() : m_context.document.Dsts().size();
}

// Behind the last selected row.
std::ptrdiff_t CEditActions::InsertPosition(ListKind list) const {
  const CRows rows = ListOf(list).SelectedRows();
  return rows.empty() ? -1 : static_cast<std::ptrdiff_t>(rows.back()) + 1;
}

bool CEditActions::IsEnabled(ListKind list, EditAction action) const {
  const bool any = ListOf(list).AnySelected();
  switch (action) {
    case EditAction::ADD: return MayEdit();
    case EditAction::COPY: return any;
    case EditAction::SELECT_ALL: return SizeOf(list) != 0;
    case EditAction::PASTE: return MayEdit() && m_clipboard.HasDocument();
    case EditAction::EDIT: return MayEdit() && ListOf(list).FocusedRow().has_value();
    default: return MayEdit() && any;
  }
}

void CEditActions::Do(ListKind list, EditAction action) {
  if (action != EditAction::COPY && action != EditAction::SELECT_ALL) RefuseDuringReplace(m_context);
  switch (action) {
    case EditAction::ADD: return Add(list);
    case EditAction::EDIT: return Edit(list);
    case EditAction::DUPLICATE: return Duplicate(list);
    case EditAction::REMOVE: return Remove(list);
    case EditAction::UP: return StepRows(list, Step::UP);
    case EditAction::DOWN: return StepRows(list, Step::DOWN);
    case EditAction::CUT: Copy(list); return Remove(list);
    case EditAction::COPY: return Copy(list);
    case EditAction::PASTE: return Paste(list);
    case EditAction::SELECT_ALL: {
      CRows all(SizeOf(list));
      std::iota(all.begin(), all.end(), size_t{0});
      return ListOf(list).Select(all);
    }
  }
}

bool CEditActions::CanUndo() const {
  return MayEdit() && m_context.document.CanUndo();
}

bool CEditActions::CanRedo() const {
  return MayEdit() && m_context.document.CanRedo();
}

void CEditActions::Undo() {
  RefuseDuringReplace(m_context);
  m_context.document.Undo();
}

void CEditActions::Redo() {
  RefuseDuringReplace(m_context);
  m_context.document.Redo();
}

void CEditActions::Add(ListKind list) {
  CDocument& document = m_context.document;
  const std::ptrdiff_t position = InsertPosition(list);
  if (list == ListKind::DSTS) {
    m_dialogs.EditDst({}, [&](const CDst& dst) { m_dsts.Select({InsertDst(document, position, dst)}); });
    return;
  }
  CTask task;  // goes where the other tasks go, when there is but one place
  if (document.Dsts().size() == 1) task.dsts = {document.Dsts()[0]};
  m_dialogs.EditTask(task,
                     [&](const CTask& edited) { m_tasks.Select({InsertTask(document, position, edited)}); });
}

void CEditActions::Edit(ListKind list) {
  CDocument& document = m_context.document;
  const auto row = ListOf(list).FocusedRow();
  if (!row || *row >= SizeOf(list)) return;
  if (list == ListKind::TASKS)
    m_dialogs.EditTask(*document.Tasks()[*row],
                       [&](const CTask& task) { ReplaceTask(document, *row, task); });
  else
    m_dialogs.EditDst(*document.Dsts()[*row], [&](const CDst& dst) { ReplaceDst(document, *row, dst); });
}

void CEditActions::Duplicate(ListKind list) {
  const CRows rows = ListOf(list).SelectedRows();
  if (rows.empty()) return;
  CDocument& document = m_context.document;
  ListOf(list).Select(list == ListKind::TASKS ? DuplicateTasks(document, rows)
                                              : DuplicateDsts(document, rows));
}

void CEditActions::Remove(ListKind list) {
  const CRows rows = ListOf(list).SelectedRows();
  CDocument& document = m_context.document;
  if (list == ListKind::TASKS) {
    RemoveTasks(document, rows);
  } else {
    const size_t users = CountUsers(document, rows);
    if (users != 0 && !m_context.messenger.Ask(IDS_ASK_DELETE_DSTS, {std::to_wstring(users)})) return;
    RemoveDsts(document, rows);
  }
  ListOf(list).Select(RowAfter(rows, SizeOf(list)));
}

void CEditActions::StepRows(ListKind list, Step step) {
  const CRows rows = ListOf(list).SelectedRows();
  CDocument& document = m_context.document;
  ListOf(list).Select(list == ListKind::TASKS ? StepTasks(document, rows, step)
                                              : StepDsts(document, rows, step));
}

void CEditActions::MoveBefore(ListKind list, size_t before) {
  RefuseDuringReplace(m_context);
  const CRows rows = ListOf(list).SelectedRows();
  CDocument& document = m_context.document;
  const auto position = static_cast<std::ptrdiff_t>(before);
  ListOf(list).Select(list == ListKind::TASKS ? MoveTasks(document, rows, position)
                                              : MoveDsts(document, rows, position));
}

void CEditActions::Copy(ListKind list) {
  const CRows rows = ListOf(list).SelectedRows();
  if (rows.empty()) return;
  const CAppPorts& ports = m_context.ports;
  const CDocument& document = m_context.document;
  m_clipboard.Set(list == ListKind::TASKS ? CopyTasks(ports.dom, document, rows)
                                          : CopyDsts(ports.dom, ports.engine.texts, document, rows));
}

void CEditActions::Paste(ListKind list) {
  const auto clip = m_clipboard.Document();
  if (!clip) return;
  my::IXmlDom& dom = m_context.ports.dom;
  CDocument& document = m_context.document;
  const std::ptrdiff_t position = InsertPosition(list);
  const CRows rows = list == ListKind::TASKS ? PasteTasks(dom, document, *clip, position)
                                             : PasteDsts(dom, document, *clip, position);
  if (!rows.empty()) ListOf(list).Select(rows);
}

void CEditActions::ToggleUse(size_t dst) {
  RefuseDuringReplace(m_context);
  const CRows tasks = m_tasks.SelectedRows();
  if (tasks.empty()) throw CListException(IDS_NO_TASK_SELECTED, m_tasks);
  SetUse(m_context.document, tasks, dst, UseOf(m_context.document, tasks, dst) != DstUse::ALL);
}

void CEditActions::DropPaths(const std::vector<std::wstring>& paths, std::optional<size_t> taskRow,
                             bool append) {
  for (const std::wstring& path : paths) DropPath(path, taskRow, append);
}

void CEditActions::DropPath(const std::wstring& path, std::optional<size_t> taskRow, bool append) {
  RefuseDuringReplace(m_context);
  CDocument& document = m_context.document;
  if (my::KindIfKnown(m_context.ports.engine.files, path) == my::PathKind::FOLDER) {
    m_tasks.Select({AddFolderTask(document, InsertPosition(ListKind::TASKS), path)});
  } else if (HasExtension(path, L"flt") || HasExtension(path, L"txt")) {
    if (!taskRow) throw CListException(IDS_DROP_FILTER_ON_TASK, m_tasks);
    SetTaskFilter(document, *taskRow, path);
  } else if (HasExtension(path, L"qlmr") || HasExtension(path, L"xml")) {
    CCommandOpen(m_context, append, path).Execute(true);
  } else {
    throw my::CException(IDS_DROP_UNKNOWN, {path});
  }
}

}  // namespace qlm
