#include "ui/dialogs/message_box.h"

#include "ui/framework/disabled_windows.h"

namespace my {

static_assert(static_cast<UINT>(BoxStyle::Failure) == (MB_OK | MB_ICONERROR));
static_assert(static_cast<UINT>(BoxStyle::Question) == (MB_OKCANCEL | MB_ICONWARNING));
static_assert(static_cast<int>(BoxButton::Ok) == IDOK && static_cast<int>(BoxButton::Cancel) == IDCANCEL);

BoxButton CMessageBox::Show(const std::wstring& text, const std::wstring& caption, BoxStyle style) {
  const HWND active = ::GetActiveWindow();
  const HWND owner = ::IsWindow(m_owner) ? m_owner : nullptr;
  const HWND over = active ? active : owner;
  const CDisabledWindows others(over);
  return static_cast<BoxButton>(::MessageBoxW(over, text.c_str(), caption.c_str(), static_cast<UINT>(style)));
}

}  // namespace my
