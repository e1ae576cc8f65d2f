// An icon in the notification area that exists only to show one notification.
#pragma once

#include <windows.h>

#include <string>

namespace my {

struct CNotice {
  enum class Kind { Info, Warning, Error };

  Kind kind = Kind::Info;
  std::wstring title;
  std::wstring text;
  std::wstring tip;      // of the icon
  HICON icon = nullptr;  // must outlive the notification
};

// The system decides whether and where it shows the notification, and plays its sound.
class CNotification {
 public:
  // `message` is sent to `window` for the events of the icon; pass its LPARAM to Handle.
  CNotification(HWND window, UINT message) : m_window(window), m_message(message) {}
  CNotification(const CNotification&) = delete;
  CNotification& operator=(const CNotification&) = delete;
  ~CNotification() { Remove(); }

  // Replaces the last notification.
  void Show(const CNotice& notice);

  bool IsShown() const { return m_added; }

  // Removes the icon and what is shown of the notification. Does nothing if there is none.
  void Remove();

  // Handles an event, and removes the icon if it is no longer needed. Returns whether the user has chosen the
  // notification.
  bool Handle(LPARAM event);

 private:
  HWND m_window;
  UINT m_message;
  bool m_added = false;
};

}  // namespace my
