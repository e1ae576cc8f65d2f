#include "ui/main_window/status_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "command_ids.h"
#include "control_ids.h"
#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"

namespace qlm {
namespace {

constexpr int kRunPart = 0;
constexpr int kProgressPart = 1;
constexpr int kCountsPart = 2;

// Pixels at 96 DPI.
constexpr int kProgressWidth = 200;
constexpr int kSmallestProgress = 60;
constexpr int kRoomForText = 200;  // of the run
constexpr int kCountsWidth = 250;
constexpr int kButtonPadding = 10;
constexpr int kRoomForButton = 400;  // with the text of the run

}  // namespace

WPARAM BarStateOf(RunHealth health) {
  if (health == RunHealth::Failed) return PBST_ERROR;
  return health == RunHealth::Incomplete ? PBST_PAUSED : PBST_NORMAL;
}

void CStatusBar::CreateIn(HWND parent) {
  m_bar = ::CreateWindowExW(0, STATUSCLASSNAMEW, nullptr,
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(INT_PTR{IDC_STATUS_BAR}), nullptr, nullptr);
  m_progress = ::CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, m_bar,
                                 reinterpret_cast<HMENU>(INT_PTR{IDC_PROGRESS}), nullptr, nullptr);
  m_powerOff = ::CreateWindowExW(0, L"BUTTON", nullptr, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP, 0, 0, 0, 0,
                                 parent, reinterpret_cast<HMENU>(INT_PTR{ID_KEEP_POWER}), nullptr, nullptr);
  ::SetWindowPos(m_powerOff, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

int CStatusBar::Height() const {
  return my::HeightOf(m_bar);
}

void CStatusBar::ShowRun(const std::wstring& text, const CRunProgress& progress, RunHealth health) const {
  ShowText(text);
  ::ShowWindow(m_progress, text.empty() ? SW_HIDE : SW_SHOWNA);
  ::SendMessageW(m_progress, PBM_SETRANGE32, 0, static_cast<LPARAM>(progress.range));
  ::SendMessageW(m_progress, PBM_SETSTATE, BarStateOf(health), 0);
  ::SendMessageW(m_progress, PBM_SETPOS, progress.position, 0);
}

void CStatusBar::ShowText(const std::wstring& text) const {
  ::SendMessageW(m_bar, SB_SETTEXTW, kRunPart, reinterpret_cast<LPARAM>(text.c_str()));
}

void CStatusBar::ShowCounts(const std::wstring& text) const {
  ::SendMessageW(m_bar, SB_SETTEXTW, kCountsPart, reinterpret_cast<LPARAM>(text.c_str()));
}

void CStatusBar::ShowPowerOff(const std::wstring& text) {
  if (text == m_powerOffText) return;
  m_powerOffText = text;
  ::SetWindowTextW(m_powerOff, text.c_str());
  // A hidden window must not keep the focus.
  if (text.empty() && ::GetFocus() == m_powerOff) ::SetFocus(::GetParent(m_powerOff));
  ::ShowWindow(m_powerOff, text.empty() ? SW_HIDE : SW_SHOWNA);
  Resize(m_dpi);
}

void CStatusBar::UseFont(HFONT font) const {
  for (const HWND window : {m_bar, m_powerOff})
    ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

// Places the button at the right end of the run's part.
void CStatusBar::PlaceButton(int right) const {
  if (m_powerOffText.empty()) return;
  const int width = my::TextSize(m_powerOff).cx + my::Scale(2 * kButtonPadding, m_dpi);
  RECT bar{};
  ::GetWindowRect(m_bar, &bar);
  ::MapWindowPoints(nullptr, ::GetParent(m_bar), reinterpret_cast<POINT*>(&bar), 2);
  const int gap = my::Scale(2, m_dpi);
  ::MoveWindow(m_powerOff, bar.left + right - width, bar.top + gap, width, bar.bottom - bar.top - gap, TRUE);
}

void CStatusBar::Resize(UINT dpi) {
  m_dpi = dpi;
  ::SendMessageW(m_bar, WM_SIZE, 0, 0);
  RECT client{};
  ::GetClientRect(m_bar, &client);
  const int counts = std::max<int>(0, client.right - my::Scale(kCountsWidth, my::TextDpi(dpi)));
  const int room = counts - my::Scale(kRoomForText, my::TextDpi(dpi));
  const int width = std::clamp(room, my::Scale(kSmallestProgress, dpi), my::Scale(kProgressWidth, dpi));
  int progress = std::max<int>(0, counts - width);
  // In a narrow window the button is more important than the progress, which the text shows too.
  if (!m_powerOffText.empty() && progress < my::Scale(kRoomForButton, dpi)) progress = counts;
  PlaceButton(progress);
  const int ends[] = {progress, counts, -1};
  ::SendMessageW(m_bar, SB_SETPARTS, std::size(ends), reinterpret_cast<LPARAM>(ends));
  RECT part{};
  ::SendMessageW(m_bar, SB_GETRECT, kProgressPart, reinterpret_cast<LPARAM>(&part));
  const int gap = my::Scale(2, dpi);
  ::InflateRect(&part, -gap, -gap);
  ::MoveWindow(m_progress, part.left, part.top, part.right - part.left, part.bottom - part.top, TRUE);
}

}  // namespace qlm
