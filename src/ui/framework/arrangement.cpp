#include "ui/framework/arrangement.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "ui/framework/combo_texts.h"
#include "ui/framework/dpi.h"
#include "ui/framework/layout.h"

namespace my {
namespace {

constexpr int kAround = 8;  // visible around the control with the focus, in pixels at 96 DPI

BOOL CALLBACK SetFont(HWND control, LPARAM font) {
  ::SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
  return TRUE;
}

}  // namespace

void CArrangement::Init(HWND window, CBox boxes, CSizesOf sizesOf, std::function<void()> arranged) {
  m_window = window;
  m_boxes = std::move(boxes);
  m_sizesOf = std::move(sizesOf);
  m_arranged = std::move(arranged);
  for (HWND control = ::GetWindow(window, GW_CHILD); control; control = ::GetWindow(control, GW_HWNDNEXT)) {
    FollowFocus(control);
    // The edit control inside a combo box.
    if (const HWND inner = ::GetWindow(control, GW_CHILD)) FollowFocus(inner);
  }
}

bool CArrangement::UseFont(UINT dpi) {
  const LOGFONTW wanted = MessageLogFont(dpi);
  if (m_dpi == dpi && std::memcmp(&wanted, &m_logFont, sizeof wanted) == 0) return false;
  const CComboTexts texts(m_window);
  m_dpi = dpi;
  m_logFont = wanted;
  // The old font must live until no control uses it.
  CFont font(::CreateFontIndirectW(&wanted));
  ::SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
  ::EnumChildWindows(m_window, SetFont, reinterpret_cast<LPARAM>(font.Get()));
  m_font = std::move(font);
  Invalidate();
  return true;
}

void CArrangement::Arrange() {
  const SIZE room = CScroller::Room(m_window);
  if (m_valid && room.cx == m_room.cx && room.cy == m_room.cy) return;
  if (std::exchange(m_arranging, true)) return;  // a scroll bar that appears sends WM_SIZE
  const CControlSizes sizes = Sizes();
  const CWindowLayout layout(m_window, m_boxes, sizes);
  const SIZE contents = Contents(layout);
  m_scroller.SetContents(m_window, contents);
  layout.Apply(contents, m_scroller.Position());
  m_room = room;
  m_valid = true;
  m_arranged();
  m_arranging = false;
}

// Returns the size of the client area, or of the contents if they are larger.
SIZE CArrangement::Contents(const CWindowLayout& layout) const {
  const LONG bar = SystemMetric(SM_CXVSCROLL, m_dpi);
  SIZE room = CScroller::Room(m_window);
  const LONG least = layout.Width().least;
  if (least > room.cx) room.cy -= bar;
  // A vertical scroll bar takes width from the contents, which may make them higher.
  if (layout.Height(std::max(room.cx, least)).least > room.cy) room.cx -= bar;
  const LONG width = std::max(room.cx, least);
  return {width, std::max<LONG>(room.cy, layout.Height(width).least)};
}

// The height is that at the natural width, where texts have the fewest lines. If the user makes the window so
// narrow that they need more, it scrolls.
SIZE CArrangement::Client(SIZE room, int CSizeRange::*size) const {
  const CControlSizes sizes = Sizes();
  const CWindowLayout layout(m_window, m_boxes, sizes);
  const CSizeRange width = layout.Width();
  const LONG height = layout.Height(std::min<int>(room.cx, width.natural)).*size;
  if (height <= room.cy) return {std::min<LONG>(room.cx, width.*size), height};
  return {std::min<LONG>(room.cx, width.*size + SystemMetric(SM_CXVSCROLL, m_dpi)), room.cy};
}

bool CArrangement::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!m_scroller.Handle(m_window, message, wParam, lParam)) return false;
  Invalidate();
  Arrange();
  return true;
}

void CArrangement::FollowFocus(HWND control) {
  m_focusHooks.push_back(std::make_unique<CSubclass>());
  m_focusHooks.back()->Attach(control,
                              [this, control](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                                if (message == WM_SETFOCUS) Reveal(control);
                                return {};
                              });
}

void CArrangement::Reveal(HWND control) {
  RECT area{};
  ::GetWindowRect(control, &area);
  ::MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&area), 2);
  ::InflateRect(&area, 0, Scale(kAround, m_dpi));
  if (!m_scroller.Show(m_window, area)) return;
  Invalidate();
  Arrange();
}

}  // namespace my
