#include "ui/framework/layout.h"

#include "ui/framework/combo_texts.h"
#include "ui/framework/controls.h"

namespace my {
namespace {

constexpr int kDroppedRows = 12;

// Returns the height that the control must be given. For a combo box it includes the open list.
int WindowHeight(HWND control, int height) {
  if (!IsComboBox(control)) return height;
  return height + static_cast<int>(::SendMessageW(control, CB_GETITEMHEIGHT, 0, 0)) * kDroppedRows;
}

// Moving a window costs time even if it stays where it is.
bool IsAt(HWND window, HWND control, const CRect& rect) {
  RECT now{};
  ::GetWindowRect(control, &now);
  ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&now), 2);
  return CRect{now.left, now.top, now.right, now.bottom} == rect;
}

}  // namespace

CWindowLayout::CWindowLayout(HWND window, const CBox& root, const CControlSizes& sizes)
    : m_window(window), m_sizes(sizes), m_layout(root, sizes), m_margin(sizes.Margin()) {}

CSizeRange CWindowLayout::Width() const {
  const CSizeRange width = m_layout.Width();
  return {width.least + 2 * m_margin, width.natural + 2 * m_margin};
}

CSizeRange CWindowLayout::Height(int width) const {
  const CSizeRange height = m_layout.Height(width - 2 * m_margin);
  return {height.least + 2 * m_margin, height.natural + 2 * m_margin};
}

void CWindowLayout::Apply(SIZE client, POINT scrolled) const {
  const CComboTexts texts(m_window);
  const CRect area{m_margin - scrolled.x, m_margin - scrolled.y, client.cx - m_margin - scrolled.x,
                   client.cy - m_margin - scrolled.y};
  const std::vector<CPlacedBox> places = m_layout.Place(area);
  HDWP moves = ::BeginDeferWindowPos(static_cast<int>(places.size()));
  for (const CPlacedBox& place : places) {
    const HWND control = m_sizes.ControlOf(*place.control);
    const CRect& rect = place.rect;
    if (IsAt(m_window, control, rect)) continue;
    moves = ::DeferWindowPos(moves, control, nullptr, rect.left, rect.top, rect.right - rect.left,
                             WindowHeight(control, rect.bottom - rect.top), SWP_NOZORDER | SWP_NOACTIVATE);
    if (!moves) return;
  }
  ::EndDeferWindowPos(moves);
}

}  // namespace my
