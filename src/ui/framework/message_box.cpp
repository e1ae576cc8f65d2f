#include "ui/framework/message_box.h"

#include "ui/framework/disabled_windows.h"

namespace my {

int CMessageBox::Show(const std::wstring& text, const std::wstring& caption, uint32_t style) {
  const HWND active = ::GetActiveWindow();
  const HWND owner = ::IsWindow(m_owner) ? m_owner : nullptr;
  const HWND over = active ? active : owner;
  const CDisabledWindows others(over);
  return ::MessageBoxW(over, text.c_str(), caption.c_str(), style);
}

}  // namespace my
