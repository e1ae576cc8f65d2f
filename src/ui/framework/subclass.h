// Subclassing of windows of any class.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace my {

// Handles messages of a window of the same thread. If several objects are attached to a window, the last one
// attached is called first. Object and window may be destroyed in either order. SetWindowSubclass is not used
// because it reads a window property for every message, which is slow under Wine; a list sends its parent a
// notification for every cell that it draws.
class CSubclass {
 public:
  // Returns the result of a message, or nullopt to pass it on. Exceptions are reported, and the message is
  // passed on.
  using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

  CSubclass() = default;
  CSubclass(const CSubclass&) = delete;
  CSubclass& operator=(const CSubclass&) = delete;
  ~CSubclass() { Detach(); }

  void Attach(HWND window, Handler handler);
  void Detach();

  // Calls the original window procedure. For use in handlers.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  static LRESULT CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND m_window = nullptr;
  Handler m_handler;
};

}  // namespace my
