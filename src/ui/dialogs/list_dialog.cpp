#include "ui/dialogs/list_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "control_ids.h"
#include "platform/message_texts.h"
#include "support/contrast.h"
#include "ui/dialogs/sorted_list.h"
#include "ui/framework/clipboard.h"
#include "ui/framework/colors.h"
#include "ui/framework/failures.h"
#include "ui/framework/high_contrast.h"
#include "ui/framework/local_menu.h"
#include "ui/models/row_colors.h"
#include "ui/models/table_text.h"

namespace qlm {
namespace {

COLORREF WarningColor(const CUISetting& setting) {
  constexpr double kContrast = 7;
  const my::CColor color = StateLook(setting, ResultState::Failed).color.value_or(my::CColor{});
  const double luminance = my::Luminance(my::SystemColor(COLOR_BTNFACE));
  return my::ColorRef(my::Readable(color, luminance, luminance < 0.18, kContrast));
}

}  // namespace

bool IsControlDown() {
  return ::GetKeyState(VK_CONTROL) < 0 && ::GetKeyState(VK_MENU) >= 0 && ::GetKeyState(VK_SHIFT) >= 0;
}

void CListDialog::UseList(my::CListView& list, const my::IListModel& model, int controlId, UINT menuId) {
  // Those of an earlier window of this object.
  std::erase_if(m_lists, [](const CShownList& shown) { return !shown.view->Hwnd(); });
  list.Attach(Item(controlId), my::CListView::Boxes::No);
  list.Events().key = [this](UINT key) { return OnListKey(key) || OnKey(key); };
  list.Events().contextMenu = [this](POINT screen) { ShowMenu(screen); };
  if (m_lists.empty()) {
    list.SetWidths(m_setting.columnWidthes);
    m_current = 0;
  }
  m_lists.push_back({&list, &model, menuId});
  ::RemoveWindowSubclass(list.Hwnd(), KeyThunk, 0);  // set together with an earlier list
  HearKeys();
}

void CListDialog::UseList(CSortedList& list, int controlId, UINT menuId) {
  UseList(list, list.Rows(), controlId, menuId);
  m_lists.back().sorted = &list;
  list.Events().columnClick = [this, &list](size_t column) { list.SortBy(column); };
}

void CListDialog::HearKeys() {
  for (HWND child = ::GetWindow(Hwnd(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const bool hears =
        std::ranges::any_of(m_lists, [child](const CShownList& list) { return list.view->Hwnd() == child; });
    if (hears) continue;
    ::SetWindowSubclass(child, KeyThunk, 0, reinterpret_cast<DWORD_PTR>(this));
  }
}

LRESULT CALLBACK CListDialog::KeyThunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR dialog) noexcept {
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(hwnd, KeyThunk, id);
  if (message == WM_KEYDOWN) {
    auto* self = reinterpret_cast<CListDialog*>(dialog);
    if (my::Guarded(false, [&] { return self->OnKey(static_cast<UINT>(wParam)); })) return 0;
  }
  return ::DefSubclassProc(hwnd, message, wParam, lParam);
}

bool CListDialog::OnCommand(int id, int code) {
  try {
    return ExecuteCommon(id) || Execute(id, code);
  } catch (...) {
    ShowCurrentFailure(m_context);
  }
  return true;
}

// Handles the commands of all lists. Returns whether it was one.
bool CListDialog::ExecuteCommon(int id) {
  if (id == IDC_LIST_COPY) {
    CopyRows();
    return true;
  }
  if (id < IDC_SORT_FIRST || id > IDC_SORT_LAST || !Current().sorted) return false;
  const auto column = static_cast<size_t>(id - IDC_SORT_FIRST);
  Current().sorted->SortBy(column == 0 ? std::nullopt : std::optional(column - 1));
  return true;
}

std::optional<LRESULT> CListDialog::OnNotify(const NMHDR& header) {
  if (header.code != NM_SETFOCUS) return {};
  const auto found = std::ranges::find_if(
      m_lists, [&header](const CShownList& list) { return list.view->Hwnd() == header.hwndFrom; });
  if (found != m_lists.end()) m_current = static_cast<size_t>(found - m_lists.begin());
  return {};
}

bool CListDialog::OnListKey(UINT key) {
  if (!IsControlDown()) return false;
  switch (key) {
    case L'A': ListView_SetItemState(Current().view->Hwnd(), -1, LVIS_SELECTED, LVIS_SELECTED); return true;
    case L'C': OnCommand(IDC_LIST_COPY, BN_CLICKED); return true;
    default: return false;
  }
}

std::optional<LRESULT> CListDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_CTLCOLORSTATIC || my::IsHighContrast()) return {};
  if (!IsWarning(::GetDlgCtrlID(reinterpret_cast<HWND>(lParam)))) return {};
  const auto dc = reinterpret_cast<HDC>(wParam);
  ::SetTextColor(dc, WarningColor(m_context.settings.ui));
  ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

void CListDialog::Remember() {
  CDialog::Remember();
  if (!m_lists.empty() && m_lists.front().view->Hwnd())
    m_setting.columnWidthes = m_lists.front().view->Widths();
}

void CListDialog::ShowRow(size_t row) const {
  my::CListView& list = *m_lists.front().view;
  list.Select({row});
  list.SetFocused(row);
  list.EnsureVisible(row);
}

std::wstring CListDialog::Text(uint32_t id, const std::vector<my::CMsgArg>& args) const {
  return my::MakeText(Texts(), id, args);
}

void CListDialog::ShowMenu(POINT screen) const {
  const my::CMenu menu(my::LoadLocalMenu(Current().menuId));
  const HMENU popup = ::GetSubMenu(menu.Get(), 0);
  if (Current().sorted) Current().sorted->AddSortMenu(popup, IDC_SORT_FIRST);
  ::TrackPopupMenu(popup, TPM_RIGHTBUTTON, screen.x, screen.y, 0, Hwnd(), nullptr);
}

void CListDialog::CopyRows() const {
  const std::wstring text = SelectedText();
  if (!text.empty()) my::CClipboard(L"Quillmoor").Set(Hwnd(), text, {});
}

// Returns the selected rows, one line per row with tabs between the cells.
std::wstring CListDialog::SelectedText() const {
  const CShownList& list = Current();
  if (list.sorted) return TabbedText(*list.model, list.view->Selection());
  std::wstring text;
  for (const size_t row : list.view->Selection()) {
    for (size_t column = 0; column < list.model->ColumnCount(); ++column) {
      if (column != 0) text += L'\t';
      text += list.model->Text(row, column);
    }
    text += L"\r\n";
  }
  return text;
}

}  // namespace qlm
