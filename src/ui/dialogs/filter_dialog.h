#pragma once

#include <string>

#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/models/filter_check_model.h"

namespace qlm {

// Shows the lines of a filter file, and which line decides for a path typed by the user. The user can choose
// another file. Enter tests the path.
class CFilterDialog final : public CListDialog {
 public:
  // A file that cannot be read is reported in the dialog. `source` is the source folder of the task, for full
  // paths; may be empty.
  CFilterDialog(CAppContext& context, std::wstring path, std::wstring source = {});

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool IsWarning(int controlId) const override { return controlId == IDC_FILTER_STATUS && m_hasErrors; }

  void Open();
  void Edit();
  void Load();
  void ShowStatus();
  std::wstring CountsText() const;
  std::wstring TypedPath() const;
  void Decide();
  std::wstring DecisionText(const CFilterCheckModel::CDecision& decision) const;

  std::wstring m_path;
  std::wstring m_source;
  bool m_hasErrors = false;
  std::wstring m_loadFailure;
  CFilterCheckModel m_model;
  CSimpleListView<CFilterLines> m_list{m_model.Lines(), m_model};
};

}  // namespace qlm
