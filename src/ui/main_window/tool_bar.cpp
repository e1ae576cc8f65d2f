#include "ui/main_window/tool_bar.h"

#include <algorithm>
#include <iterator>

#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/framework/controls.h"
#include "ui/framework/gdi.h"

namespace qlm {
namespace {

constexpr struct {
  int id;
  uint32_t textId;       // 0: a separator
  bool showText = true;  // otherwise only screen readers speak it
} kTools[] = {{ID_NEW, IDS_TOOL_NEW},
              {ID_OPEN, IDS_TOOL_OPEN},
              {ID_SAVE, IDS_TOOL_SAVE},
              {0, 0},
              {ID_UNDO, IDS_TOOL_UNDO, false},
              {ID_REDO, IDS_TOOL_REDO, false},
              {0, 0},
              {ID_RUN, IDS_TOOL_RUN},
              {ID_TASK_TARGETS, IDS_TOOL_TEST},
              {ID_RESULTS, IDS_TOOL_RESULTS},
              {0, 0},
              {ID_REPLACE, IDS_TOOL_REPLACE},
              {ID_SETTINGS, IDS_TOOL_SETTINGS}};

BYTE StyleOf(bool showText) {
  return static_cast<BYTE>(BTNS_BUTTON | BTNS_AUTOSIZE | (showText ? BTNS_SHOWTEXT : 0));
}

}  // namespace

void CToolBar::CreateIn(HWND parent) {
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_TOP;
  m_bar = ::CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, kStyle, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(INT_PTR{IDC_TOOLBAR}), nullptr, nullptr);
  ::SendMessageW(m_bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  ::SendMessageW(m_bar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
  for (const auto& tool : kTools) {
    const std::wstring text = tool.textId ? m_texts.Text(tool.textId) : std::wstring();
    TBBUTTON button{};
    button.idCommand = tool.id;
    button.fsState = TBSTATE_ENABLED;
    button.iBitmap = static_cast<int>(ToolIconOf(tool.id));
    button.fsStyle = tool.id ? StyleOf(tool.showText) : static_cast<BYTE>(BTNS_SEP);
    button.iString = tool.id ? reinterpret_cast<INT_PTR>(text.c_str()) : 0;
    ::SendMessageW(m_bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
}

int CToolBar::Height() const {
  return my::HeightOf(m_bar);
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

void CToolBar::Resize() {
  RECT client{};
  ::GetClientRect(::GetParent(m_bar), &client);
  const bool fits = m_widthWithTexts <= client.right;
  if (fits != m_showsTexts) ShowTexts(fits);
  ::SendMessageW(m_bar, TB_AUTOSIZE, 0, 0);
}

void CToolBar::ShowTexts(bool show) {
  m_showsTexts = show;
  for (const auto& tool : kTools) {
    if (tool.id == 0 || !tool.showText) continue;
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_STYLE;
    info.fsStyle = StyleOf(show);
    ::SendMessageW(m_bar, TB_SETBUTTONINFOW, static_cast<WPARAM>(tool.id), reinterpret_cast<LPARAM>(&info));
  }
}

int CToolBar::ButtonsWidth() const {
  RECT last{};
  ::SendMessageW(m_bar, TB_GETITEMRECT, std::size(kTools) - 1, reinterpret_cast<LPARAM>(&last));
  return last.right;
}

void CToolBar::Use(HFONT font, const CToolImages& images) {
  ::SendMessageW(m_bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.List()));
  ::SendMessageW(m_bar, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  const my::CWindowDc dc(m_bar);
  const my::CSelect select(dc.Get(), font);
  TEXTMETRICW text{};
  ::GetTextMetricsW(dc.Get(), &text);
  const int height = std::max<int>(images.Size() * 3 / 2, text.tmHeight + images.Size() / 2);
  ::SendMessageW(m_bar, TB_SETBUTTONSIZE, 0, MAKELPARAM(height, height));
  ShowTexts(true);
  m_widthWithTexts = ButtonsWidth();
  Resize();
}

}  // namespace qlm
