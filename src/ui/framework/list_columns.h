// The columns of a report list. The last one fills the list up to its right edge.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <vector>

#include "ui/framework/list_model.h"

namespace my {

// Widths passed to and returned by this class are in pixels at 96 DPI.
class CListColumns {
 public:
  // Adds the columns of the model to a list without columns. List and model must outlive the object.
  void Create(HWND list, const IListModel& model, UINT dpi);

  // Replaces the columns with those that the model has now.
  void Reset();

  // The widths of the stored columns, from the left. A missing or negative width means the default width of
  // the model, which the other columns get always.
  void SetWidths(const std::vector<int32_t>& stored);

  // For the last column, returns the width that it had without the filling.
  std::vector<int32_t> Widths() const;

  void SetDpi(UINT dpi);

  // Must be called when the client area of the list has changed.
  void Fill();

  // Must be called after the list has handled a notification or a message.
  void OnHeader(const NMHDR& notification);
  bool OnMessage(UINT message);  // returns whether it was a message of this class

 private:
  int Last() const { return static_cast<int>(m_model->ColumnCount()) - 1; }
  int WidthOf(int column) const;
  void SetWidth(int column, int width) const;  // in pixels
  bool IsStored(size_t column) const { return m_model->Column(column).stored; }
  std::vector<int32_t> AllWidths() const;
  void SetAllWidths(const std::vector<int32_t>& widths);

  HWND m_list = nullptr;
  const IListModel* m_model = nullptr;
  UINT m_dpi = 0;
  int m_lastWidth = 0;       // smallest width of the last column
  bool m_isSetting = false;  // the object itself is changing widths
};

}  // namespace my
