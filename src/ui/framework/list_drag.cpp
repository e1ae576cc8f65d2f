#include "ui/framework/list_drag.h"

#include <algorithm>
#include <utility>

#include "ui/framework/dpi.h"

namespace my {
namespace {

constexpr UINT kScrollMs = 100;
constexpr int kMarkHeight = 2;

RECT RowRect(HWND list, int row) {
  RECT rect{};
  ListView_GetItemRect(list, row, &rect, LVIR_BOUNDS);
  return rect;
}

// Returns the top of the rows, below the header.
int RowsTop(HWND list) {
  RECT header{};
  const HWND window = ListView_GetHeader(list);
  if (window && ::IsWindowVisible(window)) ::GetClientRect(window, &header);
  return header.bottom;
}

}  // namespace

void CListDrag::Begin(HWND list, POINT mouse) {
  m_list = list;
  m_mouse = mouse;
  m_before = TargetAt(mouse);
  ::SetCapture(list);
  ::SetTimer(list, kTimer, kScrollMs, nullptr);
  ::InvalidateRect(list, nullptr, TRUE);
}

void CListDrag::Move(POINT mouse) {
  m_mouse = mouse;
  SetTarget(TargetAt(mouse));
}

void CListDrag::Scroll() {
  RECT client{};
  ::GetClientRect(m_list, &client);
  const RECT row = RowRect(m_list, ListView_GetTopIndex(m_list));
  const int height = row.bottom - row.top;
  if (m_mouse.y < RowsTop(m_list))
    ListView_Scroll(m_list, 0, -height);
  else if (m_mouse.y >= client.bottom)
    ListView_Scroll(m_list, 0, height);
  else
    return;
  ::InvalidateRect(m_list, nullptr, TRUE);
  SetTarget(TargetAt(m_mouse));
}

std::optional<size_t> CListDrag::Drop() {
  if (!Active()) return {};
  const int before = m_before;
  Cancel();
  return static_cast<size_t>(before);
}

void CListDrag::Cancel() {
  // Cleared before releasing the capture, because WM_CAPTURECHANGED calls this function again.
  const HWND list = std::exchange(m_list, nullptr);
  if (!list) return;
  ::KillTimer(list, kTimer);
  if (::GetCapture() == list) ::ReleaseCapture();
  ::InvalidateRect(list, nullptr, TRUE);
}

void CListDrag::DrawMark(HDC dc, UINT dpi) const {
  if (!Active()) return;
  RECT mark = MarkArea();
  mark.bottom = mark.top + Scale(kMarkHeight, dpi);
  ::FillRect(dc, &mark, ::GetSysColorBrush(COLOR_HIGHLIGHT));
}

void CListDrag::SetTarget(int before) {
  if (before == m_before) return;
  m_before = before;
  ::InvalidateRect(m_list, nullptr, TRUE);
}

int CListDrag::TargetAt(POINT point) const {
  const int top = ListView_GetTopIndex(m_list);
  const RECT row = RowRect(m_list, top);
  const int height = std::max(1L, row.bottom - row.top);
  const int middle = static_cast<int>(point.y - row.top) + height / 2;
  // Rounded down, also for points above the first row.
  const int rows = middle >= 0 ? middle / height : -1;
  return std::clamp(top + rows, 0, ListView_GetItemCount(m_list));
}

RECT CListDrag::MarkArea() const {
  const int count = ListView_GetItemCount(m_list);
  const bool behind = m_before >= count;
  RECT row = RowRect(m_list, behind ? count - 1 : m_before);
  if (behind) row.top = row.bottom;
  return row;
}

}  // namespace my
