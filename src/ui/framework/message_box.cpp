#include "ui/framework/message_box.h"

namespace my {

int CMessageBox::Show(const std::wstring& text, const std::wstring& caption, uint32_t style) {
  const HWND active = ::GetActiveWindow();
  const HWND owner = ::IsWindow(m_owner) ? m_owner : nullptr;
  return ::MessageBoxW(active ? active : owner, text.c_str(), caption.c_str(), style);
}

}  // namespace my
