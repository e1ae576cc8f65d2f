#include "ui/framework/session_hold.h"

namespace my {
namespace {

// Returns null on systems without the function, which do not show reasons.
template <class Function>
Function* SessionFunction(const char* name) {
  const HMODULE module = ::GetModuleHandleW(L"user32.dll");
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(::GetProcAddress(module, name)));
}

}  // namespace

void HoldSession(HWND window, const std::wstring& reason) {
  // The system does not replace an existing reason.
  if (const auto release = SessionFunction<BOOL WINAPI(HWND)>("ShutdownBlockReasonDestroy")) release(window);
  const auto hold = SessionFunction<BOOL WINAPI(HWND, LPCWSTR)>("ShutdownBlockReasonCreate");
  if (hold && !reason.empty()) hold(window, reason.c_str());
}

}  // namespace my
