#include "app/edit_commands.h"

#include <algorithm>
#include <numeric>

#include "app/drop_command.h"
#include "app/messenger.h"
#include "document/document.h"
#include "document/document_clip.h"
#include "document/document_edits.h"
#include "document/duplicate_items.h"
#include "document/folder_items.h"
#include "platform/file_system.h"
#include "text_ids.h"

namespace qlm {
namespace {

// One list and the objects that its edits need.
class CListEdit {
 public:
  CListEdit(CAppContext& context, ListKind kind)
      : m_context(context),
        m_document(context.document),
        m_kind(kind),
        m_list(ListOf(context.window, kind)) {}

  bool HasSubject(EditAction action) const;
  void Run(EditAction action);
  void MoveBefore(size_t before);

 private:
  bool IsTasks() const { return m_kind == ListKind::Tasks; }
  size_t Size() const { return IsTasks() ? m_document.Tasks().size() : m_document.Dsts().size(); }

  void Add();
  void Edit();
  void Duplicate();
  void Remove();
  void StepRows(Step step);
  void Copy() const;
  void Paste();
  void PastePaths();
  void SelectAll();

  CAppContext& m_context;
  CDocument& m_document;
  ListKind m_kind;
  IEditList& m_list;
};

// Returns the row to select after these rows were removed.
CRows RowAfter(const CRows& removed, size_t sizeAfter) {
  if (removed.empty() || sizeAfter == 0) return {};
  return {std::min(removed.front(), sizeAfter - 1)};
}

bool ChangesDocument(EditAction action) {
  return action != EditAction::Copy && action != EditAction::SelectAll;
}

bool CListEdit::HasSubject(EditAction action) const {
  switch (action) {
    case EditAction::Add: return true;
    case EditAction::SelectAll: return Size() != 0;
    case EditAction::Paste:
      return m_context.ports.clipboard.HasDocument() || m_context.ports.clipboard.HasPathsOrText();
    case EditAction::Edit: return m_list.FocusedRow().has_value();
    default: return m_list.AnySelected();
  }
}

void CListEdit::Run(EditAction action) {
  switch (action) {
    case EditAction::Add: return Add();
    case EditAction::Edit: return Edit();
    case EditAction::Duplicate: return Duplicate();
    case EditAction::Remove: return Remove();
    case EditAction::Up: return StepRows(Step::Up);
    case EditAction::Down: return StepRows(Step::Down);
    case EditAction::Cut: Copy(); return Remove();
    case EditAction::Copy: return Copy();
    case EditAction::Paste: return Paste();
    case EditAction::SelectAll: return SelectAll();
  }
}

void CListEdit::Add() {
  const std::ptrdiff_t position = PositionAfterSelection(m_list);
  const CRows selected = m_context.window.TaskList().SelectedRows();
  if (!IsTasks()) {
    m_context.dialogs.EditDst(
        {}, [&](const CDst& dst) { m_list.Select({InsertDst(m_document, position, dst, selected)}); });
    return;
  }
  CTask task;
  task.dsts = NewTaskDsts(m_document, selected);
  m_context.dialogs.EditTask(
      task, [&](const CTask& edited) { m_list.Select({InsertTask(m_document, position, edited)}); });
}

void CListEdit::Edit() {
  const auto row = m_list.FocusedRow();
  if (!row || *row >= Size()) return;
  if (IsTasks())
    m_context.dialogs.EditTask(*m_document.Tasks()[*row],
                               [&](const CTask& task) { ReplaceTask(m_document, *row, task); });
  else
    m_context.dialogs.EditDst(*m_document.Dsts()[*row],
                              [&](const CDst& dst) { ReplaceDst(m_document, *row, dst); });
}

void CListEdit::Duplicate() {
  const CRows rows = m_list.SelectedRows();
  m_list.Select(IsTasks() ? DuplicateTasks(m_document, rows) : DuplicateDsts(m_document, rows));
}

void CListEdit::Remove() {
  const CRows rows = m_list.SelectedRows();
  if (IsTasks()) {
    RemoveTasks(m_document, rows);
  } else {
    const size_t users = CountUsers(m_document, rows);
    if (users != 0 && !m_context.messenger.Ask(IDS_ASK_DELETE_DSTS, {std::to_wstring(users)})) return;
    RemoveDsts(m_document, rows);
  }
  m_list.Select(RowAfter(rows, Size()));
}

void CListEdit::StepRows(Step step) {
  const CRows rows = m_list.SelectedRows();
  m_list.Select(IsTasks() ? StepTasks(m_document, rows, step) : StepDsts(m_document, rows, step));
}

void CListEdit::MoveBefore(size_t before) {
  const CRows rows = m_list.SelectedRows();
  const auto position = static_cast<std::ptrdiff_t>(before);
  m_list.Select(IsTasks() ? MoveTasks(m_document, rows, position) : MoveDsts(m_document, rows, position));
}

void CListEdit::Copy() const {
  const CRows rows = m_list.SelectedRows();
  const CAppPorts& ports = m_context.ports;
  ports.clipboard.Set(IsTasks() ? CopyTasks(ports.dom, m_document, rows)
                                : CopyDsts(ports.dom, ports.engine.texts, m_document, rows));
}

void CListEdit::Paste() {
  const auto clip = m_context.ports.clipboard.Document();
  if (!clip) return PastePaths();
  my::IXmlDom& dom = m_context.ports.dom;
  const std::ptrdiff_t position = PositionAfterSelection(m_list);
  const CRows users = m_context.window.TaskList().SelectedRows();
  const CRows rows = IsTasks() ? PasteTasks(dom, m_document, *clip, position)
                               : PasteDsts(dom, m_document, *clip, position, users);
  if (!rows.empty()) m_list.Select(rows);
}

void CListEdit::PastePaths() {
  IClipboard& clipboard = m_context.ports.clipboard;
  std::vector<std::wstring> paths = clipboard.Paths();
  if (paths.empty()) paths = PathsInText(clipboard.Text());
  std::erase_if(paths, [&](const std::wstring& path) {
    return my::KindIfKnown(m_context.ports.engine.files, path) != my::PathKind::Folder;
  });
  if (paths.empty()) throw my::CException(IDS_PASTE_NO_FOLDER);
  AddFolders(m_context, m_kind, paths);
}

void CListEdit::SelectAll() {
  CRows all(Size());
  std::iota(all.begin(), all.end(), size_t{0});
  m_list.Select(all);
}

}  // namespace

void CCommandEdit::Execute(bool run) {
  if (ChangesDocument(m_action)) RefuseDuringReplace(m_context);
  CListEdit edit(m_context, m_list.value_or(m_context.window.CurrentList()));
  const bool hasSubject = edit.HasSubject(m_action);
  if (run && hasSubject) edit.Run(m_action);
  if (!run && !hasSubject) throw my::CException(IDS_NO_ITEM_SELECTED);
}

void CCommandHistory::Execute(bool run) {
  RefuseDuringReplace(m_context);
  CDocument& document = m_context.document;
  const bool undo = m_step == HistoryStep::Undo;
  if (!run && !(undo ? document.CanUndo() : document.CanRedo())) throw my::CException(IDS_NO_ITEM_SELECTED);
  if (run && undo) document.Undo();
  if (run && !undo) document.Redo();
}

void CCommandToggleUse::Execute(bool run) {
  RefuseDuringReplace(m_context);
  IListState& list = m_context.window.TaskList();
  const CRows tasks = list.SelectedRows();
  if (tasks.empty()) throw CListException(IDS_NO_TASK_SELECTED, list);
  CDocument& document = m_context.document;
  if (run) SetUse(document, tasks, m_dst, UseOf(document, tasks, m_dst) != DstUse::All);
}

void CCommandMoveRows::Execute(bool run) {
  RefuseDuringReplace(m_context);
  if (run) CListEdit(m_context, m_list).MoveBefore(m_before);
}

}  // namespace qlm
