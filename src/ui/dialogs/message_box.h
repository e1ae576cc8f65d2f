#pragma once

#include <windows.h>

#include "app/messenger.h"

namespace my {

// The system's message boxes. For the user-interface thread.
class CMessageBox : public IMessageBox {
 public:
  // The window that a message box belongs to while no window of the program is active.
  void SetOwner(HWND owner) { m_owner = owner; }

  BoxButton Show(const std::wstring& text, const std::wstring& caption, BoxStyle style) override;

 private:
  HWND m_owner = nullptr;
};

}  // namespace my
