#include "platform/win32/standalone_notice.h"

#include "platform/win32/handle.h"

namespace my {

namespace {

using CDesktop = CHandle<HDESK, &::CloseDesktop>;

// Returns whether the process runs where a user can be. A task that runs while nobody is signed in does not.
bool IsOnScreen() {
  USEROBJECTFLAGS flags{};
  return ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

// Returns whether the user has pressed a key or moved the mouse just now. While the screen is locked, the
// input belongs to a desktop that programs cannot open.
bool IsUserPresent() {
  constexpr DWORD kRecentMs = 30'000;
  LASTINPUTINFO last{sizeof last, 0};
  if (!::GetLastInputInfo(&last) || ::GetTickCount() - last.dwTime > kRecentMs) return false;
  const CDesktop desktop(::OpenInputDesktop(0, FALSE, DESKTOP_READOBJECTS));
  return static_cast<bool>(desktop);
}

void WaitForUser(uint32_t limitMs) {
  constexpr DWORD kPauseMs = 1000;
  for (const uint64_t end = ::GetTickCount64() + limitMs; ::GetTickCount64() < end && !IsUserPresent();)
    ::Sleep(kPauseMs);
}

}  // namespace

void ShowStandaloneNotice(const CNotice& notice, const CNoticeLimits& limits) {
  if (!IsOnScreen()) return;
  WaitForUser(limits.absentMs);
  constexpr UINT kEvent = WM_APP;
  const CHandle<HWND, &::DestroyWindow> window(
      ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  if (!window) return;
  CNotification notification(window.Get(), kEvent);
  notification.Show(notice);
  ::SetTimer(window.Get(), 1, limits.shownMs, nullptr);
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
