#pragma once

#include <windows.h>

#include <memory>
#include <utility>

#include "app/command.h"
#include "app/windows.h"
#include "text_ids.h"
#include "ui/framework/list_view.h"

namespace qlm {

// A list view for a list of the program (CTasks, CDsts, CTargets, ...): row i shows item i. The commands use
// it as IListState. The items of CTargets are views, which have no address.
template <class TList, class TView = my::CListView>
class CSimpleListView : public TView, public IListState {
 public:
  // The items must outlive the control. `args` are passed to the view; row i of its model must show item i.
  template <class... TArgs>
  explicit CSimpleListView(const TList& items, TArgs&&... args)
      : TView(std::forward<TArgs>(args)...), m_items(items) {}

  const TList& Items() const { return m_items; }

  // Returns null if no row has the focus. Valid until the items change.
  auto FocusedItem() const {
    const auto row = FocusedRow();
    return row ? std::addressof(m_items.begin()[static_cast<std::ptrdiff_t>(*row)]) : nullptr;
  }

  // Throws CListException with IDS_NO_ITEM_SELECTED if no row has the focus.
  auto& RequireFocusedItem() {
    const auto* item = FocusedItem();
    if (!item) throw CListException(IDS_NO_ITEM_SELECTED, *this);
    return *item;
  }

  // The control may have rows that were removed from the list since the last refresh.
  std::optional<size_t> FocusedRow() const override {
    const auto row = this->Focused();
    return row && *row < m_items.size() ? row : std::nullopt;
  }
  std::vector<size_t> SelectedRows() const override { return this->Selection(); }
  void Focus() override { ::SetFocus(this->Hwnd()); }

 private:
  const TList& m_items;
};

}  // namespace qlm
