#include "ui/main_window/main_bars.h"

#include <algorithm>

#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/framework/dpi.h"

namespace qlm {
namespace {

constexpr struct {
  int id;
  uint32_t textId;  // 0: a gap
} kTools[] = {
    {ID_NEW, IDS_TOOL_NEW},         {ID_OPEN, IDS_TOOL_OPEN},         {ID_SAVE, IDS_TOOL_SAVE},       {0, 0},
    {ID_RUN, IDS_TOOL_RUN},         {ID_TASK_TARGETS, IDS_TOOL_TEST}, {ID_RESULTS, IDS_TOOL_RESULTS}, {0, 0},
    {ID_REPLACE, IDS_TOOL_REPLACE}, {ID_SETTINGS, IDS_TOOL_SETTINGS}};

constexpr WPARAM kBarStates[] = {PBST_NORMAL, PBST_PAUSED, PBST_ERROR};  // by RunHealth

constexpr int kRunPart = 0;
constexpr int kProgressPart = 1;
constexpr int kCountsPart = 2;

// Pixels at 96 DPI.
constexpr int kProgressWidth = 200;
constexpr int kCountsWidth = 250;

int HeightOf(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  return bounds.bottom - bounds.top;
}

}  // namespace

void CToolBar::CreateIn(HWND parent) {
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_TOP;
  m_bar = ::CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, kStyle, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(INT_PTR{IDC_TOOLBAR}), nullptr, nullptr);
  ::SendMessageW(m_bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  for (const auto& tool : kTools) {
    const std::wstring text = tool.textId ? m_texts.Text(tool.textId) : std::wstring();
    TBBUTTON button{};
    button.idCommand = tool.id;
    button.fsState = TBSTATE_ENABLED;
    button.iBitmap = static_cast<int>(ToolIconOf(tool.id));
    button.fsStyle = tool.id ? BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT : BTNS_SEP;
    button.iString = tool.id ? reinterpret_cast<INT_PTR>(text.c_str()) : 0;
    ::SendMessageW(m_bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
}

int CToolBar::Height() const {
  return HeightOf(m_bar);
}

void CToolBar::Enable(int id, bool enable) const {
  ::SendMessageW(m_bar, TB_ENABLEBUTTON, static_cast<WPARAM>(id), MAKELPARAM(enable, 0));
}

void CToolBar::Change(int id, uint32_t textId, ToolIcon icon) const {
  std::wstring text = m_texts.Text(textId);
  TBBUTTONINFOW info{};
  info.cbSize = sizeof info;
  info.dwMask = TBIF_TEXT | TBIF_IMAGE;
  info.pszText = text.data();
  info.iImage = static_cast<int>(icon);
  ::SendMessageW(m_bar, TB_SETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info));
}

std::vector<int> CToolBar::Ids() const {
  std::vector<int> ids;
  for (const auto& tool : kTools) {
    if (tool.id != 0) ids.push_back(tool.id);
  }
  return ids;
}

void CToolBar::Use(HFONT font, const CToolImages& images) const {
  ::SendMessageW(m_bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.List()));
  ::SendMessageW(m_bar, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  const int height = images.Size() * 3 / 2;
  ::SendMessageW(m_bar, TB_SETBUTTONSIZE, 0, MAKELPARAM(height, height));
  Resize();
}

void CStatusBar::CreateIn(HWND parent) {
  m_bar = ::CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                            parent, reinterpret_cast<HMENU>(INT_PTR{IDC_STATUS_BAR}), nullptr, nullptr);
  m_progress = ::CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, m_bar,
                                 reinterpret_cast<HMENU>(INT_PTR{IDC_PROGRESS}), nullptr, nullptr);
}

int CStatusBar::Height() const {
  return HeightOf(m_bar);
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
  const int counts = std::max<int>(0, client.right - my::Scale(kCountsWidth, dpi));
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
