// Two panes, one above the other, with a bar that the user can move.
#pragma once

#include <functional>
#include <string>

#include "ui/framework/window.h"

namespace my {

// A window with two child panes and a bar between them. When it is resized, the panes keep their shares of
// the height, but each has room for a few rows, or half of the window. WM_COMMAND, WM_NOTIFY and
// WM_CONTEXTMENU of the panes are forwarded to the parent of the splitter. The bar is a window of its own, so
// that Tab reaches it after the upper pane. With the focus on it the arrow keys, Home and End move it.
class CSplitter : public CWindow {
 public:
  CSplitter() : m_bar(*this) {}

  // Screen readers speak the name of the bar.
  void CreateIn(HWND parent, int controlId, const std::wstring& barName);

  HWND Bar() const { return m_bar.Hwnd(); }

  // Sets the panes: children of this window, owned by the caller.
  void SetPanes(HWND upper, HWND lower);

  // The height of the upper pane, in pixels at 96 DPI. Setting it sets the shares, for the current height of
  // the window.
  int Upper() const;
  void SetUpper(int height);

  // Called after the user moved the bar.
  std::function<void()> onMoved;

  // Called when the bar gets the focus from another window.
  std::function<void(HWND from)> onFocus;

  // Draws the background of the bar; if empty, the system's face colour is used. Must be set again, or the
  // bar invalidated, when the background changes.
  std::function<void(HDC dc, HWND window, const RECT& area)> drawBehind;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class CBar : public CWindow {
   public:
    explicit CBar(CSplitter& splitter) : m_splitter(splitter) {}

   protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

   private:
    void Paint() const;

    CSplitter& m_splitter;
  };

  void HandleDrag(UINT message, int y);
  void Arrange() const;
  int BarTop() const;  // pixels
  int BarHeight() const;
  int Room() const;  // for both panes, in pixels
  void MoveTo(int top);
  bool HandleKey(UINT key);
  void StartDrag(int y);

  CBar m_bar;
  HWND m_upperPane = nullptr;
  HWND m_lowerPane = nullptr;
  double m_share = 0.55;  // of the upper pane
  int m_grip = 0;         // offset of the mouse within the bar
  bool m_dragging = false;
  UINT m_dpi = 0;
};

}  // namespace my
