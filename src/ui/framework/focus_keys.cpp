#include "ui/framework/focus_keys.h"

namespace my {
namespace {

void MoveFocus(HWND window, HWND from, bool back) {
  // Buttons may draw their focus only after the keyboard was used.
  ::SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  if (const HWND next = ::GetNextDlgTabItem(window, from == window ? nullptr : from, back)) ::SetFocus(next);
}

}  // namespace

bool HandleFocusKey(HWND window, const MSG& message) {
  if (message.message != WM_KEYDOWN || (message.wParam != VK_TAB && message.wParam != VK_RETURN))
    return false;
  if (::GetKeyState(VK_CONTROL) < 0 || ::GetKeyState(VK_MENU) < 0) return false;
  const LRESULT code =
      ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  if (message.wParam == VK_TAB) {
    if ((code & (DLGC_WANTTAB | DLGC_WANTALLKEYS)) != 0) return false;
    MoveFocus(window, message.hwnd, ::GetKeyState(VK_SHIFT) < 0);
    return true;
  }
  if ((code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) == 0) return false;
  // A key that is held down presses only once.
  if ((HIWORD(message.lParam) & KF_REPEAT) == 0) ::SendMessageW(message.hwnd, BM_CLICK, 0, 0);
  return true;
}

}  // namespace my
