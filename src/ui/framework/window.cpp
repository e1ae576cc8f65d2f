#include "ui/framework/window.h"

#include <utility>

#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "ui/framework/failures.h"

namespace my {
namespace {

HINSTANCE Instance() {
  return ::GetModuleHandleW(nullptr);
}

CWindow* Attached(HWND hwnd) {
  return reinterpret_cast<CWindow*>(::GetWindowLongPtrW(hwnd, GWLP_USERDATA));
}

void Attach(HWND hwnd, CWindow* window) {
  ::SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
}

struct CMessage {
  UINT id;
  WPARAM wParam;
};

BOOL CALLBACK Send(HWND window, LPARAM parameter) {
  const auto& message = *reinterpret_cast<const CMessage*>(parameter);
  ::SendMessageW(window, message.id, message.wParam, 0);
  return TRUE;
}

}  // namespace

CWindowClass::CWindowClass(const wchar_t* name, UINT style, INT_PTR background, const wchar_t* cursor)
    : m_name(name) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = style;
  windowClass.lpfnWndProc = CWindow::Thunk;
  windowClass.hInstance = Instance();
  windowClass.hCursor = ::LoadCursorW(nullptr, cursor);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(background);
  windowClass.lpszClassName = name;
  if (!::RegisterClassExW(&windowClass)) throw CException(LastError());
}

CWindowClass::~CWindowClass() {
  ::UnregisterClassW(m_name.c_str(), Instance());
}

CWindow::~CWindow() {
  const HWND hwnd = m_hwnd;
  if (!hwnd) return;
  Detach();
  ::DestroyWindow(hwnd);
}

void CWindow::Create(const CWindowClass& windowClass, const CWindowParams& params) {
  const HMENU menu =
      (params.style & WS_CHILD) != 0 ? reinterpret_cast<HMENU>(INT_PTR{params.controlId}) : params.menu;
  const HWND hwnd = ::CreateWindowExW(params.exStyle, windowClass.Name().c_str(), params.title.c_str(),
                                      params.style, params.left, params.top, params.width, params.height,
                                      params.parent, menu, Instance(), this);
  const DWORD error = ::GetLastError();
  if (auto failure = std::exchange(m_createFailure, nullptr)) std::rethrow_exception(failure);
  if (!hwnd) throw CException(CSystemError::FromWin32(error));
}

void CWindow::Destroy() {
  if (m_hwnd) ::DestroyWindow(m_hwnd);
}

SIZE CWindow::ClientSize() const {
  RECT client{};
  ::GetClientRect(m_hwnd, &client);
  return {client.right, client.bottom};
}

LRESULT CWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return Default(message, wParam, lParam);
}

LRESULT CWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
  return ::DefWindowProcW(m_hwnd, message, wParam, lParam);
}

LRESULT CALLBACK CWindow::Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* created = static_cast<CWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    created->m_hwnd = hwnd;
    Attach(hwnd, created);
  }
  CWindow* window = Attached(hwnd);
  if (!window) return ::DefWindowProcW(hwnd, message, wParam, lParam);
  const LRESULT result = window->Handle(hwnd, message, wParam, lParam);
  // The last message of the window. If its handler destroyed the object, the object is already detached.
  if (message == WM_NCDESTROY && Attached(hwnd)) window->Detach();
  return result;
}

LRESULT CWindow::Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message != WM_NCCREATE && message != WM_CREATE)
    return Guarded(LRESULT{0}, [&] { return OnMessage(message, wParam, lParam); });
  try {
    return OnMessage(message, wParam, lParam);
  } catch (...) {
    // Create rethrows the exception. The window is detached first, so the object gets no more messages.
    m_createFailure = std::current_exception();
    Attach(hwnd, nullptr);
    m_hwnd = nullptr;
    return message == WM_CREATE ? -1 : FALSE;
  }
}

void CWindow::Detach() {
  Attach(m_hwnd, nullptr);
  m_hwnd = nullptr;
}

void SendToDescendants(HWND parent, UINT message, WPARAM wParam) {
  const CMessage sent{message, wParam};
  ::EnumChildWindows(parent, Send, reinterpret_cast<LPARAM>(&sent));
}

}  // namespace my
