#include "ui/models/row_view.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "support/strings.h"

namespace qlm {
namespace {

CSortKey LowerKey(CSortKey key) {
  std::ranges::transform(key.text, key.text.begin(), my::LowerAscii);
  return key;
}

std::strong_ordering Compare(const CSortKey& a, const CSortKey& b) {
  if (a.number != b.number) return a.number <=> b.number;
  return a.text.compare(b.text) <=> 0;
}

}  // namespace

CRowOrder NextOrder(const CRowOrder& order, size_t column) {
  if (order.column != column) return {column, false};
  return order.descending ? CRowOrder{} : CRowOrder{column, true};
}

void CRowView::SetOrder(const CRowOrder& order) {
  m_order = order;
  Update(0);
}

void CRowView::SetFilter(CRowFilter filter) {
  m_filter = std::move(filter);
  Update(0);
}

void CRowView::Update(size_t first) {
  first = std::min(first, m_known);
  m_known = m_source.RowCount();
  Read(first);
  const auto isChanged = [first](size_t row) { return row >= first; };
  if (m_order.column)
    std::erase_if(m_rows, isChanged);
  else
    m_rows.erase(std::ranges::find_if(m_rows.rbegin(), m_rows.rend(), std::not_fn(isChanged)).base(),
                 m_rows.end());
  const auto isBefore = [this](size_t a, size_t b) { return IsBefore(a, b); };
  const auto kept = static_cast<std::ptrdiff_t>(m_rows.size());
  for (size_t row = first; row < m_source.RowCount(); ++row) {
    if (Passes(row)) m_rows.push_back(row);
  }
  if (!m_order.column) return;
  const auto added = m_rows.begin() + kept;
  std::sort(added, m_rows.end(), isBefore);
  std::vector<size_t> merged;
  merged.reserve(m_rows.size());
  std::merge(m_rows.begin(), added, added, m_rows.end(), std::back_inserter(merged), isBefore);
  m_rows = std::move(merged);
}

// Reads the sort keys of the source rows from `first` on.
void CRowView::Read(size_t first) {
  if (!m_order.column) return m_keys.clear();
  m_keys.resize(first);
  for (size_t row = first; row < m_source.RowCount(); ++row) {
    m_keys.push_back(LowerKey(m_source.SortKey(row, *m_order.column)));
  }
}

bool CRowView::Passes(size_t row) const {
  if (m_filter.problemsOnly && !m_source.IsProblem(row)) return false;
  if (m_filter.text.empty()) return true;
  for (size_t column = 0; column < m_source.ColumnCount(); ++column) {
    if (my::ContainsNoCase(m_source.Text(row, column), m_filter.text)) return true;
  }
  return false;
}

bool CRowView::IsBefore(size_t a, size_t b) const {
  const auto order = Compare(m_keys[a], m_keys[b]);
  if (order != 0) return m_order.descending ? order > 0 : order < 0;
  return a < b;
}

std::vector<std::optional<size_t>> CRowView::ShownRows() const {
  std::vector<std::optional<size_t>> shown(m_source.RowCount());
  for (size_t row = 0; row < m_rows.size(); ++row) shown[m_rows[row]] = row;
  return shown;
}

}  // namespace qlm
