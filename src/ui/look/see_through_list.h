#pragma once

#include "ui/framework/list_view.h"

namespace qlm {

class CBackground;

// A list that shows the background of the main view behind its rows. The background does not scroll.
class CSeeThroughList : public my::CListView {
 public:
  // Model and background must outlive the control.
  CSeeThroughList(const my::IListModel& model, CBackground& background)
      : CListView(model), m_background(background) {}

  // Must be called when the control exists, and again when the background has changed.
  void UseBackground();

 protected:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) override;

 private:
  struct CRowColors {
    std::optional<COLORREF> back;  // empty: the background is shown
    COLORREF text = 0;
  };

  struct CColumn {
    UINT flags = 0;  // for DrawText
    RECT place{};    // horizontal position in the control
  };

  void RedrawScrolled();
  void DrawRow(HDC dc, size_t row) const;
  CRowColors ColorsOf(size_t row, bool selected, bool active) const;
  int DrawBox(HDC dc, size_t row, const RECT& bounds) const;  // returns where the text starts
  void DrawCell(HDC dc, size_t row, size_t column, RECT cell, bool shade) const;
  void DrawShade(HDC dc, const std::wstring& text, const RECT& cell, UINT flags) const;
  void UpdateColumns();
  RECT PartOf(size_t row, int part) const;

  CBackground& m_background;
  std::vector<CColumn> m_columns;
  POINT m_scrolled{};  // scroll position at the last drawing
};

}  // namespace qlm
