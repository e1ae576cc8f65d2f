// Shows a run in the taskbar, and keeps the computer awake.
#pragma once

#include <memory>

#include "engine/backup_thread.h"
#include "platform/power.h"
#include "platform/win32/com.h"

struct ITaskbarList3;

namespace qlm {

// For use on the thread of the window, with COM initialized.
class CRunIndicator {
 public:
  explicit CRunIndicator(my::IPower& power);
  ~CRunIndicator();
  CRunIndicator(const CRunIndicator&) = delete;
  CRunIndicator& operator=(const CRunIndicator&) = delete;

  void ShowProgress(HWND window, const CRunProgress& progress, bool hasErrors) const;

  // A run has started.
  void Begin();

  // The run has ended: flashes the window unless it is active.
  void End(HWND window, bool hasErrors);

 private:
  my::CComPtr<ITaskbarList3> m_taskbar;  // null on a system without a taskbar
  my::IPower& m_power;
  std::unique_ptr<my::IStayAwake> m_awake;  // set during a run
};

}  // namespace qlm
