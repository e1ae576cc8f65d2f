#include "ui/look/see_through_list.h"

#include <commctrl.h>

#include <algorithm>

#include "ui/framework/check_images.h"
#include "ui/framework/colors.h"
#include "ui/framework/dpi.h"
#include "ui/look/background.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kCellMargin = 6;
constexpr int kShadeMargin = 3;

constexpr int kRowMargin = 2;  // pixels at any DPI; some systems do not redraw this edge of a row

UINT Flags(my::ListAlign align) {
  constexpr UINT kFlags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  switch (align) {
    case my::ListAlign::Right: return kFlags | DT_RIGHT;
    case my::ListAlign::Centre: return kFlags | DT_CENTER;
    case my::ListAlign::Left: break;
  }
  return kFlags | DT_LEFT;
}

}  // namespace

void CSeeThroughList::UseBackground() {
  m_columns.clear();
  for (size_t i = 0; i < Model().ColumnCount(); ++i)
    m_columns.push_back({Flags(Model().Column(i).align), {}});
  const bool plain = m_background.IsPlain();
  // Without a background colour the control does not copy pixels when it scrolls.
  ListView_SetBkColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOW) : CLR_NONE);
  ListView_SetTextBkColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOW) : CLR_NONE);
  ListView_SetTextColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOWTEXT) : m_background.TextColor());
  ::InvalidateRect(Hwnd(), nullptr, TRUE);
}

std::optional<LRESULT> CSeeThroughList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_background.IsPlain()) return CListView::OnMessage(message, wParam, lParam);
  switch (message) {
    case WM_ERASEBKGND: return TRUE;  // painting starts with the background
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: ::InvalidateRect(Hwnd(), nullptr, FALSE); break;
    default: break;
  }
  return CListView::OnMessage(message, wParam, lParam);
}

LRESULT CSeeThroughList::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  if (m_background.IsPlain()) return CListView::OnCustomDraw(draw);
  const HDC dc = draw.nmcd.hdc;
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
    RECT area{};
    ::GetClientRect(Hwnd(), &area);
    m_background.Draw(dc, Hwnd(), area);
    UpdateColumns();
    RedrawScrolled();
  }
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CListView::OnCustomDraw(draw);
  if (draw.nmcd.dwItemSpec < Model().RowCount()) DrawRow(dc, draw.nmcd.dwItemSpec);
  return CDRF_SKIPDEFAULT;
}

// Redraws everything after scrolling: keys and the program scroll too, and the control may have moved the
// pixels.
void CSeeThroughList::RedrawScrolled() {
  const POINT scrolled{::GetScrollPos(Hwnd(), SB_HORZ), ::GetScrollPos(Hwnd(), SB_VERT)};
  if (scrolled.x == m_scrolled.x && scrolled.y == m_scrolled.y) return;
  m_scrolled = scrolled;
  ::InvalidateRect(Hwnd(), nullptr, FALSE);
}

void CSeeThroughList::DrawRow(HDC dc, size_t row) const {
  const int saved = ::SaveDC(dc);
  const bool active = ::GetFocus() == Hwnd();
  const UINT state = ListView_GetItemState(Hwnd(), static_cast<int>(row), LVIS_SELECTED | LVIS_FOCUSED);
  const CRowColors colors = ColorsOf(row, (state & LVIS_SELECTED) != 0, active);
  RECT bounds = PartOf(row, LVIR_BOUNDS);
  bounds.left += kRowMargin;
  ::SetBkMode(dc, OPAQUE);
  if (colors.back) {
    ::SetBkColor(dc, *colors.back);
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &bounds, nullptr, 0, nullptr);
    // If the list has no focus, the colour of a selected row may be close to that of the background.
    ::FrameRect(dc, &bounds, ::GetSysColorBrush(COLOR_HIGHLIGHT));
  }
  ::SetBkColor(dc, RGB(0, 0, 0));
  ::SetTextColor(dc, RGB(255, 255, 255));
  if (active && (state & LVIS_FOCUSED) != 0) ::DrawFocusRect(dc, &bounds);
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, colors.text);
  ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageW(Hwnd(), WM_GETFONT, 0, 0)));
  const int boxed = DrawBox(dc, row, bounds);
  for (size_t column = 0; column < m_columns.size(); ++column) {
    const RECT& place = m_columns[column].place;
    DrawCell(dc, row, column, {column == 0 ? boxed : place.left, bounds.top, place.right, bounds.bottom},
             !colors.back);
  }
  ::RestoreDC(dc, saved);
}

CSeeThroughList::CRowColors CSeeThroughList::ColorsOf(size_t row, bool selected, bool active) const {
  if (selected && active) return {::GetSysColor(COLOR_HIGHLIGHT), ::GetSysColor(COLOR_HIGHLIGHTTEXT)};
  if (selected) return {::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_BTNTEXT)};
  const my::CListLook look = Model().Look(row);
  if (look.grey) return {{}, m_background.Readable(my::SystemColor(COLOR_GRAYTEXT))};
  return {{}, look.color ? m_background.Readable(*look.color) : m_background.TextColor()};
}

int CSeeThroughList::DrawBox(HDC dc, size_t row, const RECT& bounds) const {
  const HIMAGELIST images = ListView_GetImageList(Hwnd(), LVSIL_STATE);
  const UINT image = my::CheckImageIndex(Model().Check(row));
  if (!images || image == 0) return bounds.left - kRowMargin;
  int width = 0;
  int height = 0;
  ::ImageList_GetIconSize(images, &width, &height);
  const int top = (bounds.top + bounds.bottom - height) / 2;
  ::ImageList_Draw(images, static_cast<int>(image) - 1, dc, PartOf(row, LVIR_ICON).left - width, top,
                   ILD_NORMAL);
  return PartOf(row, LVIR_LABEL).left - kRowMargin;
}

void CSeeThroughList::DrawCell(HDC dc, size_t row, size_t column, RECT cell, bool shade) const {
  ::InflateRect(&cell, -my::Scale(kCellMargin, Dpi()), 0);
  if (cell.right <= cell.left || !::RectVisible(dc, &cell)) return;
  const std::wstring text = Model().Text(row, column);
  if (text.empty()) return;
  if (shade) DrawShade(dc, text, cell, m_columns[column].flags);
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &cell, m_columns[column].flags);
}

// Draws the shade only under the text, so that the picture beside it keeps its brightness.
void CSeeThroughList::DrawShade(HDC dc, const std::wstring& text, const RECT& cell, UINT flags) const {
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  const int free = std::max<int>(0, cell.right - cell.left - size.cx);
  const int before = (flags & DT_RIGHT) != 0 ? free : (flags & DT_CENTER) != 0 ? free / 2 : 0;
  const int margin = my::Scale(kShadeMargin, Dpi());
  const int left = cell.left + before - margin;
  m_background.DrawShade(dc, Hwnd(), {left, cell.top, cell.right - free + before + margin, cell.bottom});
}

// Takes the column positions from the header, which scrolls with the columns.
void CSeeThroughList::UpdateColumns() {
  const HWND header = ListView_GetHeader(Hwnd());
  for (size_t i = 0; i < m_columns.size(); ++i) {
    RECT& place = m_columns[i].place;
    ::SendMessageW(header, HDM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place));
    ::MapWindowPoints(header, Hwnd(), reinterpret_cast<POINT*>(&place), 2);
  }
}

RECT CSeeThroughList::PartOf(size_t row, int part) const {
  RECT rect{};
  ListView_GetItemRect(Hwnd(), static_cast<int>(row), &rect, part);
  return rect;
}

}  // namespace qlm
