#include "ui/main_window/run_panel.h"

#include <commctrl.h>

#include <algorithm>

#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "support/contrast.h"
#include "text_ids.h"
#include "ui/framework/colors.h"
#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"
#include "ui/framework/high_contrast.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr int kProgressHeight = 8;
constexpr int kButtonPadding = 12;
constexpr int kButtonFrame = 7;  // above and below the text of a button

constexpr int kMostLines = 2;  // of a text

const my::CWindowClass& PanelClass() {
  static const my::CWindowClass panelClass(L"QuillmoorRunPanel", 0, COLOR_BTNFACE + 1);
  return panelClass;
}

// Sets the text only if it differs: screen readers hear of each change.
void SetText(HWND control, const std::wstring& text) {
  if (my::TextOf(control) != text) ::SetWindowTextW(control, text.c_str());
}

void Move(HWND window, const RECT& place) {
  ::MoveWindow(window, place.left, place.top, std::max<LONG>(0, place.right - place.left),
               place.bottom - place.top, TRUE);
}

// A text that ends in an ellipsis is not wrapped.
void SetWrapped(HWND text, bool wrapped) {
  const LONG_PTR style = ::GetWindowLongPtrW(text, GWL_STYLE) & ~LONG_PTR{SS_ELLIPSISMASK};
  ::SetWindowLongPtrW(text, GWL_STYLE, wrapped ? style : style | SS_ENDELLIPSIS);
}

}  // namespace

void CRunPanel::CreateIn(HWND parent) {
  my::CWindowParams params;
  params.parent = parent;
  params.style = WS_CHILD | WS_CLIPCHILDREN;
  params.exStyle = WS_EX_CONTROLPARENT;
  params.title = m_texts.Text(IDS_PANEL_NAME);
  params.controlId = IDC_RUN_PANEL;
  params.left = params.top = params.width = params.height = 0;
  Create(PanelClass(), params);
  constexpr DWORD kText = WS_VISIBLE | SS_NOPREFIX;
  // Screen readers use the text before the progress bar as its name.
  m_run = AddControl(WC_STATICW, 0, kText, IDC_RUN_PANEL_RUN);
  m_progress = AddControl(PROGRESS_CLASSW, 0, WS_VISIBLE | PBS_SMOOTH, IDC_RUN_PANEL_PROGRESS);
  m_row = AddControl(WC_STATICW, 0, kText, IDC_RUN_PANEL_ROW);
  m_file = AddControl(WC_STATICW, 0, kText | SS_PATHELLIPSIS | SS_CENTERIMAGE, IDC_RUN_PANEL_FILE);
  m_results = AddControl(WC_BUTTONW, IDS_PANEL_RESULTS, WS_VISIBLE | WS_TABSTOP, ID_RESULTS);
  m_close = AddControl(WC_BUTTONW, IDS_PANEL_CLOSE, WS_VISIBLE | WS_TABSTOP, IDC_RUN_PANEL_CLOSE);
  UseDpi(my::WindowDpi(Hwnd()));
}

HWND CRunPanel::AddControl(const wchar_t* className, uint32_t textId, DWORD style, int id) const {
  const std::wstring text = textId ? m_texts.Text(textId) : std::wstring();
  return ::CreateWindowExW(0, className, text.c_str(), WS_CHILD | style, 0, 0, 0, 0, Hwnd(),
                           reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
}

void CRunPanel::Open() {
  m_verdict.reset();
  for (const HWND text : {m_run, m_row, m_file}) SetText(text, {});
  Show();
  Redraw();
}

void CRunPanel::ShowRun(const CRunPanelTexts& texts) {
  SetText(m_run, texts.run);
  // Between two rows the texts of the last one stay.
  if (!texts.row.empty()) SetText(m_row, texts.row);
  if (!texts.file.empty()) SetText(m_file, texts.file);
}

void CRunPanel::ShowPercent(int percent, RunHealth health) const {
  ::SendMessageW(m_progress, PBM_SETSTATE, BarStateOf(health), 0);
  ::SendMessageW(m_progress, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
}

void CRunPanel::ShowVerdict(const CVerdict& verdict) {
  m_verdict = verdict.state;
  SetText(m_run, verdict.text);
  SetText(m_row, verdict.totals);
  SetText(m_file, {});
  Show();
  Redraw();
}

// The verdict has an icon in front, and another colour.
void CRunPanel::Redraw() const {
  Arrange();
  ::RedrawWindow(Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void CRunPanel::Show() {
  if (m_shown) return;
  m_shown = true;
  if (onShown) onShown();
  ::ShowWindow(Hwnd(), SW_SHOWNA);
}

void CRunPanel::Hide() {
  if (!m_shown) return;
  m_shown = false;
  // A hidden window must not keep the focus.
  if (::IsChild(Hwnd(), ::GetFocus())) ::SetFocus(Parent());
  ::ShowWindow(Hwnd(), SW_HIDE);
  if (onShown) onShown();
}

LRESULT CRunPanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == my::DpiMessage()) {
    UseDpi(static_cast<UINT>(wParam));
    return 0;
  }
  switch (message) {
    case WM_COMMAND: OnButton(wParam, lParam); return 0;
    case WM_SIZE: Arrange(); return 0;
    case WM_PAINT: Paint(); return 0;
    case WM_CTLCOLORSTATIC:
      if (reinterpret_cast<HWND>(lParam) != m_run || !m_verdict || my::IsHighContrast()) break;
      return ColorVerdict(reinterpret_cast<HDC>(wParam));
    default: break;
  }
  return CWindow::OnMessage(message, wParam, lParam);
}

void CRunPanel::OnButton(WPARAM command, LPARAM button) {
  if (HIWORD(command) != BN_CLICKED) return;
  if (LOWORD(command) == IDC_RUN_PANEL_CLOSE) return Hide();
  ::SendMessageW(Parent(), WM_COMMAND, command, button);
}

// Draws the edge to the lists above, and the icon of the verdict.
void CRunPanel::Paint() {
  const my::CPaint paint(Hwnd());
  RECT area{};
  ::GetClientRect(Hwnd(), &area);
  area.bottom = 1;
  ::FillRect(paint.Get(), &area, ::GetSysColorBrush(COLOR_BTNSHADOW));
  if (!m_verdict) return;
  m_icons.Draw(paint.Get(), static_cast<int>(*m_verdict), {Px(kMargin), Px(kMargin)}, m_lineHeight);
}

LRESULT CRunPanel::ColorVerdict(HDC dc) const {
  const my::CColor ground = my::SystemColor(COLOR_BTNFACE);
  const my::CColor text = my::SystemColor(COLOR_BTNTEXT);
  my::CListLook look = StateLook(m_setting, *m_verdict);
  look.alarm = false;  // without a band of its own
  const CRowColors colors = RowColors(look, RowSelection::None, {text, text, my::Luminance(ground)});
  ::SetTextColor(dc, my::ColorRef(colors.text));
  ::SetBkColor(dc, my::ColorRef(ground));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

int CRunPanel::Px(int at96) const {
  return my::Scale(at96, m_dpi);
}

void CRunPanel::UseDpi(UINT dpi) {
  m_dpi = dpi;
  my::CFont font = my::MessageFont(dpi);
  LOGFONTW bold = my::MessageLogFont(dpi);
  bold.lfWeight = FW_BOLD;
  my::CFont boldFont(::CreateFontIndirectW(&bold));
  for (const HWND control : {m_row, m_file, m_results, m_close})
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  ::SendMessageW(m_run, WM_SETFONT, reinterpret_cast<WPARAM>(boldFont.Get()), TRUE);
  m_font = std::move(font);  // until here the controls use the old ones
  m_boldFont = std::move(boldFont);
  m_lineHeight = my::TextSize(m_results).cy;
  Arrange();
}

// The height depends on a sample, so that it does not change with every text.
int CRunPanel::LinesOf(HWND text, uint32_t sampleId, int width) const {
  const my::CWindowDc dc(text);
  const my::CSelect select(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(text, WM_GETFONT, 0, 0)));
  const std::wstring sample = m_texts.Text(sampleId);
  SIZE size{};
  ::GetTextExtentPoint32W(dc.Get(), sample.c_str(), static_cast<int>(sample.size()), &size);
  return size.cx <= width ? 1 : kMostLines;
}

int CRunPanel::ButtonHeight() const {
  return m_lineHeight + Px(kButtonFrame);
}

int CRunPanel::IconRoom() const {
  return m_verdict ? m_lineHeight + Px(kGap) : 0;
}

int CRunPanel::Height(const CLines& lines) const {
  const int rowGap = lines.row != 0 ? Px(kGap) : 0;
  return 2 * Px(kMargin) + (lines.run + lines.row) * m_lineHeight + rowGap + 2 * Px(kGap) +
         Px(kProgressHeight) + ButtonHeight();
}

int CRunPanel::HeightFor(int width, int room) {
  if (!m_shown) return 0;
  // The icon counts always, so that the height is the same before and after the verdict.
  const int text = width - 2 * Px(kMargin);
  m_lines = {LinesOf(m_run, IDS_PANEL_RUN_SAMPLE, text - m_lineHeight - Px(kGap)),
             LinesOf(m_row, IDS_PANEL_ROW_SAMPLE, text)};
  // In a low window the whole run is more important than the row.
  for (const CLines less : {CLines{m_lines.run, 1}, CLines{1, 1}, CLines{1, 0}}) {
    if (Height(m_lines) > room) m_lines = less;
  }
  SetWrapped(m_run, m_lines.run > 1);
  SetWrapped(m_row, m_lines.row > 1);
  return Height(m_lines);
}

void CRunPanel::Arrange() const {
  if (m_dpi == 0) return;
  const int left = Px(kMargin);
  const LONG right = ClientSize().cx - left;
  int top = Px(kMargin);
  Move(m_run, {left + IconRoom(), top, right, top + m_lines.run * m_lineHeight});
  top += m_lines.run * m_lineHeight + Px(kGap);
  Move(m_progress, {left, top, right, top + Px(kProgressHeight)});
  top += Px(kProgressHeight) + Px(kGap);
  Move(m_row, {left, top, right, top + m_lines.row * m_lineHeight});
  if (m_lines.row != 0) top += m_lines.row * m_lineHeight + Px(kGap);
  const int bottom = top + ButtonHeight();
  LONG end = right;
  for (const HWND button : {m_close, m_results}) {
    const LONG width = my::TextSize(button).cx + 2 * Px(kButtonPadding);
    Move(button, {end - width, top, end, bottom});
    end -= width + Px(kGap);
  }
  Move(m_file, {left, top, end, bottom});
}

}  // namespace qlm
