#include "ui/framework/control_sizes.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"

namespace my {
namespace {

// Pixels at 96 DPI.
constexpr int kGap = 6;
constexpr int kMargin = 11;
constexpr int kFieldPadding = 8;    // above and below the text of an edit control or button, with its border
constexpr int kButtonPadding = 22;  // left and right
constexpr int kSmallestButton = 75;
constexpr int kCheckBox = 13;
constexpr int kCheckGap = 6;
constexpr int kLinePadding = 2;
constexpr int kRowPadding = 3;  // between the rows of a list

// Average characters.
constexpr int kUsualField = 24;
constexpr int kSmallestField = 8;
constexpr int kUsualText = 40;
constexpr int kSmallestText = 16;

constexpr int kUsualRows = 8;
constexpr int kSmallestRows = 3;
constexpr int kUsualListWidth = 70;
constexpr int kSmallestListWidth = 24;

std::wstring WithoutTags(const std::wstring& link) {
  std::wstring text;
  bool inTag = false;
  for (const wchar_t c : link) {
    if (c == L'<' || c == L'>')
      inTag = c == L'<';
    else if (!inTag)
      text += c;
  }
  return text;
}

int ColumnsWidth(HWND list) {
  const int count = Header_GetItemCount(ListView_GetHeader(list));
  int width = 0;
  for (int column = 0; column < count; ++column) width += ListView_GetColumnWidth(list, column);
  return width;
}

// Returns the width at which a list shows its columns beside a scroll bar. The last column fills a list that
// is wide enough; such a list needs no more than it has.
int WidthForColumns(HWND list, int scrollBar) {
  RECT client{};
  RECT bounds{};
  ::GetClientRect(list, &client);
  ::GetWindowRect(list, &bounds);
  const int columns = ColumnsWidth(list);
  const int wanted = columns + scrollBar;
  return columns > client.right ? wanted : std::min<int>(wanted, bounds.right - bounds.left);
}

HFONT FontOf(HWND control) {
  return reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0));
}

// Returns the text without the marks of access keys.
std::wstring WithoutPrefixes(const std::wstring& text) {
  std::wstring shown;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) ++i;
    shown += text[i];
  }
  return shown;
}

SIZE LineSize(HDC dc, const std::wstring& text) {
  SIZE size{};
  TEXTMETRICW metrics{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  ::GetTextMetricsW(dc, &metrics);
  return {size.cx, metrics.tmHeight};
}

// Returns the size of a text that is broken into lines. A text that fits on one is not drawn, which is slow.
SIZE BrokenSize(HDC dc, const std::wstring& text, int width) {
  const SIZE line = LineSize(dc, text);
  if (line.cx <= width && text.find(L'\n') == std::wstring::npos) return line;
  RECT needed{0, 0, width, 0};
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &needed,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
  return {needed.right, needed.bottom};
}

}  // namespace

CControlSizes::CControlSizes(HWND window, HFONT font, UINT dpi, CSizesOf sizesOf)
    : m_window(window), m_dpi(dpi), m_sizesOf(std::move(sizesOf)), m_dc(font) {
  constexpr std::wstring_view kAlphabet = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  static_assert(kAlphabet.size() == kAlphabetLength);
  const HDC dc = m_dc.With(font);
  SIZE size{};
  TEXTMETRICW metrics{};
  ::GetTextExtentPoint32W(dc, kAlphabet.data(), kAlphabetLength, &size);
  ::GetTextMetricsW(dc, &metrics);
  m_alphabetWidth = size.cx;
  m_lineHeight = metrics.tmHeight;
}

std::optional<CSizeRanges> CControlSizes::Special(const CBox& box) const {
  return m_sizesOf && !box.label ? m_sizesOf(box.id) : std::nullopt;
}

const CControlSizes::CControl& CControlSizes::Find(const CBox& box) const {
  const auto [found, isNew] = m_controls.try_emplace({box.id, box.label});
  if (!isNew) return found->second;
  HWND window = ::GetDlgItem(m_window, box.id);
  if (window && box.label) window = ::GetWindow(window, GW_HWNDPREV);
  const bool shown = window && (::GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  found->second = {window, window ? KindOf(window) : Kind::Other, shown, {}, {}};
  return found->second;
}

HWND CControlSizes::ControlOf(const CBox& box) const {
  return Find(box).window;
}

bool CControlSizes::IsShown(const CBox& control) const {
  return Find(control).isShown;
}

CControlSizes::Kind CControlSizes::KindOf(HWND control) {
  const std::wstring name = ClassOf(control);
  const auto style = static_cast<UINT>(::GetWindowLongW(control, GWL_STYLE));
  if (name == WC_STATICW) {
    const UINT type = style & SS_TYPEMASK;
    if (type == SS_ICON) return Kind::Icon;
    return type == SS_LEFTNOWORDWRAP || (style & SS_ELLIPSISMASK) != 0 ? Kind::OneLine : Kind::Text;
  }
  if (name == WC_BUTTONW) {
    const UINT type = style & BS_TYPEMASK;
    return type <= BS_DEFPUSHBUTTON || type == BS_OWNERDRAW ? Kind::Push : Kind::Check;
  }
  if (name == WC_EDITW || name == DATETIMEPICK_CLASSW) return Kind::Edit;
  if (name == WC_COMBOBOXW) return Kind::Combo;
  if (name == WC_LISTVIEWW) return Kind::List;
  if (name == WC_LINK) return Kind::Link;
  return name == PROGRESS_CLASSW ? Kind::Progress : Kind::Other;
}

// Returns the size of the control's text, broken into lines if `width` is not 0.
SIZE CControlSizes::TextSize(const CControl& control, int width) const {
  const auto [found, isNew] = control.textSizes.try_emplace(width);
  if (!isNew) return found->second;
  const HWND window = control.window;
  const bool plain = control.kind == Kind::Text && (::GetWindowLongW(window, GWL_STYLE) & SS_NOPREFIX) != 0;
  std::wstring text = TextOf(window);
  if (control.kind == Kind::Link)
    text = WithoutTags(text);
  else if (!plain)
    text = WithoutPrefixes(text);
  const HDC dc = m_dc.With(FontOf(window));
  return found->second = width != 0 ? BrokenSize(dc, text, width) : LineSize(dc, text);
}

// Returns the width of the longest text in the list of a combo box.
int CControlSizes::LongestItem(HWND combo) const {
  const HDC dc = m_dc.With(FontOf(combo));
  int longest = 0;
  const LRESULT count = ::SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto item = static_cast<WPARAM>(i);
    std::wstring text(static_cast<size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, item, 0)) + 1, L'\0');
    ::SendMessageW(combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    longest = std::max<int>(longest, LineSize(dc, text).cx);
  }
  return longest;
}

int CControlSizes::ContentWidth(const CControl& control) const {
  switch (control.kind) {
    case Kind::Push: return std::max<int>(Px(kSmallestButton), TextSize(control, 0).cx + Px(kButtonPadding));
    case Kind::Check: return TextSize(control, 0).cx + Px(kCheckBox + 2 * kCheckGap);
    case Kind::Icon: return SystemMetric(SM_CXICON, m_dpi);
    case Kind::Edit: return Chars(kUsualField);
    case Kind::Combo:
      return std::max(Chars(kUsualField),
                      LongestItem(control.window) + SystemMetric(SM_CXVSCROLL, m_dpi) + FieldFrame());
    case Kind::List:
      return std::max(Chars(kUsualListWidth),
                      WidthForColumns(control.window, SystemMetric(SM_CXVSCROLL, m_dpi) + Px(kLinePadding)));
    case Kind::Progress: return Chars(kUsualText);
    default: return TextSize(control, 0).cx + Px(kLinePadding);
  }
}

CSizeRange CControlSizes::Width(const CBox& box) const {
  if (const auto special = Special(box)) return special->width;
  const CControl& control = Find(box);
  if (!control.contentWidth) control.contentWidth = ContentWidth(control);
  const int content = box.chars != 0 ? Chars(box.chars) : *control.contentWidth;
  switch (control.kind) {
    case Kind::Edit:
    case Kind::Combo: return {std::min(content, Chars(kSmallestField)), content};
    case Kind::List: return {std::min(content, Chars(kSmallestListWidth)), content};
    case Kind::OneLine: return {std::min(content, Chars(kSmallestField)), content};
    case Kind::Text: break;
    default: return {content, content};
  }
  // A text that may take the extra width of the window may also be broken into lines.
  if (!box.wide) return {content, content};
  const int natural = box.chars != 0 ? content : std::min(content, Chars(kUsualText));
  return {std::min(natural, Chars(kSmallestText)), natural};
}

CSizeRange CControlSizes::Height(const CBox& box, int width) const {
  if (const auto special = Special(box)) return special->height;
  const CControl& control = Find(box);
  const int lines = std::max(1, box.lines);
  switch (control.kind) {
    case Kind::Edit:
    case Kind::Push: {
      const int height = lines * m_lineHeight + FieldFrame();
      return {height, height};
    }
    case Kind::Check: {
      const int height = std::max<int>(TextSize(control, 0).cy, Px(kCheckBox)) + Px(kLinePadding);
      return {height, height};
    }
    case Kind::Combo: {
      RECT closed{};
      ::GetWindowRect(control.window, &closed);
      return {closed.bottom - closed.top, closed.bottom - closed.top};
    }
    case Kind::List: {
      const int least = box.lines != 0 ? std::min(box.lines, kSmallestRows) : kSmallestRows;
      return {ListHeight(least), ListHeight(box.lines != 0 ? box.lines : kUsualRows)};
    }
    case Kind::Icon: {
      const int height = SystemMetric(SM_CYICON, m_dpi);
      return {height, height};
    }
    case Kind::Text: {
      const int height = std::max<int>(lines * m_lineHeight, TextSize(control, std::max(1, width)).cy);
      return {height, height};
    }
    default: {
      const int height = std::max<int>(lines * m_lineHeight, TextSize(control, 0).cy);
      return {height, height};
    }
  }
}

// The header is as high as a button.
int CControlSizes::ListHeight(int rows) const {
  return rows * (m_lineHeight + Px(kRowPadding)) + m_lineHeight + FieldFrame() + Px(kLinePadding);
}

int CControlSizes::Gap() const {
  return Px(kGap);
}

int CControlSizes::Margin() const {
  return Px(kMargin);
}

CBorder CControlSizes::Frame(const CBox&) const {
  const int side = Px(kMargin);
  return {side, m_lineHeight + Px(kGap), side, side};
}

}  // namespace my
