#pragma once

#include "ui/look/drawn_list.h"

namespace qlm {

class CBackground;

// A list that shows the background of the main view behind its rows. The background does not scroll.
class CSeeThroughList : public CDrawnList {
 public:
  // Model and background must outlive the control.
  CSeeThroughList(const my::IListModel& model, CBackground& background)
      : CDrawnList(model), m_background(background) {}

  // Must be called when the control exists, and again when the background has changed.
  void UseBackground();

 protected:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) override;

  CRowGround Ground() const override;
  void DrawGround(HDC dc, const RECT& row) const override;
  int DrawBox(HDC dc, size_t row, const RECT& bounds) const override;

 private:
  void RedrawScrolled();

  CBackground& m_background;
  POINT m_scrolled{};  // scroll position at the last drawing
};

}  // namespace qlm
