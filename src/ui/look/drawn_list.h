#pragma once

#include "ui/framework/list_view.h"
#include "ui/look/state_icons.h"
#include "ui/models/row_colors.h"

namespace qlm {

// A list that draws its rows itself: with icons for the states of results, and with a selection and a focus
// that are visible on every ground. In high contrast it uses the colours of the system only.
class CDrawnList : public my::CListView {
 public:
  using CListView::CListView;

 protected:
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) override;

  // The implementations here are for a list with the system's window colour.
  virtual CRowGround Ground() const;
  virtual void DrawGround(HDC dc, const RECT& row) const;  // for a row without a colour of its own
  // Returns the column whose cell has the focus in the focused row; nullopt if rows have it as a whole.
  virtual std::optional<size_t> FocusedColumn() const { return {}; }
  virtual int DrawBox(HDC dc, size_t row, const RECT& bounds) const;  // returns where the text starts

  RECT PartOf(size_t row, int part) const;

  static constexpr int kRowMargin = 2;  // pixels at any DPI; some systems do not redraw this edge of a row

 private:
  struct CColumn {
    UINT flags = 0;  // for DrawText
    RECT place{};    // horizontal position in the control
  };

  // What the cells of a row have in common.
  struct CCellState {
    my::CListLook look;
    CRowColors colors;
    RowSelection selection = RowSelection::None;  // of the row
    bool focused = false;
  };

  void UpdateColumns();
  void DrawRow(HDC dc, size_t row);
  CRowColors ColorsOf(const my::CListLook& look, RowSelection selection) const;
  void DrawFrame(HDC dc, RECT area, int width, my::CColor color) const;
  void DrawCells(HDC dc, size_t row, const RECT& bounds, const CCellState& state);
  void DrawCell(HDC dc, size_t row, size_t column, RECT cell, int icon);

  std::vector<CColumn> m_columns;
  CStateIcons m_icons;
};

}  // namespace qlm
