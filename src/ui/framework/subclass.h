// Takes part in what a window does with its messages, whoever's class it is.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace my {

// Of the window's own thread. Several may be attached to one window; the one that came last comes first.
// Object and window may go in either order. The system's own subclassing looks a property up at every
// message, which takes Wine a tenth of a millisecond: a list asks its parent for every cell that it draws.
class CSubclass {
 public:
  // Answers a message in place of the window, or lets it pass. Exceptions are reported, and the message
  // passes.
  using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

  CSubclass() = default;
  CSubclass(const CSubclass&) = delete;
  CSubclass& operator=(const CSubclass&) = delete;
  ~CSubclass() { Detach(); }

  void Attach(HWND window, Handler handler);
  void Detach();

  // What the window itself does with a message. To be called by the handler.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  static LRESULT CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND m_window = nullptr;
  Handler m_handler;
};

}  // namespace my
