#pragma once

#include "app/windows.h"
#include "ui/framework/list_view.h"

namespace qlm {

// A list on the screen as the commands see it. The view outlives the object and has its control.
class CListState final : public IListState {
 public:
  explicit CListState(const my::CListView& view) : m_view(view) {}

  std::optional<size_t> FocusedRow() const override { return m_view.Focused(); }
  std::vector<size_t> SelectedRows() const override { return m_view.Selection(); }
  void Focus() override { ::SetFocus(m_view.Hwnd()); }

 private:
  const my::CListView& m_view;
};

}  // namespace qlm
