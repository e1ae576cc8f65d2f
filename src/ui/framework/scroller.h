// Scroll bars for a window whose contents may be larger than its client area.
#pragma once

#include <windows.h>

namespace my {

// Keeps the scroll position of a window. The owner passes the messages on and places the contents.
class CScroller {
 public:
  // Returns the client area that the window has without scroll bars.
  static SIZE Room(HWND window);

  // Shows the bars that are needed for contents of this size, and hides the others.
  void SetContents(HWND window, SIZE contents);

  // Handles a message of scroll bars or mouse wheel. Returns whether the contents must be placed again.
  bool Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  // Scrolls so that `area`, in client coordinates, is visible. Returns whether the contents must be placed
  // again.
  bool Show(HWND window, const RECT& area);

  // Returns by how many pixels the contents are moved to the left and up.
  POINT Position() const { return m_position; }

 private:
  bool MoveTo(HWND window, POINT position);

  POINT m_position{};
  SIZE m_contents{};
  int m_wheel = 0;  // part of a wheel step that has not been used yet
};

}  // namespace my
