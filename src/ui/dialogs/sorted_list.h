#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/windows.h"
#include "ui/look/drawn_list.h"
#include "ui/models/row_view.h"

namespace qlm {

// A list that the user can sort: by a click on a column title, by Ctrl and the number of the column (0: the
// original order), or by a menu. The rows of IListState are those of the source, in any order and filter.
class CSortedList final : public CDrawnList, public IListState {
 public:
  // The rows are changed through the list only. Both must outlive the control.
  CSortedList(CRowView& rows, const my::IMessageTexts& texts)
      : CDrawnList(rows), m_texts(texts), m_rows(rows) {}

  // Shows all rows of the source in its order.
  void Restart();

  // Must be called after rows of the source from `first` on were changed, added or removed. The selected
  // rows, the focused row and the first visible row stay the same rows.
  void Update(size_t first);

  void SetFilter(const CRowFilter& filter);

  // Changes the order as a click on the title does; nullopt: the order of the source.
  void SortBy(std::optional<size_t> column);

  // Adds a submenu with an item for the original order, whose id is `firstId`, and one per column.
  void AddSortMenu(HMENU menu, int firstId) const;

  const CRowView& Rows() const { return m_rows; }

  // Selects only this row of the source and scrolls it into view, unless it is hidden.
  void Show(size_t sourceRow);

  std::optional<size_t> FocusedRow() const override;
  std::vector<size_t> SelectedRows() const override;  // in the order shown
  void Focus() override { ::SetFocus(Hwnd()); }

 private:
  // What is kept when the rows are arranged again, as rows of the source.
  struct CKept {
    std::vector<size_t> selected;
    std::optional<size_t> focused;
    std::optional<size_t> top;
  };

  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  CKept Keep() const;
  void Restore(const CKept& kept);
  void ScrollTo(size_t row) const;
  void Rearrange(const std::function<void()>& change);

  const my::IMessageTexts& m_texts;
  CRowView& m_rows;
};

}  // namespace qlm
