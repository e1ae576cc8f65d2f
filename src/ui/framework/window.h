// The base of every window of our own classes.
#pragma once

#include <windows.h>

#include <exception>
#include <string>

namespace my {

// A registered window class; unregistered with the object, which must outlive its windows.
// Throws the system's error when the class cannot be registered.
class CWindowClass {
 public:
  // `background` and `cursor` are shared ones of the system: a COLOR_x + 1, an IDC_x.
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
  HWND parent = nullptr;  // or the owner, of a window without WS_CHILD
  DWORD style = WS_OVERLAPPEDWINDOW;
  DWORD exStyle = 0;
  std::wstring title;
  int left = CW_USEDEFAULT;  // pixels
  int top = CW_USEDEFAULT;
  int width = CW_USEDEFAULT;
  int height = CW_USEDEFAULT;
  HMENU menu = nullptr;  // the window owns it from Create on
  int controlId = 0;     // of a child, in place of the menu
};

// Owns one window of the calling thread. Either may go first: the destructor destroys the window, and when
// the window is destroyed by the system (with its parent, by WM_CLOSE) the object stays, with no window.
// The destructor detaches first: the derived class gets no message of that destruction; one that needs them
// calls Destroy() itself. An object must not be destroyed while it handles a message.
class CWindow {
 public:
  CWindow() = default;
  CWindow(const CWindow&) = delete;
  CWindow& operator=(const CWindow&) = delete;
  virtual ~CWindow();

  // Throws what WM_CREATE's handler threw, else the system's error.
  void Create(const CWindowClass& windowClass, const CWindowParams& params);
  void Destroy();

  HWND Hwnd() const { return m_hwnd; }
  HWND Parent() const { return ::GetParent(m_hwnd); }
  SIZE ClientSize() const;
  void Invalidate() const { ::InvalidateRect(m_hwnd, nullptr, FALSE); }

 protected:
  // A handler's exception goes to ReportFailure, and the message is answered with 0.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // What the system does with a message.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  friend class CWindowClass;

  static LRESULT CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  void Detach();

  HWND m_hwnd = nullptr;
  std::exception_ptr m_createFailure;
};

}  // namespace my
