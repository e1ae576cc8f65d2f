// The commands that edit the two lists of the document.
#pragma once

#include <cstddef>
#include <optional>

#include "app/command.h"
#include "app/windows.h"

namespace qlm {

enum class EditAction { Add, Edit, Duplicate, Remove, Up, Down, Cut, Copy, Paste, SelectAll };

// Edits the selected rows of a list, or the focused one. If there is nothing to edit, Execute(true) does
// nothing and Execute(false) throws IDS_NO_ITEM_SELECTED.
class CCommandEdit final : public CCommand {
 public:
  // Without `list`, edits the list that has the focus when the command is executed.
  CCommandEdit(CAppContext& context, EditAction action, std::optional<ListKind> list)
      : CCommand(context), m_action(action), m_list(list) {}

  // Throws IDS_REFUSED_DURING_REPLACE, or the reason why the document refuses the edit.
  void Execute(bool run) override;

 private:
  EditAction m_action;
  std::optional<ListKind> m_list;
};

enum class HistoryStep { Undo, Redo };

class CCommandHistory final : public CCommand {
 public:
  CCommandHistory(CAppContext& context, HistoryStep step) : CCommand(context), m_step(step) {}

  // Throws IDS_REFUSED_DURING_REPLACE. Without an undo or redo step it behaves like CCommandEdit with nothing
  // to edit.
  void Execute(bool run) override;

 private:
  HistoryStep m_step;
};

// Makes all selected tasks use a destination, or none of them if all did before.
class CCommandToggleUse final : public CCommand {
 public:
  CCommandToggleUse(CAppContext& context, size_t dst) : CCommand(context), m_dst(dst) {}

  // Throws IDS_REFUSED_DURING_REPLACE, or CListException with IDS_NO_TASK_SELECTED.
  void Execute(bool run) override;

 private:
  size_t m_dst;
};

// Moves the selected rows of a list before the row at a position.
class CCommandMoveRows final : public CCommand {
 public:
  CCommandMoveRows(CAppContext& context, ListKind list, size_t before)
      : CCommand(context), m_list(list), m_before(before) {}

  void Execute(bool run) override;  // throws IDS_REFUSED_DURING_REPLACE

 private:
  ListKind m_list;
  size_t m_before;
};

}  // namespace qlm
