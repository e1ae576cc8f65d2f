#pragma once

#include <functional>
#include <string>

#include "app/command.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/framework/dialog.h"
#include "ui/models/task_dsts_model.h"

namespace qlm {

// Edits one task. Fields without a control keep their values.
class CTaskDialog : public my::CDialog {
 public:
  using CConfirm = std::function<void(const CTask&)>;

  // The context must outlive the dialog. OK passes the task to `confirm`; if it throws, the error is shown
  // and the dialog stays open.
  CTaskDialog(CAppContext& context, CTask task, CConfirm confirm);

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClosed(int result) override;

 private:
  // The destinations, which can be reordered with Alt+Up and Alt+Down.
  class CList : public CSimpleListView<CTaskDsts> {
   public:
    explicit CList(CTaskDialog& dialog)
        : CSimpleListView(dialog.m_dsts.Dsts(), dialog.m_dsts), m_dialog(dialog) {}

   private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    CTaskDialog& m_dialog;
  };

  void InitList();
  void OnPathCommand(int code);
  void WarnSoon() const;
  void OnFilterCommand(int code);
  void OnDstsChanged();
  CTask EditedTask() const;
  void FocusOffender(uint32_t failureId) const;
  void Browse();
  void BrowseFilter();
  void CheckFilter();
  void ProposeId();
  void MoveDst(Step step);
  void OpenDst();
  void EnableMoving() const;
  void ShowWarning();

  CAppContext& m_context;
  CTask m_task;
  CConfirm m_confirm;
  CTaskDstsModel m_dsts;
  CList m_list{*this};
  bool m_pathIsNew = false;  // no ID has been proposed for it yet
};

}  // namespace qlm
