// The base class of all windows with a window class of our own.
#pragma once

#include <windows.h>

#include <exception>
#include <string>

namespace my {

// A registered window class. The destructor unregisters it; the object must outlive the windows of the class.
// Throws the system error if registration fails.
class CWindowClass {
 public:
  // `background` is a system colour (COLOR_x + 1), `cursor` a system cursor (IDC_x).
  explicit CWindowClass(const wchar_t* name, UINT style = 0, INT_PTR background = COLOR_WINDOW + 1,
                        const wchar_t* cursor = IDC_ARROW);
  CWindowClass(const CWindowClass&) = delete;
  CWindowClass& operator=(const CWindowClass&) = delete;
  ~CWindowClass();

  const std::wstring& Name() const { return m_name; }

 private:
  std::wstring m_name;
};

struct CWindowParams {
  HWND parent = nullptr;  // or the owner, for a window without WS_CHILD
  DWORD style = WS_OVERLAPPEDWINDOW;
  DWORD exStyle = 0;
  std::wstring title;
  int left = CW_USEDEFAULT;  // pixels
  int top = CW_USEDEFAULT;
  int width = CW_USEDEFAULT;
  int height = CW_USEDEFAULT;
  HMENU menu = nullptr;  // owned by the window after Create
  int controlId = 0;     // of a child window, which has no menu
};

// Owns a window of the calling thread. If the window is destroyed first (with its parent, or by WM_CLOSE),
// the object has no window. The destructor destroys the window, but detaches first, so the derived class gets
// no messages of that; a class that needs them calls Destroy() itself. An object must not be destroyed while
// it handles a message.
class CWindow {
 public:
  CWindow() = default;
  CWindow(const CWindow&) = delete;
  CWindow& operator=(const CWindow&) = delete;
  virtual ~CWindow();

  // Throws what the handler of WM_CREATE threw, or the system error.
  void Create(const CWindowClass& windowClass, const CWindowParams& params);
  void Destroy();

  HWND Hwnd() const { return m_hwnd; }
  HWND Parent() const { return ::GetParent(m_hwnd); }
  SIZE ClientSize() const;
  void Invalidate() const { ::InvalidateRect(m_hwnd, nullptr, FALSE); }

 protected:
  // An exception is passed to ReportFailure, and the result of the message is then 0.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // Calls the default window procedure.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  friend class CWindowClass;

  static LRESULT CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  void Detach();

  HWND m_hwnd = nullptr;
  std::exception_ptr m_createFailure;
};

// Sends a message to all descendants of `parent`, such as one that the system sends to top-level windows
// only.
void SendToDescendants(HWND parent, UINT message, WPARAM wParam);

}  // namespace my
