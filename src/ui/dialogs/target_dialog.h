#pragma once

#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/models/target_list_model.h"

namespace qlm {

// Shows the entries found by a test run or a run, and whether they are backed up.
class CTargetDialog final : public CListDialog {
 public:
  CTargetDialog(CAppContext& context, CResultPtr result);

 private:
  // The row with the newest time is bold.
  class CView final : public CSimpleListView<CTargets> {
   public:
    CView(const CTargets& targets, const CTargetListModel& model)
        : CSimpleListView(targets, model), m_newestRow(model.NewestRow()) {}

   private:
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) override;
    HFONT BoldFont();

    std::optional<size_t> m_newestRow;
    my::CFont m_font;
    LONG m_fontHeight = 0;
  };

  my::CBox Layout() const override;
  bool OnInit() override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool IsWarning(int controlId) const override;

  void ShowTexts();
  std::wstring NewestText() const;
  std::wstring UnlistedText() const;
  void Search(bool next);
  void GoToNewest();
  void ShowSource();
  void ShowBackup();

  CResultPtr m_result;
  CTargetListModel m_model;
  CView m_list{*m_result->targets, m_model};
};

}  // namespace qlm
