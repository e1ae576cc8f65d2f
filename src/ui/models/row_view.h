// Sorted and filtered rows of a table.
#pragma once

#include <compare>
#include <optional>
#include <vector>

#include "ui/models/sortable_model.h"

namespace qlm {

struct CRowOrder {
  std::optional<size_t> column;  // nullopt: the order of the source
  bool descending = false;

  friend bool operator==(const CRowOrder&, const CRowOrder&) = default;
};

// Returns the order after a click on the title of a column: ascending, descending, then the order of the
// source again.
CRowOrder NextOrder(const CRowOrder& order, size_t column);

struct CRowFilter {
  bool problemsOnly = false;
  std::wstring text = {};  // in any cell, without regard to ASCII case; empty: all rows

  friend bool operator==(const CRowFilter&, const CRowFilter&) = default;
};

// Shows rows of a source in another order. The sort is stable: equal rows keep the order of the source, also
// if it is descending. Rows of the source are read only when they change.
class CRowView : public my::IListModel {
 public:
  // The source must outlive the view, which shows all its rows after Update(0).
  explicit CRowView(const CSortableModel& source) : m_source(source) {}

  const CRowOrder& Order() const { return m_order; }
  const CRowFilter& Filter() const { return m_filter; }
  void SetOrder(const CRowOrder& order);
  void SetFilter(CRowFilter filter);

  // Must be called after rows of the source from `first` on were changed, added or removed. Costs a pass over
  // the row numbers if the rows are sorted, and otherwise only the changed rows.
  void Update(size_t first);

  const CSortableModel& Source() const { return m_source; }
  bool ShowsAllInOrder() const { return !m_order.column && m_filter == CRowFilter{}; }
  size_t SourceRow(size_t row) const { return m_rows[row]; }

  // Returns the shown row of every source row; nullopt if it is hidden.
  std::vector<std::optional<size_t>> ShownRows() const;

  size_t RowCount() const override { return m_rows.size(); }
  size_t ColumnCount() const override { return m_source.ColumnCount(); }
  my::CListColumn Column(size_t column) const override { return m_source.Column(column); }
  std::wstring Text(size_t row, size_t column) const override { return m_source.Text(m_rows[row], column); }
  my::CListLook Look(size_t row) const override { return m_source.Look(m_rows[row]); }
  size_t IconColumn() const override { return m_source.IconColumn(); }
  std::wstring Tip(size_t row) const override { return m_source.Tip(m_rows[row]); }

 private:
  bool Passes(size_t row) const;
  bool IsBefore(size_t a, size_t b) const;
  void Read(size_t first);

  const CSortableModel& m_source;
  CRowOrder m_order;
  CRowFilter m_filter;
  size_t m_known = 0;            // source rows at the last update
  std::vector<size_t> m_rows;    // source rows in the order shown
  std::vector<CSortKey> m_keys;  // of all source rows, in lower case; empty if the rows are not sorted
};

}  // namespace qlm
