#include "ui/framework/session_hold.h"

#include "platform/win32/system_function.h"

namespace my {
namespace {

constexpr const wchar_t* kLibrary = L"user32.dll";

}  // namespace

void HoldSession(HWND window, const std::wstring& reason) {
  // The functions are missing where sessions end without a reason being shown.
  static const auto hold = SystemFunction<BOOL WINAPI(HWND, LPCWSTR)>(kLibrary, "ShutdownBlockReasonCreate");
  static const auto release = SystemFunction<BOOL WINAPI(HWND)>(kLibrary, "ShutdownBlockReasonDestroy");
  // A reason is replaced only when the old one has gone.
  if (release) release(window);
  if (hold && !reason.empty()) hold(window, reason.c_str());
}

}  // namespace my
