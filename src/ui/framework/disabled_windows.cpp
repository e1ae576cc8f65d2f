#include "ui/framework/disabled_windows.h"

namespace my {
namespace {

BOOL CALLBACK AddEnabled(HWND window, LPARAM windows) {
  if (::IsWindowVisible(window) && ::IsWindowEnabled(window))
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

}  // namespace

CDisabledWindows::CDisabledWindows(HWND except) {
  ::EnumThreadWindows(::GetCurrentThreadId(), AddEnabled, reinterpret_cast<LPARAM>(&m_windows));
  if (except) std::erase(m_windows, ::GetAncestor(except, GA_ROOT));
  for (const HWND window : m_windows) ::EnableWindow(window, FALSE);
}

CDisabledWindows::~CDisabledWindows() {
  for (const HWND window : m_windows) {
    if (::IsWindow(window)) ::EnableWindow(window, TRUE);
  }
}

}  // namespace my
