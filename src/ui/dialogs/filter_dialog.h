#pragma once

#include <string>

#include "control_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/models/filter_check_model.h"

namespace qlm {

// Shows every line of a filter file, of which the user may choose another one, and which of them decides for
// a path that the user types.
class CFilterDialog final : public CListDialog {
 public:
  // What keeps the file from being read is shown in the dialog. `source` is the folder of the task, for full
  // paths that are pasted; it may be empty.
  CFilterDialog(CAppContext& context, std::wstring path, std::wstring source = {});

 private:
  std::vector<my::CAnchor> Anchors() const override;
  bool OnInit() override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool IsWarning(int controlId) const override { return controlId == IDC_FILTER_STATUS && m_hasErrors; }

  void Open();
  void Edit();
  void Load();
  std::wstring CountsText() const;
  std::wstring TypedPath() const;
  void Decide();
  std::wstring DecisionText(const CFilterCheckModel::CDecision& decision) const;

  std::wstring m_path;
  std::wstring m_source;
  bool m_hasErrors = false;
  CFilterCheckModel m_model;
  CSimpleListView<CFilterLines> m_list{m_model.Lines(), m_model};
};

}  // namespace qlm
