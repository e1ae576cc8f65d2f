#pragma once

#include <string>

#include "control_ids.h"
#include "ui/framework/dialog.h"

namespace qlm {

// Stays, without a way to close it, while the program waits for a run to end before it ends itself.
class CClosingDialog final : public my::CDialog {
 public:
  CClosingDialog() : CDialog(IDD_CLOSING) {}

  // `text` says what is waited for, `path` is what is being written; both may be shown again at every tick.
  void Show(const std::wstring& text, const std::wstring& path) const;

 protected:
  bool OnInit() override;
  void OnCancel() override {}

 private:
  void ShowText(int id, const std::wstring& text) const;
};

}  // namespace qlm
