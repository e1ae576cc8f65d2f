#pragma once

#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/look/drawn_list.h"
#include "ui/models/result_list_model.h"

namespace qlm {

// Shows the rows of a run, also while it is active. Modeless; can be closed and created again.
class CResultDialog final : public CListDialog {
 public:
  // The model must outlive the dialog.
  CResultDialog(CAppContext& context, const CResultListModel& model)
      : CListDialog(context, IDD_RESULTS, context.settings.resultDlg), m_model(model) {}

  // Must be called when rows were added, removed or changed, also if there is no window. A list scrolled to
  // its end follows new rows.
  void RowsChanged();

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  bool Execute(int id, int code) override;
  bool OnListKey(UINT key) override;

  bool IsAtEnd() const;
  void ShowFirstError();
  void ShowDetail();
  void OpenDestination();
  void ShowTargets();
  void SaveCsv();

  const CResultListModel& m_model;
  CSimpleListView<CResults, CDrawnList> m_list{m_model.Rows(), m_model};
};

}  // namespace qlm
