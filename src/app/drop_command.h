#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/command.h"
#include "app/windows.h"

namespace qlm {

// Where files were dropped, and how.
struct CDropPlace {
  ListKind list = ListKind::Tasks;
  std::optional<size_t> taskRow = {};  // the row of the task list under the pointer
  bool append = false;                 // append documents instead of opening them
};

// Handles files dropped on the window: folders become tasks or, dropped on their list, destinations; a filter
// file becomes the filter of the task it was dropped on; a document is opened or appended.
class CCommandDrop final : public CCommand {
 public:
  CCommandDrop(CAppContext& context, std::vector<std::wstring> paths, const CDropPlace& place)
      : CCommand(context), m_paths(std::move(paths)), m_place(place) {}

  // Throws IDS_REFUSED_DURING_REPLACE, CListException with IDS_DROP_FILTER_ON_TASK, IDS_DROP_UNKNOWN, or what
  // the document or CCommandOpen throws. The folders, and files before the refused one, stay added.
  void Execute(bool run) override;

 private:
  void Drop(const std::wstring& path);

  std::vector<std::wstring> m_paths;
  CDropPlace m_place;
};

// Adds tasks or destinations for the folders after the selected rows of the list, as one edit, and selects
// them. New tasks get the destinations of the selected task; the selected tasks use new destinations. Throws
// what AddFolderTasks and AddFolderDsts throw.
void AddFolders(CAppContext& context, ListKind list, const std::vector<std::wstring>& folders);

// Returns the full paths among the lines of a text, without the quotation marks that the file manager adds
// when it copies a path.
std::vector<std::wstring> PathsInText(std::wstring_view text);

}  // namespace qlm
