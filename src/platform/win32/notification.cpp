#include "platform/win32/notification.h"

#include <shellapi.h>

#include <algorithm>
#include <iterator>

namespace my {
namespace {

constexpr UINT kIconId = 1;

// Copies as much of the text as fits.
template <size_t kSize>
void Fill(wchar_t (&field)[kSize], const std::wstring& text) {
  const size_t length = std::min(text.size(), kSize - 1);
  std::copy_n(text.begin(), length, field);
  field[length] = L'\0';
}

DWORD FlagOf(CNotice::Kind kind) {
  switch (kind) {
    case CNotice::Kind::Error: return NIIF_ERROR;
    case CNotice::Kind::Warning: return NIIF_WARNING;
    default: return NIIF_INFO;
  }
}

NOTIFYICONDATAW IconData(HWND window) {
  NOTIFYICONDATAW data{};
  data.cbSize = sizeof data;
  data.hWnd = window;
  data.uID = kIconId;
  return data;
}

}  // namespace

void CNotification::Show(const CNotice& notice) {
  Remove();
  NOTIFYICONDATAW data = IconData(m_window);
  data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_SHOWTIP | NIF_INFO;
  data.uCallbackMessage = m_message;
  data.hIcon = notice.icon;
  data.dwInfoFlags = FlagOf(notice.kind) | NIIF_RESPECT_QUIET_TIME;
  Fill(data.szTip, notice.tip);
  Fill(data.szInfoTitle, notice.title);
  Fill(data.szInfo, notice.text);
  // Fails on a system without a notification area.
  m_added = ::Shell_NotifyIconW(NIM_ADD, &data) != FALSE;
  if (!m_added) return;
  data.uVersion = NOTIFYICON_VERSION_4;
  ::Shell_NotifyIconW(NIM_SETVERSION, &data);
}

void CNotification::Remove() {
  if (!m_added) return;
  m_added = false;
  // Fails harmlessly if the shell was restarted, which removes all icons.
  NOTIFYICONDATAW data = IconData(m_window);
  ::Shell_NotifyIconW(NIM_DELETE, &data);
}

bool CNotification::Handle(LPARAM event) {
  switch (LOWORD(event)) {
    case NIN_BALLOONUSERCLICK:
    case NIN_SELECT:
    case NIN_KEYSELECT: Remove(); return true;
    case NIN_BALLOONTIMEOUT:
    case NIN_BALLOONHIDE: Remove(); return false;
    default: return false;
  }
}

}  // namespace my
