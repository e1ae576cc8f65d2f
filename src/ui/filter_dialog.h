#pragma once

#include <string>

#include "resource.h"
#include "ui/list_dialog.h"
#include "ui/models/filter_check_model.h"

namespace qlm {

// Shows every line of a filter file, and which of them decides for a path that the user types.
class CFilterDialog final : public CListDialog {
 public:
  // What keeps the file from being read is shown in the dialog.
  CFilterDialog(CAppContext& context, std::wstring path);

 private:
  std::vector<my::CAnchor> Anchors() const override;
  bool OnInit() override;
  bool Execute(int id, int code) override;
  bool OnKey(UINT key) override;
  bool IsWarning(int controlId) const override { return controlId == IDC_FILTER_STATUS && m_hasErrors; }

  void Load();
  std::wstring CountsText() const;
  void Decide();
  std::wstring DecisionText(const CFilterCheckModel::CDecision& decision) const;

  std::wstring m_path;
  bool m_hasErrors = false;
  CFilterCheckModel m_model;
  my::CListView m_list{m_model};
};

}  // namespace qlm
