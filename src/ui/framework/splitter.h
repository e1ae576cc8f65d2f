// Two windows, one above the other, and a bar between them that the user moves.
#pragma once

#include <functional>

#include "ui/framework/window.h"

namespace my {

// A child window that holds both panes as its children. The upper one keeps its height when the window is
// resized, the lower one takes the rest. What the panes tell their parent (WM_COMMAND, WM_NOTIFY,
// WM_CONTEXTMENU) goes on to the parent of the splitter. With the focus on it the arrow keys move the bar.
class CSplitter : public CWindow {
 public:
  void CreateIn(HWND parent, int controlId);

  // Children of this window that the caller owns.
  void SetPanes(HWND upper, HWND lower);

  // The height of the upper pane in pixels at 96 DPI. As wished: kept while the window has no room for it.
  int Upper() const { return m_upper; }
  void SetUpper(int height);

  // After the user moved the bar.
  std::function<void()> onMoved;

  // Draws what is behind bar and panes; empty: the system's face colour.
  std::function<void(HDC dc, const RECT& area)> drawBehind;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
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
  int m_grip = 0;  // where in the bar the mouse took it
  bool m_dragging = false;
  UINT m_dpi = 0;
};

}  // namespace my
