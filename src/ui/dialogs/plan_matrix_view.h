#pragma once

#include <functional>

#include "ui/look/drawn_list.h"

namespace qlm {

// A list in which a single cell has the focus. The arrow keys move it; a click sets it.
class CPlanMatrixView final : public CDrawnList {
 public:
  // Returns what screen readers speak for a cell.
  using SpokenCell = std::function<std::wstring(size_t row, size_t column)>;

  CPlanMatrixView(const my::IListModel& model, SpokenCell spokenCell)
      : CDrawnList(model), m_spokenCell(std::move(spokenCell)) {}

  // Called when another column has got the focus. Not called for another row, see CListEvents.
  std::function<void()> onColumn;

  size_t Column() const { return m_column; }

  // Selects, focuses and shows a cell.
  void SetCell(size_t row, size_t column);

  // Must be called when the focused cell or its text has changed, and with no row before the control is
  // destroyed.
  void Speak(std::optional<size_t> row);

 private:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<size_t> FocusedColumn() const override { return m_column; }

  bool Step(WPARAM key);
  void SetColumn(size_t column);
  void ShowColumn() const;

  SpokenCell m_spokenCell;
  size_t m_column = 0;
  std::optional<size_t> m_spokenRow;
};

}  // namespace qlm
