#include "ui/framework/session_hold.h"

#include "platform/win32/system_function.h"

namespace my {
namespace {

constexpr const wchar_t* kLibrary = L"user32.dll";

}  // namespace

void HoldSession(HWND window, const std::wstring& reason) {
  // Null on systems that do not show reasons.
  static const auto hold = SystemFunction<BOOL WINAPI(HWND, LPCWSTR)>(kLibrary, "ShutdownBlockReasonCreate");
  static const auto release = SystemFunction<BOOL WINAPI(HWND)>(kLibrary, "ShutdownBlockReasonDestroy");
  // The system does not replace an existing reason.
  if (release) release(window);
  if (hold && !reason.empty()) hold(window, reason.c_str());
}

}  // namespace my
