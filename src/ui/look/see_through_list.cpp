#include "ui/look/see_through_list.h"

#include <commctrl.h>

#include "ui/framework/check_images.h"
#include "ui/look/background.h"

namespace qlm {

void CSeeThroughList::UseBackground() {
  const bool plain = m_background.IsPlain();
  // Without a background colour the control does not copy pixels when it scrolls.
  ListView_SetBkColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOW) : CLR_NONE);
  ListView_SetTextBkColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOW) : CLR_NONE);
  ListView_SetTextColor(Hwnd(), plain ? ::GetSysColor(COLOR_WINDOWTEXT) : m_background.TextColor());
  ::InvalidateRect(Hwnd(), nullptr, TRUE);
}

std::optional<LRESULT> CSeeThroughList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_background.IsPlain()) return CDrawnList::OnMessage(message, wParam, lParam);
  switch (message) {
    case WM_SIZE: m_background.UpdatePlace(); break;
    case WM_ERASEBKGND: return TRUE;  // painting starts with the background
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: ::InvalidateRect(Hwnd(), nullptr, FALSE); break;
    default: break;
  }
  return CDrawnList::OnMessage(message, wParam, lParam);
}

LRESULT CSeeThroughList::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  if (!m_background.IsPlain() && draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
    RECT area{};
    ::GetClientRect(Hwnd(), &area);
    m_background.Draw(draw.nmcd.hdc, Hwnd(), area);
    RedrawScrolled();
  }
  return CDrawnList::OnCustomDraw(draw);
}

CRowGround CSeeThroughList::Ground() const {
  return m_background.IsPlain() ? CDrawnList::Ground() : m_background.Ground();
}

// Veils the picture behind the whole row.
void CSeeThroughList::DrawGround(HDC dc, const RECT& row) const {
  if (m_background.IsPlain()) return CDrawnList::DrawGround(dc, row);
  m_background.DrawShade(dc, Hwnd(), row);
}

// Redraws everything after scrolling: keys and the program scroll too, and the control may have moved the
// pixels.
void CSeeThroughList::RedrawScrolled() {
  const POINT scrolled{::GetScrollPos(Hwnd(), SB_HORZ), ::GetScrollPos(Hwnd(), SB_VERT)};
  if (scrolled.x == m_scrolled.x && scrolled.y == m_scrolled.y) return;
  m_scrolled = scrolled;
  ::InvalidateRect(Hwnd(), nullptr, FALSE);
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

}  // namespace qlm
