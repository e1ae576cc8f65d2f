// Font, sizes and scrolling of the controls in a dialog.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <vector>

#include "support/box_layout.h"
#include "ui/framework/control_sizes.h"
#include "ui/framework/gdi.h"
#include "ui/framework/scroller.h"
#include "ui/framework/subclass.h"

namespace my {

class CWindowLayout;

// Gives the controls of a window the user's message font and places them. If the window is too small for its
// controls, it scrolls, and the control with the focus is kept visible.
class CArrangement {
 public:
  // `arranged` is called whenever the controls have been placed.
  void Init(HWND window, CBox boxes, CSizesOf sizesOf, std::function<void()> arranged);

  // Sets the font for this DPI. Returns whether the font has changed.
  bool UseFont(UINT dpi);

  // Places the controls in the current client area. Does nothing if neither its size nor, since a call of
  // Invalidate, the controls have changed.
  void Arrange();
  void Invalidate() { m_valid = false; }

  // Returns the client size at which the window shows everything, or the least one without scrolling; the
  // width is at most `room.cx`, and a height above `room.cy` is cut and leaves room for a scroll bar.
  SIZE NaturalClient(SIZE room) const { return Client(room, &CSizeRange::natural); }
  SIZE LeastClient(SIZE room) const { return Client(room, &CSizeRange::least); }

  // Handles messages of scroll bars and mouse wheel. Returns whether it was one that scrolled.
  bool Handle(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  CControlSizes Sizes() const { return {m_window, m_font.Get(), m_dpi, m_sizesOf}; }
  SIZE Client(SIZE room, int CSizeRange::*size) const;
  SIZE Contents(const CWindowLayout& layout) const;
  void FollowFocus(HWND control);
  void Reveal(HWND control);

  HWND m_window = nullptr;
  CBox m_boxes;
  CSizesOf m_sizesOf;
  std::function<void()> m_arranged;
  UINT m_dpi = 0;
  CFont m_font;
  LOGFONTW m_logFont{};
  CScroller m_scroller;
  bool m_arranging = false;
  bool m_valid = false;
  SIZE m_room{};  // for which the controls were placed
  std::vector<std::unique_ptr<CSubclass>> m_focusHooks;
};

}  // namespace my
