#include "ui/main_window/frame_list.h"

#include <utility>

#include "ui/main_window/main_view.h"

namespace qlm {

void CFrameList::Attach(CMainView& view, std::function<void()> selected) {
  m_view = &view;
  m_selected = std::move(selected);
}

CListPane& CFrameList::Pane() const {
  return m_kind == ListKind::Tasks ? m_view->Tasks() : m_view->Dsts();
}

IListState& CFrameList::List() const {
  if (m_kind == ListKind::Tasks) return m_view->TaskList();
  return m_view->DstList();
}

std::optional<size_t> CFrameList::FocusedRow() const {
  return m_view ? List().FocusedRow() : std::nullopt;
}

std::vector<size_t> CFrameList::SelectedRows() const {
  return m_view ? List().SelectedRows() : std::vector<size_t>();
}

bool CFrameList::AnySelected() const {
  return m_view && ListView_GetNextItem(Pane().List().Hwnd(), -1, LVNI_SELECTED) >= 0;
}

void CFrameList::Focus() {
  if (m_view) Pane().SetFocus();
}

void CFrameList::Select(const std::vector<size_t>& rows) {
  my::CListView& list = Pane().List();
  list.Select(rows);
  if (!rows.empty()) {
    list.SetFocused(rows.front());
    list.EnsureVisible(rows.front());
  }
  m_selected();
}

}  // namespace qlm
