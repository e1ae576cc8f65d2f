#include "ui/main_frame.h"

#include "app/application.h"
#include "ui/framework/window_placement.h"

namespace qlm {
namespace {

constexpr UINT_PTR kRunTimer = 1;

}  // namespace

CMainFrame::CMainFrame(my::CAutoMessageLoop& loop, int showCommand)
    : m_class(L"QuillmoorMainFrame"), m_loop(loop), m_showCommand(showCommand) {}

bool CMainFrame::Create(CApplication& application) {
  m_app = &application;
  try {
    my::CWindowParams params;
    params.title = L"Quillmoor";
    CWindow::Create(m_class, params);
    return true;
  } catch (...) {
    application.ShowFailure(std::current_exception());
    return false;
  }
}

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE: m_app->Start(); return 0;
    case WM_CLOSE:
      if (m_app->OnClose()) Destroy();
      return 0;
    case WM_ENDSESSION:
      if (wParam) m_app->OnEndSession();
      return 0;
    case WM_TIMER:
      if (wParam == kRunTimer) m_app->OnTimer();
      return 0;
    case WM_DESTROY: ::PostQuitMessage(0); return 0;
    default: return CWindow::OnMessage(message, wParam, lParam);
  }
}

void CMainFrame::ApplySettings(const CSettings& settings) {
  const CMainFrameSetting& frame = settings.mainFrame;
  if (frame.normalBounds != CRect{}) my::PlaceWindow(Hwnd(), frame.normalBounds);
  ::ShowWindow(Hwnd(), frame.maximized ? SW_SHOWMAXIMIZED : m_showCommand);
}

void CMainFrame::StoreSettings(CSettings& settings) {
  const CDlgSetting placement = my::ReadPlacement(Hwnd());
  settings.mainFrame.maximized = placement.maximized;
  settings.mainFrame.normalBounds = placement.rect;
}

void CMainFrame::StartTimer(uint32_t periodMs) {
  ::SetTimer(Hwnd(), kRunTimer, periodMs, nullptr);
}

void CMainFrame::StopTimer() {
  ::KillTimer(Hwnd(), kRunTimer);
}

}  // namespace qlm
