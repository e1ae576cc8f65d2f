#include "ui/dialogs/plan_matrix_view.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "ui/framework/accessibility.h"

namespace qlm {

void CPlanMatrixView::SetCell(size_t row, size_t column) {
  Select({row});
  SetFocused(row);
  EnsureVisible(row);
  SetColumn(column);
}

void CPlanMatrixView::Speak(std::optional<size_t> row) {
  const auto before = std::exchange(m_spokenRow, row);
  if (before && before != row) my::SetSpokenName(Hwnd(), *before, {});
  if (!row) return;
  my::SetSpokenName(Hwnd(), *row, m_spokenCell(*row, m_column));
  if (::GetFocus() == Hwnd()) my::ReportItemFocus(Hwnd(), *row);
}

std::optional<LRESULT> CPlanMatrixView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN && Step(wParam)) return 0;
  if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) {
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    if (ListView_SubItemHitTest(Hwnd(), &hit) >= 0) SetColumn(static_cast<size_t>(hit.iSubItem));
  }
  return CDrawnList::OnMessage(message, wParam, lParam);
}

// With Ctrl the keys scroll, as in every list.
bool CPlanMatrixView::Step(WPARAM key) {
  if (::GetKeyState(VK_CONTROL) < 0 || (key != VK_LEFT && key != VK_RIGHT)) return false;
  if (key == VK_LEFT && m_column > 0) SetColumn(m_column - 1);
  if (key == VK_RIGHT && m_column + 1 < Model().ColumnCount()) SetColumn(m_column + 1);
  return true;
}

void CPlanMatrixView::SetColumn(size_t column) {
  const bool isNew = std::exchange(m_column, column) != column;
  ShowColumn();
  ::InvalidateRect(Hwnd(), nullptr, FALSE);
  if (isNew && onColumn) onColumn();
}

// Scrolls until the column is visible; its left edge counts more.
void CPlanMatrixView::ShowColumn() const {
  const HWND header = ListView_GetHeader(Hwnd());
  RECT place{};
  RECT client{};
  ::SendMessageW(header, HDM_GETITEMRECT, m_column, reinterpret_cast<LPARAM>(&place));
  ::MapWindowPoints(header, Hwnd(), reinterpret_cast<POINT*>(&place), 2);
  ::GetClientRect(Hwnd(), &client);
  LONG by = std::max<LONG>(0, place.right - client.right);
  if (place.left - by < 0) by = place.left;
  if (by != 0) ListView_Scroll(Hwnd(), by, 0);
}

}  // namespace qlm
