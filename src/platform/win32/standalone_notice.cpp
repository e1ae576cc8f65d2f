#include "platform/win32/standalone_notice.h"

#include "platform/win32/handle.h"

namespace my {

void ShowStandaloneNotice(const CNotice& notice, uint32_t limitMs) {
  constexpr UINT kEvent = WM_APP;
  const CHandle<HWND, &::DestroyWindow> window(
      ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  if (!window) return;
  CNotification notification(window.Get(), kEvent);
  notification.Show(notice);
  ::SetTimer(window.Get(), 1, limitMs, nullptr);
  MSG message;
  while (notification.IsShown() && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_TIMER) return;
    if (message.message == kEvent)
      notification.Handle(message.lParam);
    else
      ::DispatchMessageW(&message);
  }
}

}  // namespace my
