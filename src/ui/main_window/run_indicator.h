// What the system is told of a run: the button in the taskbar, and that the computer must stay awake.
#pragma once

#include <memory>

#include "engine/backup_thread.h"
#include "platform/power.h"
#include "platform/win32/com.h"

struct ITaskbarList3;

namespace qlm {

// Of the thread of the window, which has COM.
class CRunIndicator {
 public:
  explicit CRunIndicator(my::IPower& power);
  ~CRunIndicator();
  CRunIndicator(const CRunIndicator&) = delete;
  CRunIndicator& operator=(const CRunIndicator&) = delete;

  void ShowProgress(HWND window, const CRunProgress& progress, bool hasErrors) const;

  // A run has begun: the computer does not fall asleep.
  void Begin();

  // It has ended: the window draws attention to itself when another one is used.
  void End(HWND window, bool hasErrors);

 private:
  my::CComPtr<ITaskbarList3> m_taskbar;  // none on a system without a taskbar
  my::IPower& m_power;
  std::unique_ptr<my::IStayAwake> m_awake;  // while there is a run
};

}  // namespace qlm
