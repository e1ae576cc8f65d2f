// The about dialog: name, version and home page of the program.
#pragma once

#include "ui/framework/dialog.h"

namespace qlm {

struct CAppContext;

// Shows the icon of its owner window.
class CAboutDialog : public my::CDialog {
 public:
  explicit CAboutDialog(CAppContext& context);

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnNotify(const NMHDR& header) override;
  void OnDpiChanged() override;

 private:
  void ShowIcon();
  void ShowName();

  CAppContext& m_context;
  my::CIcon m_icon;
  my::CFont m_nameFont;
};

}  // namespace qlm
