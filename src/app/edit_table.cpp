#include "app/edit_table.h"

#include "command_ids.h"

namespace qlm {
namespace {

// In the order of their ids.
constexpr EditAction kItemEdits[] = {EditAction::Add,    EditAction::Edit, EditAction::Duplicate,
                                     EditAction::Remove, EditAction::Up,   EditAction::Down};

template <class TCommand>
CCommand* FindIn(std::map<uint32_t, TCommand>& commands, uint32_t id) {
  const auto found = commands.find(id);
  return found == commands.end() ? nullptr : &found->second;
}

}  // namespace

CEditTable::CEditTable(CAppContext& context)
    : m_views{{ID_RESULTS, {context, &OpenResults}},       {ID_HISTORY, {context, &OpenHistory}},
              {ID_FILTER_CHECK, {context, &CheckFilter}},  {ID_ABOUT, {context, &ShowAbout}},
              {ID_OTHER_PANE, {context, &FocusOtherList}}, {ID_FULL_SCREEN, {context, &ToggleFullScreen}},
              {ID_QUIT, {context, &CloseWindow}}},
      m_undo(context, HistoryStep::Undo),
      m_redo(context, HistoryStep::Redo) {
  AddItemEdits(context, ID_ITEM_ADD, {});
  AddItemEdits(context, ID_TASK_ADD, ListKind::Tasks);
  AddItemEdits(context, ID_DST_ADD, ListKind::Dsts);
  for (const auto& [id, action] :
       {std::pair(ID_CUT, EditAction::Cut), std::pair(ID_COPY, EditAction::Copy),
        std::pair(ID_PASTE, EditAction::Paste), std::pair(ID_SELECT_ALL, EditAction::SelectAll)})
    m_edits.try_emplace(static_cast<uint32_t>(id), context, action, std::nullopt);
}

void CEditTable::AddItemEdits(CAppContext& context, uint32_t firstId, std::optional<ListKind> list) {
  uint32_t id = firstId;
  for (const EditAction action : kItemEdits) m_edits.try_emplace(id++, context, action, list);
}

CCommand* CEditTable::Find(uint32_t id) {
  if (id == ID_UNDO) return &m_undo;
  if (id == ID_REDO) return &m_redo;
  if (CCommand* edit = FindIn(m_edits, id)) return edit;
  return FindIn(m_views, id);
}

}  // namespace qlm
