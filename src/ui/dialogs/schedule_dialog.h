#pragma once

#include "app/schedule_commands.h"
#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/look/drawn_list.h"
#include "ui/models/schedule_list_model.h"

namespace qlm {

// Shows, adds, changes, mends and removes the schedules of the document or of all documents. Modal.
class CScheduleDialog final : public CListDialog {
 public:
  // `setting` must outlive the dialog. With `all` the list starts with the schedules of all documents.
  CScheduleDialog(CAppContext& context, CColumnsDlgSetting& setting, bool all);

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override {}  // Enter must not close the window
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool OnListKey(UINT key) override;
  bool IsWarning(int controlId) const override { return controlId == IDC_SCHEDULE_NOTE; }

  void Load();
  void UpdateButtons();
  void Add();
  void Change();
  void Mend();
  void Remove();

  bool m_startsWithAll;
  CSchedules m_schedules;
  CScheduleListModel m_model;
  CSimpleListView<std::vector<CDocumentSchedule>, CDrawnList> m_list{m_model.Schedules(), m_model};
};

}  // namespace qlm
