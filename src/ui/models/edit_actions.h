// What the windows do to the document at the user's hand, on either of its two lists. GUI thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/command.h"
#include "app/windows.h"
#include "document/document_clip.h"
#include "document/document_edits.h"

namespace qlm {

// A list that the user edits.
class IEditList : public IListState {
 public:
  virtual bool AnySelected() const = 0;  // cheap

  // Selects these rows and no others, and shows the first of them with the focus on it.
  virtual void Select(const CRows& rows) = 0;
};

// The dialogs of one item. `confirm` takes what the user made of it, and throws what is wrong with that; then
// the dialog tells it and stays.
class IItemDialogs {
 public:
  virtual ~IItemDialogs() = default;
  virtual void EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) = 0;
  virtual void EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) = 0;
};

class IClipboard {
 public:
  virtual ~IClipboard() = default;
  virtual void Set(const CClip& clip) = 0;
  virtual std::optional<std::string> Document() = 0;  // of a CClip
  virtual bool HasDocument() const = 0;               // cheap
};

enum class ListKind { TASKS, DSTS };
enum class EditAction { ADD, EDIT, DUPLICATE, REMOVE, UP, DOWN, CUT, COPY, PASTE, SELECT_ALL };

class CEditActions {
 public:
  // All of it outlives the actions.
  CEditActions(CAppContext& context, IEditList& tasks, IEditList& dsts, IItemDialogs& dialogs,
               IClipboard& clipboard)
      : m_context(context), m_tasks(tasks), m_dsts(dsts), m_dialogs(dialogs), m_clipboard(clipboard) {}

  // Does it to the selected rows. Throws IDS_REFUSED_DURING_REPLACE, or what the edit throws; then the
  // document is as it was.
  void Do(ListKind list, EditAction action);
  bool IsEnabled(ListKind list, EditAction action) const;

  void Undo();
  void Redo();
  bool CanUndo() const;
  bool CanRedo() const;

  // The box of a destination was clicked: all selected tasks use it from now on, or if they did, none.
  void ToggleUse(size_t dst);

  // The selected rows were dragged before the row at that position.
  void MoveBefore(ListKind list, size_t before);

  // Files from outside, dropped on the row of a task or elsewhere: a folder becomes a task, a filter file
  // that of the task, a document is opened, or with `append` added.
  void DropPaths(const std::vector<std::wstring>& paths, std::optional<size_t> taskRow, bool append);

 private:
  IEditList& ListOf(ListKind list) const { return list == ListKind::TASKS ? m_tasks : m_dsts; }
  size_t SizeOf(ListKind list) const;
  std::ptrdiff_t InsertPosition(ListKind list) const;
  bool MayEdit() const;

  void Add(ListKind list);
  void Edit(ListKind list);
  void Duplicate(ListKind list);
  void Remove(ListKind list);
  void StepRows(ListKind list, Step step);
  void Copy(ListKind list);
  void Paste(ListKind list);
  void DropPath(const std::wstring& path, std::optional<size_t> taskRow, bool append);

  CAppContext& m_context;
  IEditList& m_tasks;
  IEditList& m_dsts;
  IItemDialogs& m_dialogs;
  IClipboard& m_clipboard;
};

}  // namespace qlm
