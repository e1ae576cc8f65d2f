// Asks for the zip password of a run.
#pragma once

#include "ui/framework/dialog.h"

namespace qlm {

class CPasswordEntry;
struct CAppContext;

// Passes the input to CPasswordEntry::Accept until it returns true; shows what it throws.
class CPasswordDlg : public my::CDialog {
 public:
  CPasswordDlg(CAppContext& context, CPasswordEntry& entry);

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;
  void OnClosed(int result) override;

 private:
  CAppContext& m_context;
  CPasswordEntry& m_entry;
};

}  // namespace qlm
