// The edit and view commands by id. The other commands are in CCommandTable.
#pragma once

#include <map>

#include "app/edit_commands.h"
#include "app/view_commands.h"

namespace qlm {

class CEditTable {
 public:
  explicit CEditTable(CAppContext& context);

  // Returns the command with this id (ID_...); null for other ids.
  CCommand* Find(uint32_t id);

 private:
  void AddItemEdits(CAppContext& context, uint32_t firstId, std::optional<ListKind> list);

  std::map<uint32_t, CCommandEdit> m_edits;
  std::map<uint32_t, CCommandView> m_views;
  CCommandHistory m_undo;
  CCommandHistory m_redo;
};

}  // namespace qlm
