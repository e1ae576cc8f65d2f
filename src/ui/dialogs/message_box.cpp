#include "ui/dialogs/message_box.h"

#include "ui/framework/disabled_windows.h"

namespace my {

static_assert(kBoxOkCancel == MB_OKCANCEL && kBoxIconError == MB_ICONERROR && kBoxIconMask == MB_ICONMASK);
static_assert(kBoxIconWarning == MB_ICONWARNING && kButtonOk == IDOK && kButtonCancel == IDCANCEL);

int CMessageBox::Show(const std::wstring& text, const std::wstring& caption, uint32_t style) {
  const HWND active = ::GetActiveWindow();
  const HWND owner = ::IsWindow(m_owner) ? m_owner : nullptr;
  const HWND over = active ? active : owner;
  const CDisabledWindows others(over);
  return ::MessageBoxW(over, text.c_str(), caption.c_str(), style);
}

}  // namespace my
