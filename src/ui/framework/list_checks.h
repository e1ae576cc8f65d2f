// The check boxes of a report list.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "ui/framework/gdi.h"
#include "ui/framework/list_model.h"

namespace my {

// Check boxes whose states come from the model; the control itself changes none. Screen readers know them as
// check boxes, and hear the remarks of the model.
class CListChecks {
 public:
  // Must be called at most once. List and model must outlive the object or the call of Detach.
  void Attach(HWND list, const IListModel& model, UINT dpi);
  void Detach();

  bool IsAttached() const { return m_list != nullptr; }

  // The following functions do nothing before Attach.

  // Must be called when font, DPI or visual style of the list have changed.
  void UseImages(UINT dpi);

  // Must be called when the model has changed.
  void Refresh();

  // Returns the state of a row for LVN_GETDISPINFO.
  UINT StateOf(size_t row) const;

  // Returns whether LVM_SETITEMSTATE asks to toggle the box of a row, as a screen reader does.
  bool IsToggle(size_t row, const LVITEMW& item) const;

 private:
  HWND m_list = nullptr;
  const IListModel* m_model = nullptr;
  CImageList m_images;
  std::vector<std::wstring> m_remarks;  // as set in the control
};

}  // namespace my
