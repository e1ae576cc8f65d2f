#include "ui/dialogs/closing_dialog.h"

#include <commctrl.h>

#include "control_ids.h"

namespace qlm {
namespace {

constexpr WPARAM kMarqueeStepMs = 50;

}  // namespace

my::CBox CClosingDialog::Layout() const {
  return my::Column({my::Control(IDC_CLOSING_TEXT).Wide().Chars(60), my::Control(IDC_CLOSING_PATH).Wide(),
                     my::Space(), my::Control(IDC_CLOSING_PROGRESS).Wide()});
}

bool CClosingDialog::OnInit() {
  ::SendMessageW(Item(IDC_CLOSING_PROGRESS), PBM_SETMARQUEE, TRUE, kMarqueeStepMs);
  return true;
}

void CClosingDialog::Show(const std::wstring& text, const std::wstring& path) {
  ShowText(IDC_CLOSING_TEXT, text);
  ShowText(IDC_CLOSING_PATH, path);
}

// Sets the text only if it differs, to avoid flicker.
void CClosingDialog::ShowText(int id, const std::wstring& text) {
  if (ItemText(id) != text) SetItemText(id, text);
}

}  // namespace qlm
