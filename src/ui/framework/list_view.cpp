#include "ui/framework/list_view.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/last_error.h"
#include "support/contrast.h"
#include "support/exception.h"
#include "ui/framework/accessibility.h"
#include "ui/framework/colors.h"
#include "ui/framework/dpi.h"
#include "ui/framework/failures.h"
#include "ui/framework/flag.h"
#include "ui/framework/high_contrast.h"

namespace my {
namespace {

constexpr DWORD kStyle = LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS;
constexpr int kTipWidth = 600;  // pixels at 96 DPI

constexpr DWORD kExtendedStyle =
    LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | LVS_EX_INFOTIP;

COLORREF ReadableOn(CColor background, CColor color) {
  const double luminance = Luminance(background);
  return ColorRef(Readable(color, luminance, luminance < 0.18));
}

}  // namespace

CListView::CListView(const IListModel& model) : m_model(model) {}

CListView::~CListView() {
  const HWND list = m_list;
  if (!list) return;
  Detach();
  if (m_owned) ::DestroyWindow(list);
}

void CListView::Create(HWND parent, int id, Boxes boxes, DWORD style) {
  const HWND list =
      ::CreateWindowExW(0, WC_LISTVIEWW, L"", kStyle | style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(INT_PTR{id}), ::GetModuleHandleW(nullptr), nullptr);
  if (!list) throw CException(LastError());
  m_owned = true;
  Attach(list, boxes);
}

void CListView::Attach(HWND list, Boxes boxes) {
  m_list = list;
  m_dpi = my::TextDpi(WindowDpi(list));
  m_listHook.Attach(m_list, [this](UINT message, WPARAM wParam, LPARAM lParam) {
    return HandleMessage(message, wParam, lParam);
  });
  m_parentHook.Attach(::GetParent(list),
                      [this](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
                        if (message != WM_NOTIFY) return {};
                        auto& header = *reinterpret_cast<NMHDR*>(lParam);
                        if (header.hwndFrom != m_list) return {};
                        return HandleNotify(header);
                      });
  ListView_SetExtendedListViewStyle(list, kExtendedStyle);
  // Without a maximum width a tip has only one line.
  if (const HWND tips = ListView_GetToolTips(list))
    ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, Scale(kTipWidth, m_dpi));
  if (boxes == Boxes::Yes) m_checks.Attach(list, m_model, m_dpi);
  m_columns.Create(list, m_model, m_dpi);
  Refresh();
}

void CListView::Detach() {
  m_drag.Cancel();
  m_parentHook.Detach();
  m_listHook.Detach();
  m_checks.Detach();
  m_list = nullptr;
}

void CListView::Toggle(size_t row) {
  m_events.check(row);
  ReportItemState(m_list, row);
}

void CListView::ChangeDpi(UINT screenDpi) {
  const UINT dpi = my::TextDpi(screenDpi);
  if (dpi == m_dpi) return;
  m_dpi = dpi;
  m_checks.UseImages(dpi);
  m_columns.SetDpi(dpi);
}

void CListView::Refresh() {
  const CFlag quiet(m_quiet);
  const auto count = static_cast<int>(m_model.RowCount());
  if (ListView_GetItemCount(m_list) != count) ListView_SetItemCountEx(m_list, count, LVSICF_NOSCROLL);
  // With erasing, because drawing a row does not cover all of it. The control is double-buffered.
  ::InvalidateRect(m_list, nullptr, TRUE);
  m_checks.Refresh();
}

std::vector<size_t> CListView::Selection() const {
  std::vector<size_t> rows;
  for (int row = ListView_GetNextItem(m_list, -1, LVNI_SELECTED); row >= 0;
       row = ListView_GetNextItem(m_list, row, LVNI_SELECTED))
    rows.push_back(static_cast<size_t>(row));
  return rows;
}

void CListView::Select(const std::vector<size_t>& rows) {
  const CFlag quiet(m_quiet);
  // A list with single selection refuses to select all rows, even if it has only one.
  const bool all = rows.size() > 1 && rows.size() == m_model.RowCount();
  ListView_SetItemState(m_list, -1, all ? LVIS_SELECTED : 0U, LVIS_SELECTED);
  if (all) return;
  for (const size_t row : rows)
    ListView_SetItemState(m_list, static_cast<int>(row), LVIS_SELECTED, LVIS_SELECTED);
}

std::optional<size_t> CListView::Focused() const {
  const int row = ListView_GetNextItem(m_list, -1, LVNI_FOCUSED);
  if (row < 0) return {};
  return static_cast<size_t>(row);
}

void CListView::SetFocused(size_t row) {
  const CFlag quiet(m_quiet);
  ListView_SetItemState(m_list, static_cast<int>(row), LVIS_FOCUSED, LVIS_FOCUSED);
  // A range selection with Shift then starts here too.
  ListView_SetSelectionMark(m_list, static_cast<int>(row));
}

void CListView::EnsureVisible(size_t row) {
  ListView_EnsureVisible(m_list, static_cast<int>(row), FALSE);
}

std::optional<size_t> CListView::RowAt(POINT screen) const {
  LVHITTESTINFO hit{};
  hit.pt = screen;
  ::ScreenToClient(m_list, &hit.pt);
  const int row = ListView_HitTest(m_list, &hit);
  if (row < 0) return {};
  return static_cast<size_t>(row);
}

std::optional<LRESULT> CListView::OnMessage(UINT, WPARAM, LPARAM) {
  return {};
}

LRESULT CListView::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
    case CDDS_POSTPAINT: m_drag.DrawMark(draw.nmcd.hdc, m_dpi); return CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT: break;
    default: return CDRF_DODEFAULT;
  }
  const size_t row = draw.nmcd.dwItemSpec;
  if (row >= m_model.RowCount()) return CDRF_DODEFAULT;
  const CListLook look = m_model.Look(row);
  if (look.grey)
    draw.clrText = ::GetSysColor(COLOR_GRAYTEXT);
  else if (look.color && !IsHighContrast())
    draw.clrText = ReadableOn(SystemColor(COLOR_WINDOW), *look.color);
  return CDRF_DODEFAULT;
}

std::optional<LRESULT> CListView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (auto result = OnMessage(message, wParam, lParam)) return result;
  if (message == DpiMessage()) {
    ChangeDpi(static_cast<UINT>(wParam));
    return 0;
  }
  if (m_columns.OnMessage(message)) return 0;
  switch (message) {
    case WM_DESTROY: Detach(); return {};
    case LVM_SETITEMSTATE:
      if (!m_events.check || !m_checks.IsToggle(wParam, *reinterpret_cast<const LVITEMW*>(lParam))) return {};
      Toggle(wParam);
      return TRUE;
    case WM_SIZE:
    case WM_NOTIFY:
    case WM_SETFONT:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED: return HandleAfterControl(message, wParam, lParam);
    case WM_KEYDOWN: return HandleKey(static_cast<UINT>(wParam)) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_CHAR:
      // Without this, handled keys would start a search by text.
      if ((wParam == L' ' && m_checks.IsAttached()) || wParam == L'\r') return 0;
      return {};
    case WM_GETDLGCODE:
      if (m_events.activate && wParam == VK_RETURN)
        return m_listHook.Default(message, wParam, lParam) | DLGC_WANTMESSAGE;
      return {};
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) == m_list) HandleContextMenu(lParam);
      return 0;
    default: return m_drag.Active() ? HandleDrag(message, wParam, lParam) : std::nullopt;
  }
}

// Handles a message that the control must handle first.
LRESULT CListView::HandleAfterControl(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = m_listHook.Default(message, wParam, lParam);
  switch (message) {
    case WM_SIZE: m_columns.Fill(); break;
    case WM_NOTIFY: m_columns.OnHeader(*reinterpret_cast<const NMHDR*>(lParam)); break;
    default: m_checks.UseImages(m_dpi); break;
  }
  return result;
}

std::optional<LRESULT> CListView::HandleDrag(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE: m_drag.Move({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}); return 0;
    case WM_TIMER:
      if (wParam != CListDrag::kTimer) return {};
      m_drag.Scroll();
      return 0;
    case WM_CAPTURECHANGED: m_drag.Cancel(); return {};
    case WM_LBUTTONUP:
      if (const auto before = m_drag.Drop(); before && m_events.drop) m_events.drop(*before);
      return 0;
    default: return {};
  }
}

bool CListView::HandleKey(UINT key) {
  if (m_drag.Active()) {
    if (key == VK_ESCAPE) m_drag.Cancel();
    return true;
  }
  if (m_events.key && m_events.key(key)) return true;
  const auto row = Focused();
  if (!row) return false;
  const bool activates = key == VK_RETURN && m_events.activate;
  const bool checks = key == VK_SPACE && m_checks.IsAttached() && m_events.check;
  if (activates) m_events.activate(*row);
  if (checks) Toggle(*row);
  return activates || checks;
}

void CListView::HandleContextMenu(LPARAM position) const {
  if (!m_events.contextMenu) return;
  POINT point{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
  if (position == -1) {
    // Opened by keyboard: show the menu at the focused row, scrolled into view.
    RECT row{};
    const auto focused = Focused();
    if (focused) {
      ListView_EnsureVisible(m_list, static_cast<int>(*focused), FALSE);
      ListView_GetItemRect(m_list, static_cast<int>(*focused), &row, LVIR_LABEL);
    }
    point = {row.left, row.bottom};
    ::ClientToScreen(m_list, &point);
  }
  m_events.contextMenu(point);
}

std::optional<LRESULT> CListView::HandleNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW: Display(reinterpret_cast<NMLVDISPINFOW&>(header).item); return 0;
    case LVN_GETINFOTIPW: ShowTip(reinterpret_cast<NMLVGETINFOTIPW&>(header)); return 0;
    case LVN_ODFINDITEMW: return Find(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case NM_CUSTOMDRAW: return OnCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case NM_CLICK: HandleClick(reinterpret_cast<const NMITEMACTIVATE&>(header), false); return 0;
    case NM_DBLCLK: HandleClick(reinterpret_cast<const NMITEMACTIVATE&>(header), true); return 0;
    case LVN_COLUMNCLICK: {
      const int column = reinterpret_cast<const NMLISTVIEW&>(header).iSubItem;
      if (m_events.columnClick && column >= 0) m_events.columnClick(static_cast<size_t>(column));
      return 0;
    }
    case LVN_BEGINDRAG: HandleBeginDrag(reinterpret_cast<const NMLISTVIEW&>(header).ptAction); return 0;
    case LVN_ITEMCHANGED: {
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
      if ((change.uChanged & LVIF_STATE) != 0) HandleState(change.uOldState, change.uNewState);
      return 0;
    }
    case LVN_ODSTATECHANGED: {
      const auto& change = reinterpret_cast<const NMLVODSTATECHANGE&>(header);
      HandleState(change.uOldState, change.uNewState);
      return 0;
    }
    default: return {};
  }
}

void CListView::Display(LVITEMW& item) const {
  const auto row = static_cast<size_t>(item.iItem);
  // The control may draw rows that were removed from the model since the last refresh.
  const bool exists = row < m_model.RowCount();
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const std::wstring text = exists ? m_model.Text(row, static_cast<size_t>(item.iSubItem)) : L"";
    ::lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
  }
  if ((item.mask & LVIF_STATE) != 0 && m_checks.IsAttached()) {
    item.stateMask |= LVIS_STATEIMAGEMASK;
    item.state = (item.state & ~UINT{LVIS_STATEIMAGEMASK}) | m_checks.StateOf(row);
  }
}

// Without a tip the control shows the text of a cell that is cut off.
void CListView::ShowTip(NMLVGETINFOTIPW& tip) const {
  const auto row = static_cast<size_t>(tip.iItem);
  const std::wstring text = row < m_model.RowCount() ? m_model.Tip(row) : std::wstring();
  if (!text.empty()) ::lstrcpynW(tip.pszText, text.c_str(), tip.cchTextMax);
}

LRESULT CListView::Find(const NMLVFINDITEMW& find) const {
  constexpr LRESULT kNotFound = -1;
  if ((find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || !find.lvfi.psz) return kNotFound;
  const auto start = static_cast<size_t>(find.iStart < 0 ? 0 : find.iStart);
  const auto row = FindRow(m_model, find.lvfi.psz, start);
  return row ? static_cast<LRESULT>(*row) : kNotFound;
}

void CListView::HandleClick(const NMITEMACTIVATE& click, bool twice) {
  LVHITTESTINFO hit{};
  hit.pt = click.ptAction;
  const int row = ListView_SubItemHitTest(m_list, &hit);
  if (row < 0) return;
  // A double click on a check box counts as two clicks.
  const bool onBox = m_checks.IsAttached() && (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON;
  if (onBox && m_events.check)
    Toggle(static_cast<size_t>(row));
  else if (!onBox && twice && m_events.activate)
    m_events.activate(static_cast<size_t>(row));
}

void CListView::HandleState(UINT oldState, UINT newState) {
  if (m_quiet) return;
  const bool selected = ((oldState ^ newState) & LVIS_SELECTED) != 0;
  if (selected && m_events.selectionChanged) m_events.selectionChanged();
  // The row that loses the focus is ignored, because the one that gets it follows.
  const bool focused = (newState & ~oldState & LVIS_FOCUSED) != 0;
  if (focused && m_events.focusChanged) m_events.focusChanged();
}

void CListView::HandleBeginDrag(POINT mouse) {
  if (m_events.canDrag && m_events.canDrag()) m_drag.Begin(m_list, mouse);
}

}  // namespace my
