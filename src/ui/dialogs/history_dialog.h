#pragma once

#include <functional>
#include <memory>

#include "app/history_loader.h"
#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/sorted_list.h"
#include "ui/models/history_models.h"
#include "ui/models/row_view.h"

namespace qlm {

// Shows the earlier runs with their rows, or the tasks with their last success. Modeless; can be closed and
// created again.
class CHistoryDialog final : public CListDialog {
 public:
  // `reload` starts to read the history; Show must follow when it has been read. `setting` must outlive the
  // dialog.
  CHistoryDialog(CAppContext& context, CColumnsDlgSetting& setting, std::function<void()> reload);

  // Shows what was read. The selected run stays selected.
  void Show(std::shared_ptr<const CLoadedHistory> loaded);

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override {}  // Enter must not close the window
  void OnClosed(int result) override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool OnListKey(UINT key) override;
  bool IsWarning(int controlId) const override { return controlId == IDC_HISTORY_STATUS && m_isDamaged; }

  bool ByRun() const { return IsChecked(IDC_HISTORY_BY_RUN); }
  bool IsWanted(const std::wstring& document) const;
  void SelectRun(const my::CFileTime& start);
  void ListenTo(CSortedList& list, std::function<void()> focused);
  void ShowLists();
  void Fill();
  void FillRows();
  void Forget();
  void ApplyFilter();
  void ShowDetail();
  void ShowStatus();
  std::wstring DetailText() const;
  std::wstring StatusText() const;
  void Reload();
  void OpenDestination();

  std::function<void()> m_reload;
  std::shared_ptr<const CLoadedHistory> m_loaded;  // null while nothing has been read
  bool m_isDamaged = false;
  CHistoryRunsModel m_runsModel;
  CHistoryRowsModel m_rowsModel;
  CHistoryTasksModel m_tasksModel;
  CRowView m_runsView{m_runsModel};
  CRowView m_rowsView{m_rowsModel};
  CRowView m_tasksView{m_tasksModel};
  CSortedList m_runs;
  CSortedList m_rows;
  CSortedList m_tasks;
};

}  // namespace qlm
