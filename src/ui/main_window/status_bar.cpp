#include "ui/main_window/status_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "control_ids.h"
#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"

namespace qlm {
namespace {

constexpr WPARAM kBarStates[] = {PBST_NORMAL, PBST_PAUSED, PBST_ERROR};  // indexed by RunHealth

constexpr int kRunPart = 0;
constexpr int kProgressPart = 1;
constexpr int kCountsPart = 2;

// Pixels at 96 DPI.
constexpr int kProgressWidth = 200;
constexpr int kCountsWidth = 250;

}  // namespace

void CStatusBar::CreateIn(HWND parent) {
  m_bar = ::CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                            parent, reinterpret_cast<HMENU>(INT_PTR{IDC_STATUS_BAR}), nullptr, nullptr);
  m_progress = ::CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, m_bar,
                                 reinterpret_cast<HMENU>(INT_PTR{IDC_PROGRESS}), nullptr, nullptr);
}

int CStatusBar::Height() const {
  return my::HeightOf(m_bar);
}

void CStatusBar::ShowRun(const std::wstring& text, const CRunProgress& progress, RunHealth health) const {
  ShowText(text);
  ::ShowWindow(m_progress, text.empty() ? SW_HIDE : SW_SHOWNA);
  ::SendMessageW(m_progress, PBM_SETRANGE32, 0, static_cast<LPARAM>(progress.range));
  ::SendMessageW(m_progress, PBM_SETSTATE, kBarStates[static_cast<size_t>(health)], 0);
  ::SendMessageW(m_progress, PBM_SETPOS, progress.position, 0);
}

void CStatusBar::ShowText(const std::wstring& text) const {
  ::SendMessageW(m_bar, SB_SETTEXTW, kRunPart, reinterpret_cast<LPARAM>(text.c_str()));
}

void CStatusBar::ShowCounts(const std::wstring& text) const {
  ::SendMessageW(m_bar, SB_SETTEXTW, kCountsPart, reinterpret_cast<LPARAM>(text.c_str()));
}

void CStatusBar::Resize(UINT dpi) const {
  ::SendMessageW(m_bar, WM_SIZE, 0, 0);
  RECT client{};
  ::GetClientRect(m_bar, &client);
  const int counts = std::max<int>(0, client.right - my::Scale(kCountsWidth, my::TextDpi(dpi)));
  const int progress = std::max<int>(0, counts - my::Scale(kProgressWidth, dpi));
  const int ends[] = {progress, counts, -1};
  ::SendMessageW(m_bar, SB_SETPARTS, std::size(ends), reinterpret_cast<LPARAM>(ends));
  RECT part{};
  ::SendMessageW(m_bar, SB_GETRECT, kProgressPart, reinterpret_cast<LPARAM>(&part));
  const int gap = my::Scale(2, dpi);
  ::InflateRect(&part, -gap, -gap);
  ::MoveWindow(m_progress, part.left, part.top, part.right - part.left, part.bottom - part.top, TRUE);
}

}  // namespace qlm
