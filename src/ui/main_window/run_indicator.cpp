#include "ui/main_window/run_indicator.h"

#include <windows.h>

#include <shobjidl.h>

namespace qlm {
CRunIndicator::CRunIndicator(my::IPower& power) : m_power(power) {
  if (FAILED(::CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                                reinterpret_cast<void**>(m_taskbar.Out()))))
    return;
  if (FAILED(m_taskbar->HrInit())) m_taskbar = {};
}

CRunIndicator::~CRunIndicator() = default;

void CRunIndicator::ShowProgress(HWND window, const CRunProgress& progress, bool hasErrors) const {
  if (!m_taskbar || !m_awake) return;
  m_taskbar->SetProgressState(window, hasErrors ? TBPF_ERROR : TBPF_NORMAL);
  m_taskbar->SetProgressValue(window, progress.position, progress.range);
}

void CRunIndicator::Begin() {
  m_awake = m_power.KeepAwake();
}

void CRunIndicator::End(HWND window, bool hasErrors) {
  if (!m_awake) return;
  m_awake.reset();
  // An error stays red in the taskbar until the next run.
  if (m_taskbar) m_taskbar->SetProgressState(window, hasErrors ? TBPF_ERROR : TBPF_NOPROGRESS);
  if (::GetForegroundWindow() == window) return;
  FLASHWINFO flash{sizeof flash, window, FLASHW_ALL | FLASHW_TIMERNOFG, 3, 0};
  ::FlashWindowEx(&flash);
}

}  // namespace qlm
