// Two panes, one above the other, with a bar that the user can move.
#pragma once

#include <functional>

#include "ui/framework/window.h"

namespace my {

// A window with two child panes. When it is resized, the upper pane keeps its height and the lower one gets
// the rest. WM_COMMAND, WM_NOTIFY and WM_CONTEXTMENU of the panes are forwarded to the parent of the
// splitter. With the focus on the splitter the arrow keys move the bar.
class CSplitter : public CWindow {
 public:
  void CreateIn(HWND parent, int controlId);

  // Sets the panes: children of this window, owned by the caller.
  void SetPanes(HWND upper, HWND lower);

  // The wanted height of the upper pane, in pixels at 96 DPI. It is kept while the window is too small for
  // it.
  int Upper() const { return m_upper; }
  void SetUpper(int height);

  // Called after the user moved the bar.
  std::function<void()> onMoved;

  // Draws the background of the bar and the panes; if empty, the system's face colour is used.
  std::function<void(HDC dc, const RECT& area)> drawBehind;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void HandleDrag(UINT message, int y);
  bool SetCursor(HWND window, UINT hit) const;
  void Arrange() const;
  int BarTop() const;  // pixels
  int BarHeight() const;
  void MoveTo(int top);
  bool HandleKey(UINT key);
  void Paint() const;
  void StartDrag(int y);

  HWND m_upperPane = nullptr;
  HWND m_lowerPane = nullptr;
  int m_upper = 0;
  int m_grip = 0;  // offset of the mouse within the bar
  bool m_dragging = false;
  UINT m_dpi = 0;
};

}  // namespace my
