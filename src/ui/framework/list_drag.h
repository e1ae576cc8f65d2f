// Drag and drop of rows within a report list.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>

namespace my {

// Captures the mouse from Begin to Drop or Cancel, marks the insertion point, and scrolls while the mouse is
// above or below the rows.
class CListDrag {
 public:
  static constexpr UINT_PTR kTimer = 0x4452;  // a timer of the list window, whose WM_TIMER calls Scroll

  bool Active() const { return m_list != nullptr; }

  // Points are in client coordinates of the list.
  void Begin(HWND list, POINT mouse);
  void Move(POINT mouse);
  void Scroll();

  // Ends the drag and returns the row before which to insert; the row count for the end. Nullopt if no drag
  // is active.
  std::optional<size_t> Drop();
  void Cancel();

  // Called after the rows were painted.
  void DrawMark(HDC dc, UINT dpi) const;

 private:
  void SetTarget(int before);
  int TargetAt(POINT point) const;
  RECT MarkArea() const;

  HWND m_list = nullptr;
  POINT m_mouse{};
  int m_before = 0;
};

}  // namespace my
