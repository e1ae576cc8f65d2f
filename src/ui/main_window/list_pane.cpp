#include "ui/main_window/list_pane.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "control_ids.h"
#include "platform/message_texts.h"
#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"
#include "ui/look/background.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kMargin = 6;
constexpr int kGap = 4;
constexpr int kButtonPadding = 12;
constexpr int kButtonFrame = 7;           // above and below the text of a button
constexpr int kRoomForDescription = 150;  // height of the whole pane

const my::CWindowClass& PaneClass() {
  static const my::CWindowClass paneClass(L"QuillmoorListPane", 0, COLOR_BTNFACE + 1);
  return paneClass;
}

// Moves a control and shows or hides it.
void Place(HWND control, const RECT& place, bool show) {
  const UINT visible = show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
  ::SetWindowPos(control, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | visible);
}

}  // namespace

void CListPane::CreateIn(HWND parent, int paneId, int listId, my::CListView::Boxes boxes, CPaneSpec spec) {
  m_spec = std::move(spec);
  my::CWindowParams params;
  params.parent = parent;
  params.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
  params.exStyle = WS_EX_CONTROLPARENT;
  params.controlId = paneId;
  params.left = params.top = params.width = params.height = 0;
  Create(PaneClass(), params);
  // Screen readers use the text before a list as its name, so the title comes directly before the list.
  for (const CPaneButton& button : m_spec.buttons)
    m_buttons.push_back(AddControl(L"BUTTON", button.textId, WS_VISIBLE | WS_TABSTOP, button.id));
  m_title = AddControl(L"STATIC", m_spec.titleId, WS_VISIBLE | SS_NOPREFIX, IDC_PANE_TITLE);
  m_list.Create(Hwnd(), listId, boxes);
  m_hint = AddControl(L"STATIC", m_spec.hintId, SS_CENTER | SS_NOPREFIX, IDC_PANE_HINT);
  for (const CPaneButton& button : m_spec.hintButtons)
    m_hintButtons.push_back(AddControl(L"BUTTON", button.textId, WS_TABSTOP, button.id));
  m_description = AddControl(L"STATIC", 0, SS_RIGHT | SS_NOPREFIX | SS_ENDELLIPSIS, IDC_PANE_DESCRIPTION);
  UseBackground();
}

void CListPane::Prepare() {
  UseDpi(my::WindowDpi(Hwnd()));
}

HWND CListPane::AddControl(const wchar_t* className, uint32_t textId, DWORD style, int id) const {
  const std::wstring text = textId ? m_texts.Text(textId) : std::wstring();
  return ::CreateWindowExW(0, className, text.c_str(), WS_CHILD | style, 0, 0, 0, 0, Hwnd(),
                           reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
}

void CListPane::EnableButton(int id, bool enable) const {
  ::EnableWindow(::GetDlgItem(Hwnd(), id), enable);
}

void CListPane::ShowHint(bool show) {
  const HWND focus = ::GetFocus();
  ::ShowWindow(m_hint, show ? SW_SHOWNA : SW_HIDE);
  ::ShowWindow(m_list.Hwnd(), show ? SW_HIDE : SW_SHOWNA);
  Arrange();
  if (::IsChild(Hwnd(), focus) && !::IsWindowVisible(focus)) SetFocus();
}

void CListPane::ShowDescription(const std::wstring& text) {
  const bool shown = (::GetWindowLongW(m_description, GWL_STYLE) & WS_VISIBLE) != 0;
  ::SetWindowTextW(m_description, text.c_str());
  if (shown != text.empty()) return;
  ::ShowWindow(m_description, text.empty() ? SW_HIDE : SW_SHOWNA);
  Arrange();
}

void CListPane::UseBackground() {
  m_list.UseBackground();
  ::RedrawWindow(Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

bool CListPane::Covers(POINT screen) const {
  RECT area{};
  ::GetWindowRect(Hwnd(), &area);
  return ::PtInRect(&area, screen) != FALSE;
}

void CListPane::SetFocus() const {
  ::SetFocus(IsHintShown() ? m_hintButtons.front() : m_list.Hwnd());
}

LRESULT CListPane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == my::DpiMessage()) {
    UseDpi(static_cast<UINT>(wParam));
    return 0;
  }
  switch (message) {
    case WM_COMMAND: OnButton(wParam, reinterpret_cast<HWND>(lParam)); return 0;
    case WM_PARENTNOTIFY:
      if (LOWORD(wParam) == WM_LBUTTONDOWN)
        m_clicked = ::ChildWindowFromPoint(Hwnd(), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      break;
    case WM_SIZE: Arrange(); return 0;
    case WM_WINDOWPOSCHANGED: {
      // The pane shows another part of the background now.
      ::RedrawWindow(Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      break;
    }
    case WM_ERASEBKGND:
      if (m_background.IsPlain()) break;
      Erase(reinterpret_cast<HDC>(wParam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      if (m_background.IsPlain()) break;
      return ColorStatic(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == NM_SETFOCUS && onAttention) onAttention();
      break;
    case WM_SETCURSOR:
      if (onAttention) onAttention();
      break;
    default: break;
  }
  return CWindow::OnMessage(message, wParam, lParam);
}

// A click on a button must not keep the focus there. The user of the keyboard may press the button again.
void CListPane::OnButton(WPARAM command, HWND button) {
  const bool clicked = std::exchange(m_clicked, nullptr) == button;
  ::SendMessageW(Parent(), WM_COMMAND, command, reinterpret_cast<LPARAM>(button));
  if (clicked && ::GetFocus() == button) SetFocus();
}

void CListPane::Erase(HDC dc) {
  RECT area{};
  ::GetClientRect(Hwnd(), &area);
  m_background.Draw(dc, Hwnd(), area);
}

void CListPane::AddRooms(std::vector<CRoom>& rooms, HWND view, bool upper) const {
  const auto inView = [view](HWND window, RECT area) -> my::CRect {
    ::MapWindowPoints(window, view, reinterpret_cast<POINT*>(&area), 2);
    return {area.left, area.top, area.right, area.bottom};
  };
  CRoom room{upper, inView(m_list.Hwnd(), EmptyArea()), {}};
  const auto addWords = [&](HWND control) {
    if ((::GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) == 0) return;
    RECT area{};
    ::GetClientRect(control, &area);
    room.words.push_back(inView(control, TextArea(control, area)));
  };
  addWords(m_hint);
  for (const HWND button : m_hintButtons) addWords(button);
  rooms.push_back(room);
  if ((::GetWindowLongW(m_list.Hwnd(), GWL_STYLE) & WS_HSCROLL) != 0) return;
  addWords(m_description);
  room.area.bottom = inView(Hwnd(), {0, 0, 0, ClientSize().cy}).bottom;
  rooms.push_back(std::move(room));
}

// Returns the part of the list below its rows.
RECT CListPane::EmptyArea() const {
  const HWND list = m_list.Hwnd();
  RECT area{};
  ::GetClientRect(list, &area);
  const int count = ListView_GetItemCount(list);
  RECT above{};
  if (count != 0)
    ListView_GetItemRect(list, count - 1, &above, LVIR_BOUNDS);
  else
    ::GetClientRect(ListView_GetHeader(list), &above);
  area.top = std::min(area.bottom, above.bottom);
  return area;
}

// Returns the rectangle of the text within a static control.
RECT CListPane::TextArea(HWND control, const RECT& area) const {
  const LONG width = std::min(my::TextSize(control).cx, area.right - area.left);
  const LONG free = area.right - area.left - width;
  const LONG kind = ::GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK;
  const LONG left = area.left + (kind == SS_RIGHT ? free : kind == SS_CENTER ? free / 2 : 0);
  return {left, area.top, left + width, area.bottom};
}

// Draws the background before the control draws its text, because the text itself is transparent.
LRESULT CListPane::ColorStatic(HDC dc, HWND control) {
  RECT area{};
  ::GetClientRect(control, &area);
  m_background.Draw(dc, control, area);
  m_background.DrawShade(dc, control, TextArea(control, area));
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, m_background.TextColor());
  return reinterpret_cast<LRESULT>(::GetStockObject(NULL_BRUSH));
}

void CListPane::UseDpi(UINT dpi) {
  m_dpi = dpi;
  m_background.SetDpi(dpi);
  my::CFont font = my::MessageFont(dpi);
  LOGFONTW bold = my::MessageLogFont(dpi);
  bold.lfWeight = FW_BOLD;
  my::CFont titleFont(::CreateFontIndirectW(&bold));
  std::vector<HWND> controls = m_buttons;
  controls.insert(controls.end(), {m_hint, m_description, m_list.Hwnd()});
  controls.insert(controls.end(), m_hintButtons.begin(), m_hintButtons.end());
  for (const HWND control : controls)
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  ::SendMessageW(m_title, WM_SETFONT, reinterpret_cast<WPARAM>(titleFont.Get()), TRUE);
  m_font = std::move(font);  // until here the controls use the old ones
  m_titleFont = std::move(titleFont);
  Arrange();
}

void CListPane::Arrange() const {
  if (m_dpi == 0) return;
  const SIZE client = ClientSize();
  const int top = ArrangeHeader(client.cx);
  const RECT area{0, top, client.cx, std::max<LONG>(top, ArrangeDescription(client))};
  ::MoveWindow(m_list.Hwnd(), area.left, area.top, area.right, area.bottom - area.top, TRUE);
  ArrangeHint(area);
  if (onArranged) onArranged();
}

// The title is on the left, the buttons are on the right as far as there is room.
int CListPane::ArrangeHeader(int width) const {
  const int margin = my::Scale(kMargin, m_dpi);
  const int gap = my::Scale(kGap, m_dpi);
  const SIZE title = my::TextSize(m_title);
  const int height = title.cy + my::Scale(kButtonFrame, m_dpi);
  ::MoveWindow(m_title, margin, gap + (height - title.cy) / 2, title.cx, title.cy, TRUE);
  int left = margin + title.cx + 2 * margin;
  for (const HWND button : m_buttons) {
    const int buttonWidth = my::TextSize(button).cx + 2 * my::Scale(kButtonPadding, m_dpi);
    const bool fits = left + buttonWidth <= width;
    Place(button, {left, gap, left + buttonWidth, gap + height}, fits);
    left += buttonWidth + gap;
  }
  return height + 2 * gap;
}

void CListPane::ArrangeHint(const RECT& area) const {
  if (!IsHintShown()) {
    for (const HWND button : m_hintButtons) ::ShowWindow(button, SW_HIDE);
    return;
  }
  const int gap = my::Scale(2 * kMargin, m_dpi);
  const SIZE text = my::TextSize(m_hint);
  const int button = text.cy + my::Scale(kButtonFrame + kGap, m_dpi);
  const int top = std::max<int>(area.top, (area.top + area.bottom - text.cy - gap - button) / 2);
  ::MoveWindow(m_hint, area.left, top, area.right - area.left, text.cy, TRUE);
  ArrangeHintButtons(top + text.cy + gap, area.right - area.left);
}

// Shows the buttons side by side in the middle, as many as there is room for, but always the first one.
void CListPane::ArrangeHintButtons(int top, int width) const {
  const int gap = my::Scale(kMargin, m_dpi);
  const int height = my::TextSize(m_hint).cy + my::Scale(kButtonFrame + kGap, m_dpi);
  size_t shown = 1;
  int used = HintButtonWidth(m_hintButtons.front());
  for (; shown < m_hintButtons.size(); ++shown) {
    const int next = gap + HintButtonWidth(m_hintButtons[shown]);
    if (used + next > width) break;
    used += next;
  }
  int left = (width - used) / 2;
  for (size_t i = 0; i < m_hintButtons.size(); ++i) {
    const int buttonWidth = HintButtonWidth(m_hintButtons[i]);
    Place(m_hintButtons[i], {left, top, left + buttonWidth, top + height}, i < shown);
    left += buttonWidth + gap;
  }
}

int CListPane::HintButtonWidth(HWND button) const {
  return my::TextSize(button).cx + 4 * my::Scale(kButtonPadding, m_dpi);
}

int CListPane::ArrangeDescription(const SIZE& client) const {
  if ((::GetWindowLongW(m_description, GWL_STYLE) & WS_VISIBLE) == 0) return client.cy;
  const int margin = my::Scale(kMargin, m_dpi);
  const int gap = my::Scale(kGap, m_dpi);
  // A low pane shows only its list.
  const bool fits = client.cy >= my::Scale(kRoomForDescription, m_dpi);
  const int height = fits ? my::TextSize(m_title).cy : 0;
  const int top = static_cast<int>(client.cy) - gap - height;
  ::MoveWindow(m_description, margin, top, std::max<int>(0, client.cx - 2 * margin), height, TRUE);
  return fits ? top - gap : client.cy;
}

}  // namespace qlm
