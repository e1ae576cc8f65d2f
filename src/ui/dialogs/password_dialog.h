// Asks for the zip password of a run.
#pragma once

#include "ui/framework/dialog.h"

namespace qlm {

class CPasswordEntry;
struct CAppContext;

// Hands what was typed to CPasswordEntry::Accept until that answers true; what it refuses with is shown.
class CPasswordDlg : public my::CDialog {
 public:
  CPasswordDlg(CAppContext& context, CPasswordEntry& entry);

 protected:
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;
  void OnClosed(int result) override;

 private:
  CAppContext& m_context;
  CPasswordEntry& m_entry;
};

}  // namespace qlm
