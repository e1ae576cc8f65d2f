#include "ui/dialogs/sorted_list.h"

#include <algorithm>

#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/dialogs/list_dialog.h"
#include "ui/framework/list_sort.h"

namespace qlm {
namespace {

constexpr size_t kMostShortcuts = 9;

}  // namespace

void CSortedList::Restart() {
  m_rows.SetFilter({});
  SortBy({});
}

void CSortedList::Update(size_t first) {
  // The shown rows before `first` stay where they are.
  if (m_rows.ShowsAllInOrder()) {
    m_rows.Update(first);
    return Refresh();
  }
  const CKept kept = Keep();
  m_rows.Update(first);
  Refresh();
  Restore(kept);
  if (kept.top && *kept.top < m_rows.Source().RowCount()) {
    const auto top = m_rows.ShownRows()[*kept.top];
    if (top) ScrollTo(*top);
  }
}

void CSortedList::SetFilter(const CRowFilter& filter) {
  if (m_rows.Filter() == filter) return;
  Rearrange([&] { m_rows.SetFilter(filter); });
}

void CSortedList::SortBy(std::optional<size_t> column) {
  Rearrange([&] { m_rows.SetOrder(column ? NextOrder(m_rows.Order(), *column) : CRowOrder{}); });
  my::ShowSortArrow(Hwnd(), m_rows.Order().column, m_rows.Order().descending);
}

// The user has asked for other rows, so the focused one is scrolled into view.
void CSortedList::Rearrange(const std::function<void()>& change) {
  const CKept kept = Keep();
  change();
  Refresh();
  Restore(kept);
  if (const auto focused = Focused(); focused && *focused < m_rows.RowCount()) EnsureVisible(*focused);
}

CSortedList::CKept CSortedList::Keep() const {
  CKept kept{SelectedRows(), FocusedRow(), {}};
  const auto top = static_cast<size_t>(ListView_GetTopIndex(Hwnd()));
  if (top < m_rows.RowCount()) kept.top = m_rows.SourceRow(top);
  return kept;
}

void CSortedList::Restore(const CKept& kept) {
  const std::vector<std::optional<size_t>> shown = m_rows.ShownRows();
  const auto place = [&shown](size_t row) { return row < shown.size() ? shown[row] : std::nullopt; };
  std::vector<size_t> selected;
  for (const size_t row : kept.selected) {
    if (const auto at = place(row)) selected.push_back(*at);
  }
  auto focused = kept.focused ? place(*kept.focused) : std::nullopt;
  if (kept.focused && !focused && m_rows.RowCount() != 0) focused = 0;
  if (selected.empty() && !kept.selected.empty() && focused) selected.push_back(*focused);
  Select(selected);
  if (focused) SetFocused(*focused);
}

// Scrolls by whole rows.
void CSortedList::ScrollTo(size_t row) const {
  RECT bounds{};
  ListView_GetItemRect(Hwnd(), 0, &bounds, LVIR_BOUNDS);
  const int rows = static_cast<int>(row) - ListView_GetTopIndex(Hwnd());
  ListView_Scroll(Hwnd(), 0, rows * (bounds.bottom - bounds.top));
}

void CSortedList::AddSortMenu(HMENU menu, int firstId) const {
  const HMENU items = ::CreatePopupMenu();
  const auto add = [&](size_t number, const std::wstring& text, bool isCurrent) {
    ::AppendMenuW(items, isCurrent ? MF_CHECKED : MF_UNCHECKED, static_cast<size_t>(firstId) + number,
                  text.c_str());
  };
  add(0, m_texts.Text(IDS_SORT_NONE), !m_rows.Order().column);
  for (size_t column = 0; column < m_rows.ColumnCount(); ++column) {
    const std::wstring key = column < kMostShortcuts ? L"\tCtrl+" + std::to_wstring(column + 1) : L"";
    add(column + 1, m_rows.Column(column).title + key, m_rows.Order().column == column);
  }
  ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(items), m_texts.Text(IDS_SORT_MENU).c_str());
}

void CSortedList::Show(size_t sourceRow) {
  const std::vector<std::optional<size_t>> shown = m_rows.ShownRows();
  if (sourceRow >= shown.size() || !shown[sourceRow]) return;
  Select({*shown[sourceRow]});
  SetFocused(*shown[sourceRow]);
  EnsureVisible(*shown[sourceRow]);
}

std::optional<size_t> CSortedList::FocusedRow() const {
  const auto row = Focused();
  if (!row || *row >= m_rows.RowCount()) return {};
  return m_rows.SourceRow(*row);
}

std::vector<size_t> CSortedList::SelectedRows() const {
  std::vector<size_t> rows;
  for (const size_t row : Selection()) {
    if (row < m_rows.RowCount()) rows.push_back(m_rows.SourceRow(row));
  }
  return rows;
}

std::optional<LRESULT> CSortedList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool isDigit = message == WM_KEYDOWN && wParam >= L'0' && wParam <= L'9' && IsControlDown();
  if (!isDigit) return CDrawnList::OnMessage(message, wParam, lParam);
  const size_t number = wParam - L'0';
  if (number == 0) SortBy({});
  if (number != 0 && number <= m_rows.ColumnCount()) SortBy(number - 1);
  return 0;
}

}  // namespace qlm
