// Message boxes of the program.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace my {

class CMessageBox {
 public:
  explicit CMessageBox(std::wstring caption) : m_caption(std::move(caption)) {}

  // The window that a message box belongs to while no window of the program is active.
  void SetOwner(HWND owner) { m_owner = owner; }

  // `flags`: MB_x; answers IDx. For the user-interface thread.
  int Show(const std::wstring& text, UINT flags) const;

 private:
  std::wstring m_caption;
  HWND m_owner = nullptr;
};

}  // namespace my
