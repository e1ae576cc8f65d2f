#include "ui/look/drawn_list.h"

#include <commctrl.h>

#include <algorithm>

#include "support/contrast.h"
#include "ui/framework/colors.h"
#include "ui/framework/dpi.h"
#include "ui/framework/high_contrast.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kCellMargin = 6;
constexpr int kIconGap = 4;
constexpr int kFocusWidth = 1;

constexpr int kIconMargin = 1;  // pixels at any DPI, above and below an icon

UINT Flags(my::ListAlign align) {
  constexpr UINT kFlags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  switch (align) {
    case my::ListAlign::Right: return kFlags | DT_RIGHT;
    case my::ListAlign::Centre: return kFlags | DT_CENTER;
    case my::ListAlign::Left: break;
  }
  return kFlags | DT_LEFT;
}

CRowColors SystemColors(const my::CListLook& look, RowSelection selection) {
  switch (selection) {
    case RowSelection::Active:
      return {my::SystemColor(COLOR_HIGHLIGHTTEXT), my::SystemColor(COLOR_HIGHLIGHT), {}};
    case RowSelection::Inactive:
      return {my::SystemColor(COLOR_WINDOWTEXT), my::SystemColor(COLOR_WINDOW),
              my::SystemColor(COLOR_HIGHLIGHT)};
    case RowSelection::None: break;
  }
  return {my::SystemColor(look.grey ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT), {}, {}};
}

bool HaveSameColors(const my::CListLook& a, const my::CListLook& b) {
  return a.color == b.color && a.grey == b.grey && a.alarm == b.alarm;
}

void Fill(HDC dc, const RECT& area, my::CColor color) {
  const my::CBrush brush(::CreateSolidBrush(my::ColorRef(color)));
  ::FillRect(dc, &area, brush.Get());
}

}  // namespace

LRESULT CDrawnList::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  const HDC dc = draw.nmcd.hdc;
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) UpdateColumns();
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CListView::OnCustomDraw(draw);
  if (draw.nmcd.dwItemSpec < Model().RowCount()) DrawRow(dc, draw.nmcd.dwItemSpec);
  return CDRF_SKIPDEFAULT;
}

CRowGround CDrawnList::Ground() const {
  return {my::SystemColor(COLOR_WINDOWTEXT), my::SystemColor(COLOR_GRAYTEXT),
          my::Luminance(my::SystemColor(COLOR_WINDOW))};
}

void CDrawnList::DrawGround(HDC dc, const RECT& row) const {
  ::FillRect(dc, &row, ::GetSysColorBrush(COLOR_WINDOW));
}

int CDrawnList::DrawBox(HDC, size_t, const RECT& bounds) const {
  return bounds.left - kRowMargin;
}

// Takes the column positions from the header, which scrolls with the columns.
void CDrawnList::UpdateColumns() {
  const HWND header = ListView_GetHeader(Hwnd());
  m_columns.resize(Model().ColumnCount());
  for (size_t i = 0; i < m_columns.size(); ++i) {
    CColumn& column = m_columns[i];
    column.flags = Flags(Model().Column(i).align);
    ::SendMessageW(header, HDM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&column.place));
    ::MapWindowPoints(header, Hwnd(), reinterpret_cast<POINT*>(&column.place), 2);
  }
}

void CDrawnList::DrawRow(HDC dc, size_t row) {
  const int saved = ::SaveDC(dc);
  const bool active = ::GetFocus() == Hwnd();
  const UINT states = ListView_GetItemState(Hwnd(), static_cast<int>(row), LVIS_SELECTED | LVIS_FOCUSED);
  CCellState state;
  state.look = Model().Look(row);
  state.focused = active && (states & LVIS_FOCUSED) != 0;
  if ((states & LVIS_SELECTED) != 0) state.selection = active ? RowSelection::Active : RowSelection::Inactive;
  const bool cells = FocusedColumn().has_value();
  const CRowColors& colors = state.colors =
      ColorsOf(state.look, cells ? RowSelection::None : state.selection);
  RECT bounds = PartOf(row, LVIR_BOUNDS);
  bounds.left += kRowMargin;
  if (colors.back)
    Fill(dc, bounds, *colors.back);
  else
    DrawGround(dc, bounds);
  if (colors.frame) DrawFrame(dc, bounds, 2 * kFocusWidth, *colors.frame);
  if (state.focused && !cells) DrawFrame(dc, bounds, kFocusWidth, colors.text);
  ::SetBkMode(dc, TRANSPARENT);
  ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageW(Hwnd(), WM_GETFONT, 0, 0)));
  DrawCells(dc, row, bounds, state);
  ::RestoreDC(dc, saved);
}

void CDrawnList::DrawCells(HDC dc, size_t row, const RECT& bounds, const CCellState& state) {
  ::SetTextColor(dc, my::ColorRef(state.colors.text));
  const int boxed = DrawBox(dc, row, bounds);
  const auto chosen = state.selection == RowSelection::None ? std::nullopt : FocusedColumn();
  for (size_t column = 0; column < m_columns.size(); ++column) {
    const RECT& place = m_columns[column].place;
    const RECT cell{column == 0 ? boxed : place.left, bounds.top, place.right, bounds.bottom};
    const my::CListLook look = Model().CellLook(row, column);
    const bool isChosen = column == chosen;
    const bool hasOwn = isChosen || !HaveSameColors(look, state.look);
    const CRowColors colors =
        hasOwn ? ColorsOf(look, isChosen ? state.selection : RowSelection::None) : state.colors;
    if (hasOwn && colors.back) Fill(dc, cell, *colors.back);
    if (hasOwn && colors.frame) DrawFrame(dc, cell, 2 * kFocusWidth, *colors.frame);
    if (isChosen && state.focused) DrawFrame(dc, cell, kFocusWidth, colors.text);
    ::SetTextColor(dc, my::ColorRef(colors.text));
    DrawCell(dc, row, column, cell, look.icon);
  }
}

CRowColors CDrawnList::ColorsOf(const my::CListLook& look, RowSelection selection) const {
  return my::IsHighContrast() ? SystemColors(look, selection) : RowColors(look, selection, Ground());
}

void CDrawnList::DrawFrame(HDC dc, RECT area, int width, my::CColor color) const {
  const my::CBrush brush(::CreateSolidBrush(my::ColorRef(color)));
  for (int i = 0; i < my::Scale(width, TextDpi()); ++i) {
    ::FrameRect(dc, &area, brush.Get());
    ::InflateRect(&area, -1, -1);
  }
}

void CDrawnList::DrawCell(HDC dc, size_t row, size_t column, RECT cell, int icon) {
  ::InflateRect(&cell, -my::Scale(kCellMargin, TextDpi()), 0);
  if (cell.right <= cell.left || !::RectVisible(dc, &cell)) return;
  if (icon >= 0) {
    const int size = static_cast<int>(cell.bottom - cell.top) - 2 * kIconMargin;
    m_icons.Draw(dc, icon, {cell.left, cell.top + kIconMargin}, size);
    cell.left += size + my::Scale(kIconGap, TextDpi());
  }
  const std::wstring text = Model().Text(row, column);
  if (text.empty() || cell.right <= cell.left) return;
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &cell, m_columns[column].flags);
}

RECT CDrawnList::PartOf(size_t row, int part) const {
  RECT rect{};
  ListView_GetItemRect(Hwnd(), static_cast<int>(row), &rect, part);
  return rect;
}

}  // namespace qlm
