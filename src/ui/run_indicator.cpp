#include "ui/run_indicator.h"

#include <windows.h>

#include <shobjidl.h>

namespace qlm {
namespace {

// The functions are missing where sessions end without a question.
template <class Function>
Function SessionFunction(const char* name) {
  const HMODULE module = ::GetModuleHandleW(L"user32.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(module, name)));
}

void HoldSession(HWND window, const std::wstring& reason) {
  const auto hold = SessionFunction<BOOL(WINAPI*)(HWND, LPCWSTR)>("ShutdownBlockReasonCreate");
  if (hold) hold(window, reason.c_str());
}

void FreeSession(HWND window) {
  const auto free = SessionFunction<BOOL(WINAPI*)(HWND)>("ShutdownBlockReasonDestroy");
  if (free) free(window);
}

}  // namespace

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

void CRunIndicator::Begin(HWND window, const std::wstring& reason) {
  m_awake = m_power.KeepAwake();
  HoldSession(window, reason);
}

void CRunIndicator::End(HWND window, bool hasErrors) {
  if (!m_awake) return;
  m_awake.reset();
  FreeSession(window);
  // An error stays red until the next run, so that it is seen.
  if (m_taskbar) m_taskbar->SetProgressState(window, hasErrors ? TBPF_ERROR : TBPF_NOPROGRESS);
  if (::GetForegroundWindow() == window) return;
  FLASHWINFO flash{sizeof flash, window, FLASHW_ALL | FLASHW_TIMERNOFG, 3, 0};
  ::FlashWindowEx(&flash);
}

}  // namespace qlm
