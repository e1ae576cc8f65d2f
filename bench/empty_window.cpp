// qlm_empty_window: the baseline of the start: one empty window, and a message loop.
#include <windows.h>

namespace {

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) ::PostQuitMessage(0);
  return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int showCommand) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Procedure;
  windowClass.hInstance = instance;
  windowClass.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
  windowClass.lpszClassName = L"QuillmoorEmptyWindow";
  ::RegisterClassW(&windowClass);
  const HWND window = ::CreateWindowExW(0, windowClass.lpszClassName, L"Empty", WS_OVERLAPPEDWINDOW, 0, 0,
                                        960, 680, nullptr, nullptr, instance, nullptr);
  ::ShowWindow(window, showCommand);
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}
