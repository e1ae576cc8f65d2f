#pragma once

#include <memory>
#include <optional>

#include "app/plan_commands.h"
#include "control_ids.h"
#include "document/document.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/plan_matrix_view.h"
#include "ui/models/plan_advice_model.h"
#include "ui/models/plan_matrix_model.h"

namespace qlm {

// Shows a plan while it is made: the matrix of tasks and destinations, the detail of the focused cell, and
// the findings. Modeless; can be closed and created again.
class CPlanDialog final : public CListDialog {
 public:
  // `setting` stores the placement; must outlive the dialog.
  CPlanDialog(CAppContext& context, CColumnsDlgSetting& setting);
  ~CPlanDialog() override;

  // Starts a plan instead of the one that is shown. Throws IDS_START_THREAD_FAILED.
  void Start(CPlanRequest request, CPlanIds ids);

  // Must be called when the document has changed: the plan is of the document as it was.
  void OnDocumentChanged(DocChangeEventFlags what);

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override {}  // Enter in the detail pane
  void OnClosed(int result) override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool IsWarning(int controlId) const override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  void InitAdvice();
  void TakeNews();
  void End(const my::CSimpleErr& error);
  void ShowPlan();
  void ShowState();
  std::wstring StateText() const;
  void ShowCell();
  void ShowFinding();
  void GoToFinding();
  const CPlanTask* FocusedTask() const;
  const CAdvice* FocusedFinding() const;

  void ShowTargets();
  void ShowNewest();
  void Exclude();
  void Recycle();
  void PlanAgain();

  enum class State { Planning, Complete, Stopped, Failed };

  CPlanIds m_ids;
  State m_state = State::Complete;
  std::wstring m_failure;
  bool m_outdated = false;
  size_t m_wantedRow = 0;  // focused as soon as it exists
  CPlanMatrixModel m_model;
  CPlanAdviceModel m_adviceModel;
  CPlanMatrixView m_matrix;
  CDrawnList m_advice;
  std::unique_ptr<CPlanWorker> m_worker;
};

}  // namespace qlm
