#include "ui/framework/dialog_keys.h"

#include <utility>

#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "ui/framework/failures.h"

namespace my {
namespace {

thread_local CDialogKeys* t_attached = nullptr;

}  // namespace

void CDialogKeys::Attach(HWND dialog, Handler handler) {
  Detach();
  m_dialog = dialog;
  m_handler = std::move(handler);
  m_hook = ::SetWindowsHookExW(WH_MSGFILTER, Hook, nullptr, ::GetCurrentThreadId());
  if (!m_hook) throw CException(LastError());
  t_attached = this;
}

void CDialogKeys::Detach() {
  if (!m_hook) return;
  ::UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
  t_attached = nullptr;
}

bool CDialogKeys::Handles(const MSG& message) const {
  if (message.message != WM_KEYDOWN) return false;
  if (message.hwnd != m_dialog && !::IsChild(m_dialog, message.hwnd)) return false;
  return Guarded(false, [&] { return m_handler(static_cast<UINT>(message.wParam)); });
}

LRESULT CALLBACK CDialogKeys::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept {
  const bool handled =
      code == MSGF_DIALOGBOX && t_attached && t_attached->Handles(*reinterpret_cast<const MSG*>(lParam));
  return handled ? TRUE : ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace my
