#include "ui/framework/message_box.h"

namespace my {

int CMessageBox::Show(const std::wstring& text, UINT flags) const {
  const HWND active = ::GetActiveWindow();
  const HWND owner = ::IsWindow(m_owner) ? m_owner : nullptr;
  return ::MessageBoxW(active ? active : owner, text.c_str(), m_caption.c_str(), flags);
}

}  // namespace my
