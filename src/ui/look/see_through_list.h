#pragma once

#include "ui/framework/list_view.h"

namespace qlm {

class CBackground;

// A list behind whose rows the background of the main view is seen; it stands still while the rows scroll.
class CSeeThroughList : public my::CListView {
 public:
  // Both outlive the control.
  CSeeThroughList(const my::IListModel& model, CBackground& background)
      : CListView(model), m_background(background) {}

  // To be called once there is a control, and whenever the background is another one.
  void UseBackground();

 protected:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) override;

 private:
  struct CRowColors {
    std::optional<COLORREF> back;  // empty: the background is seen
    COLORREF text = 0;
  };

  struct CColumn {
    UINT flags = 0;  // of its texts
    RECT place{};    // from left to right, in the control
  };

  void RedrawScrolled();
  void DrawRow(HDC dc, size_t row) const;
  CRowColors ColorsOf(size_t row, bool selected, bool active) const;
  int DrawBox(HDC dc, size_t row, const RECT& bounds) const;  // answers where the text begins
  void DrawCell(HDC dc, size_t row, size_t column, RECT cell, bool shade) const;
  void DrawShade(HDC dc, const std::wstring& text, const RECT& cell, UINT flags) const;
  void UpdateColumns();
  RECT PartOf(size_t row, int part) const;

  CBackground& m_background;
  std::vector<CColumn> m_columns;
  POINT m_scrolled{};  // when it was drawn last
};

}  // namespace qlm
