#pragma once

#include <windows.h>

#include <functional>

namespace my {

// Sees the keys pressed in a dialog and its descendants before the system handles them, also those that move
// the focus, and also in the system's loop of a modal dialog.
class CDialogKeys {
 public:
  // Gets a virtual key. Returns true to hide it from the dialog and its controls.
  using Handler = std::function<bool(UINT key)>;

  CDialogKeys() = default;
  CDialogKeys(const CDialogKeys&) = delete;
  CDialogKeys& operator=(const CDialogKeys&) = delete;
  ~CDialogKeys() { Detach(); }

  // Must be called on the thread of the dialog, which has at most one such object at a time.
  void Attach(HWND dialog, Handler handler);
  void Detach();

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;
  bool Handles(const MSG& message) const;

  HWND m_dialog = nullptr;
  Handler m_handler;
  HHOOK m_hook = nullptr;
};

}  // namespace my
