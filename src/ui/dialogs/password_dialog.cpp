#include "ui/dialogs/password_dialog.h"

#include "app/command.h"
#include "app/messenger.h"
#include "app/password.h"
#include "control_ids.h"
#include "support/secret.h"
#include "ui/framework/controls.h"
#include "ui/models/password_dsts.h"

namespace qlm {

CPasswordDlg::CPasswordDlg(CAppContext& context, CPasswordEntry& entry)
    : CDialog(IDD_PASSWORD), m_context(context), m_entry(entry) {}

my::CBox CPasswordDlg::Layout() const {
  return my::Column({my::LabelOf(IDC_PASSWORD_DSTS), my::Control(IDC_PASSWORD_DSTS).Wide().Chars(76).Lines(4),
                     my::Space(), my::Field(my::Control(IDC_PASSWORD).Wide().Chars(32)),
                     my::Row({my::Indent(), my::Control(IDC_HIDE_PASSWORD)}), my::Space(),
                     my::Buttons({IDOK, IDCANCEL})});
}

bool CPasswordDlg::OnInit() {
  SetItemText(IDC_PASSWORD_DSTS, PasswordDstsText(m_context.ports.engine.texts, m_entry.Dsts()));
  const bool hide = m_entry.Setting().hidePassword;
  SetChecked(IDC_HIDE_PASSWORD, hide);
  my::MaskPassword(Item(IDC_PASSWORD), hide);
  FocusItem(IDC_PASSWORD);
  return false;
}

void CPasswordDlg::OnOk() {
  std::wstring password = ItemText(IDC_PASSWORD);
  const my::CWipeAtEnd wipe(password);
  try {
    if (m_entry.Accept(password, IsChecked(IDC_HIDE_PASSWORD))) return Close(IDOK);
  } catch (const my::CException& failure) {
    m_context.messenger.ShowError(failure);
  }
  FocusItem(IDC_PASSWORD);
}

bool CPasswordDlg::OnCommand(int id, int code) {
  if (id != IDC_HIDE_PASSWORD || code != BN_CLICKED) return false;
  my::MaskPassword(Item(IDC_PASSWORD), IsChecked(IDC_HIDE_PASSWORD));
  return true;
}

void CPasswordDlg::OnClosed(int) {
  my::WipePassword(Item(IDC_PASSWORD));
}

}  // namespace qlm
