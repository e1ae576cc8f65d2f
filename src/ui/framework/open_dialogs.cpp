#include "ui/framework/open_dialogs.h"

namespace my {
namespace {

struct CSearch {
  HWND frame;
  bool found = false;
};

BOOL CALLBACK FindDialog(HWND window, LPARAM search) {
  auto& found = *reinterpret_cast<CSearch*>(search);
  const bool caption = (::GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
  if (window != found.frame && caption && ::IsWindowVisible(window)) found.found = true;
  return !found.found;
}

}  // namespace

bool HasOpenDialog(HWND frame) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  const bool known = ::GetGUIThreadInfo(::GetCurrentThreadId(), &thread) != FALSE;
  if (known && (thread.flags & GUI_INMENUMODE) != 0) return true;
  CSearch search{frame};
  ::EnumThreadWindows(::GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool IsInFront() {
  DWORD process = 0;
  ::GetWindowThreadProcessId(::GetForegroundWindow(), &process);
  return process == ::GetCurrentProcessId();
}

void BringToFront(HWND frame) {
  if (::IsIconic(frame)) ::ShowWindow(frame, SW_RESTORE);
  ::SetForegroundWindow(::GetLastActivePopup(frame));
}

}  // namespace my
