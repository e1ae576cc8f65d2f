// Dragging rows of a report list to another place in it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>

namespace my {

// Holds the mouse from Begin to Drop or Cancel, marks where the rows would go, and scrolls while the mouse
// is above or below the rows.
class CListDrag {
 public:
  static constexpr UINT_PTR kTimer = 0x4452;  // of the list's window; its WM_TIMER calls Scroll

  bool Active() const { return m_list != nullptr; }

  // Points are of the list's client area.
  void Begin(HWND list, POINT mouse);
  void Move(POINT mouse);
  void Scroll();

  // The row in front of which the dragged ones go, the row count for behind the last.
  std::optional<size_t> Drop();
  void Cancel();

  // To be called when the rows are painted.
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
