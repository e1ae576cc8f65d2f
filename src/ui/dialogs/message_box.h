#pragma once

#include <windows.h>

#include "app/messenger.h"

namespace my {

// Message boxes of the system. For the user-interface thread.
class CMessageBox : public IMessageBox {
 public:
  // Sets the owner of message boxes while no window of the program is active.
  void SetOwner(HWND owner) { m_owner = owner; }

  BoxButton Show(const std::wstring& text, const std::wstring& caption, BoxStyle style) override;

 private:
  HWND m_owner = nullptr;
};

}  // namespace my
