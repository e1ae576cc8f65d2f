#pragma once

#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/sorted_list.h"
#include "ui/models/result_list_model.h"
#include "ui/models/row_view.h"

namespace qlm {

// Shows the rows of a run, also while it is active, sorted and filtered as the user wants. Modeless; can be
// closed and created again.
class CResultDialog final : public CListDialog {
 public:
  // The model must outlive the dialog.
  CResultDialog(CAppContext& context, const CResultListModel& model)
      : CListDialog(context, IDD_RESULTS, context.settings.resultDlg),
        m_model(model),
        m_list(m_rows, context.ports.engine.texts) {}

  // Must be called when rows from `first` on were added, removed or changed, also if there is no window. A
  // list in the order of the run that is scrolled to its end follows new rows; otherwise the visible rows
  // stay where they are.
  void RowsChanged(size_t first = 0);

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override { m_list.Focus(); }  // Enter in the search field
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool OnListKey(UINT key) override;

  bool IsAtEnd() const;
  void ShowFirstError();
  void ApplyFilter();
  void ShowTexts();
  void ShowDetail();
  void OpenDestination();
  void ShowTargets();
  void SaveCsv();
  void ExplainError();  // opens the page of the manual

  const CResultListModel& m_model;
  CRowView m_rows{m_model};
  CSortedList m_list;
};

}  // namespace qlm
