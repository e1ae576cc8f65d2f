#pragma once

#include <string>

#include "control_ids.h"
#include "ui/framework/dialog.h"

namespace qlm {

// Shown while the program waits for a run to end before it exits. The user cannot close it.
class CClosingDialog final : public my::CDialog {
 public:
  CClosingDialog() : CDialog(IDD_CLOSING) {}

  // `text` is what is waited for, `path` what is being written. May be called on every tick.
  void Show(const std::wstring& text, const std::wstring& path);

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnCancel() override {}

 private:
  void ShowText(int id, const std::wstring& text);
};

}  // namespace qlm
