// The commands that open the file manager or the browser.
#pragma once

#include <functional>
#include <string>

#include "app/command.h"
#include "app/windows.h"
#include "platform/shell.h"
#include "text_ids.h"

namespace qlm {

class CDsts;
class CTasks;

// Opens the file manager with the item selected, or opens the folder itself.
class CCommandExplorer final : public CCommand {
 public:
  CCommandExplorer(CAppContext& context, std::wstring path, bool openFolder)
      : CCommand(context), m_path(std::move(path)), m_openFolder(openFolder) {}
  CCommandExplorer(CAppContext& context, my::CShellIdList idList, bool openFolder)
      : CCommand(context), m_idList(std::move(idList)), m_openFolder(openFolder) {}

  // Throws IDS_ID_LIST_EMPTY without path and ID list, IDS_ID_LIST_TO_PATH_FAILED, IDS_SHELL_OPEN_FAILED, or
  // IDS_PATH_NOT_RESPONDING after some seconds; the lookup thread then continues and uses the file-system
  // port until it ends.
  void Execute(bool run) override;

 private:
  std::wstring m_path;
  my::CShellIdList m_idList;
  bool m_openFolder;
};

// Shows the path of the focused row of a list. TList is the list; `PathOf` returns the path of a row, or
// throws if the row has none.
template <class TList>
class CCommandExplorerImpl final : public CCommand {
 public:
  using PathOf = std::function<std::wstring(const TList&, size_t row)>;

  // The list and its state must outlive the command.
  CCommandExplorerImpl(CAppContext& context, const TList& list, IListState& state, PathOf pathOf,
                       bool openFolder)
      : CCommand(context),
        m_list(list),
        m_state(state),
        m_pathOf(std::move(pathOf)),
        m_openFolder(openFolder) {}

  // Throws CListException with IDS_NO_ITEM_SELECTED, what PathOf throws and what CCommandExplorer throws.
  void Execute(bool run) override {
    const auto row = m_state.FocusedRow();
    if (!row || *row >= m_list.size()) throw CListException(IDS_NO_ITEM_SELECTED, m_state);
    CCommandExplorer(m_context, m_pathOf(m_list, *row), m_openFolder).Execute(run);
  }

 private:
  const TList& m_list;
  IListState& m_state;
  PathOf m_pathOf;
  bool m_openFolder;
};

using CCommandExplorerSrc = CCommandExplorerImpl<CTasks>;
using CCommandExplorerDst = CCommandExplorerImpl<CDsts>;
using CCommandExplorerTaskDst = CCommandExplorerImpl<CTaskDsts>;
using CCommandExplorerTarget = CCommandExplorerImpl<CTargets>;
using CCommandExplorerResult = CCommandExplorerImpl<CResults>;

// Return the path of a row.
std::wstring SourceFolderOf(const CTasks& tasks, size_t row);
std::wstring FolderOf(const CDsts& dsts, size_t row);
std::wstring FolderOfTaskDst(const CTaskDsts& dsts, size_t row);
std::wstring DestinationOf(const CResults& results, size_t row);  // throws IDS_NO_DESTINATION

// Return the path of an entry in the source, and in the backup: within a folder backup, or the archive that
// contains it. The latter throws IDS_NO_DESTINATION.
std::wstring SourceOfTarget(const CResult& result, const CTargets& targets, size_t row);
std::wstring BackupOfTarget(const CResult& result, const CTargets& targets, size_t row);

// Opens a page: a URL, or a file in the folder of the program.
class CCommandOpenUrl final : public CCommand {
 public:
  using CCommand::CCommand;
  void SetPage(uint32_t stringId) { m_stringId = stringId; }
  void Execute(bool run) override;

 private:
  uint32_t m_stringId = IDS_HOME_PAGE_URL;
};

}  // namespace qlm
