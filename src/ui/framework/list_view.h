// A report list whose rows a model holds.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <vector>

#include "ui/framework/gdi.h"
#include "ui/framework/list_drag.h"
#include "ui/framework/list_model.h"
#include "ui/framework/subclass.h"

namespace my {

// What the user does to a list; each may be empty. Changes made through CListView cause no event.
struct CListEvents {
  std::function<void(size_t row)> check;     // a click on its box, or the space bar
  std::function<void(size_t row)> activate;  // a double click, or Enter
  std::function<void()> selectionChanged;
  std::function<void()> focusChanged;  // another row has the focus
  std::function<void(POINT screen)> contextMenu;
  std::function<bool(UINT key)> key;        // a virtual key; answers whether the list shall not see it
  std::function<bool()> canDrag;            // whether the selected rows may be dragged; empty: never
  std::function<void(size_t before)> drop;  // in front of which row they go; the row count: behind the last
};

// A list control of the calling thread. Model and view may not change hands; the model must outlive the
// control. View and control may go in either order.
class CListView {
 public:
  enum class Boxes { No, Yes };

  explicit CListView(const IListModel& model);
  CListView(const CListView&) = delete;
  CListView& operator=(const CListView&) = delete;
  virtual ~CListView();

  // A new control, destroyed with the object. Throws the system's error.
  void Create(HWND parent, int id, Boxes boxes, DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP);

  // A control of a dialog's template; it must bear LVS_REPORT | LVS_OWNERDATA there.
  void Attach(HWND list, Boxes boxes);

  HWND Hwnd() const { return m_list; }
  CListEvents& Events() { return m_events; }

  // To be called when rows were added, removed or changed; cheap for any number of rows. Selection and focus
  // stay on their indices as far as these exist.
  void Refresh();

  // Ascending.
  std::vector<size_t> Selection() const;
  void Select(const std::vector<size_t>& rows);
  std::optional<size_t> Focused() const;
  void SetFocused(size_t row);
  void EnsureVisible(size_t row);
  std::optional<size_t> RowAt(POINT screen) const;

  // In pixels at 96 DPI. What `widths` lacks, or has below 0, takes the model's width.
  void SetWidths(const std::vector<int32_t>& widths);
  std::vector<int32_t> Widths() const;

 protected:
  // Any message of the control, before the view and the control look at it. Exceptions are reported.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // The answer to NM_CUSTOMDRAW. This one gives the rows their colours and draws the insertion mark.
  virtual LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw);

  const IListModel& Model() const { return m_model; }
  UINT Dpi() const { return m_dpi; }

 private:
  void Detach();
  void AddColumns();
  void UseImages();
  void ChangeDpi(UINT dpi);

  std::optional<LRESULT> HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> HandleDrag(UINT message, WPARAM wParam, LPARAM lParam);
  bool HandleKey(UINT key);
  void HandleContextMenu(LPARAM position) const;
  std::optional<LRESULT> HandleNotify(NMHDR& header);
  void Display(LVITEMW& item) const;
  LRESULT Find(const NMLVFINDITEMW& find) const;
  void HandleClick(const NMITEMACTIVATE& click, bool twice);
  void HandleState(UINT oldState, UINT newState);
  void HandleBeginDrag(POINT mouse);

  const IListModel& m_model;
  CListEvents m_events;
  HWND m_list = nullptr;
  bool m_owned = false;
  bool m_boxes = false;
  bool m_quiet = false;  // the selection is being changed through the object
  UINT m_dpi = 0;
  CImageList m_images;
  CListDrag m_drag;
  CSubclass m_parentHook;
  CSubclass m_listHook;
};

}  // namespace my
