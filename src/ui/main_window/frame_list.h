#pragma once

#include <functional>

#include "app/windows.h"

namespace qlm {

class CListPane;
class CMainView;

// A list of the main window, for the commands. It has no rows until a view is attached.
class CFrameList : public IEditList {
 public:
  explicit CFrameList(ListKind kind) : m_kind(kind) {}

  // The view must exist whenever another function is called. `selected` is called after Select.
  void Attach(CMainView& view, std::function<void()> selected);

  std::optional<size_t> FocusedRow() const override;
  std::vector<size_t> SelectedRows() const override;
  bool AnySelected() const override;
  void Focus() override;
  void Select(const std::vector<size_t>& rows) override;

 private:
  CListPane& Pane() const;
  IListState& List() const;

  ListKind m_kind;
  CMainView* m_view = nullptr;
  std::function<void()> m_selected;
};

}  // namespace qlm
