// A report list whose rows come from a model.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "ui/framework/gdi.h"
#include "ui/framework/list_checks.h"
#include "ui/framework/list_columns.h"
#include "ui/framework/list_drag.h"
#include "ui/framework/list_model.h"
#include "ui/framework/subclass.h"

namespace my {

// User events of a list; each may be empty. Changes made through CListView raise no events.
struct CListEvents {
  std::function<void(size_t row)> check;     // click on the check box, or Space
  std::function<void(size_t row)> activate;  // double click, or Enter
  std::function<void()> selectionChanged;
  std::function<void()> focusChanged;  // another row has the focus
  std::function<void(POINT screen)> contextMenu;
  std::function<void(size_t column)> columnClick;  // on the title of a column
  std::function<bool(UINT key)> key;               // a virtual key; returns true to hide it from the list
  std::function<bool()> canDrag;                   // whether the selected rows may be dragged; empty: never
  std::function<void(size_t before)> drop;  // the row before which to insert; the row count for the end
};

// A list control of the calling thread. The model must outlive the control. View and control may be destroyed
// in either order.
class CListView {
 public:
  enum class Boxes { No, Yes };

  explicit CListView(const IListModel& model);
  CListView(const CListView&) = delete;
  CListView& operator=(const CListView&) = delete;
  virtual ~CListView();

  // Creates a control, which is destroyed with the object. Throws the system error.
  void Create(HWND parent, int id, Boxes boxes, DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP);

  // Uses a control of a dialog template, which must have the styles LVS_REPORT | LVS_OWNERDATA.
  void Attach(HWND list, Boxes boxes);

  HWND Hwnd() const { return m_list; }
  CListEvents& Events() { return m_events; }

  // Must be called after rows were added, removed or changed; cheap for any number of rows. Selection and
  // focus keep their row indices if these still exist.
  void Refresh();

  // Returns the selected rows in ascending order.
  std::vector<size_t> Selection() const;
  void Select(const std::vector<size_t>& rows);
  std::optional<size_t> Focused() const;
  void SetFocused(size_t row);
  void EnsureVisible(size_t row);
  std::optional<size_t> RowAt(POINT screen) const;

  // Must be called after the columns of the model have changed. Their widths are the default widths then.
  void ResetColumns() { m_columns.Reset(); }

  // See CListColumns.
  void SetWidths(const std::vector<int32_t>& widths) { m_columns.SetWidths(widths); }
  std::vector<int32_t> Widths() const { return m_columns.Widths(); }

 protected:
  // Called for every message of the control before view and control handle it. Exceptions are reported.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // Returns the result of NM_CUSTOMDRAW. This implementation sets the colours of rows and draws the insertion
  // mark.
  virtual LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw);

  const IListModel& Model() const { return m_model; }
  UINT TextDpi() const { return m_dpi; }  // scales lengths that go with texts

 private:
  void Detach();
  void Toggle(size_t row);
  void ChangeDpi(UINT screenDpi);

  std::optional<LRESULT> HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> HandleDrag(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleAfterControl(UINT message, WPARAM wParam, LPARAM lParam);
  bool HandleKey(UINT key);
  void HandleContextMenu(LPARAM position) const;
  std::optional<LRESULT> HandleNotify(NMHDR& header);
  void Display(LVITEMW& item) const;
  void ShowTip(NMLVGETINFOTIPW& tip) const;
  LRESULT Find(const NMLVFINDITEMW& find) const;
  void HandleClick(const NMITEMACTIVATE& click, bool twice);
  void HandleState(UINT oldState, UINT newState);
  void HandleBeginDrag(POINT mouse);

  const IListModel& m_model;
  CListEvents m_events;
  HWND m_list = nullptr;
  bool m_owned = false;
  bool m_quiet = false;  // the object itself is changing the selection
  UINT m_dpi = 0;
  CListChecks m_checks;
  CListColumns m_columns;
  CListDrag m_drag;
  CSubclass m_parentHook;
  CSubclass m_listHook;
};

}  // namespace my
