#include "ui/framework/list_sort.h"

#include <commctrl.h>

namespace my {

void ShowSortArrow(HWND list, std::optional<size_t> column, bool descending) {
  const HWND header = ListView_GetHeader(list);
  const int count = Header_GetItemCount(header);
  for (int i = 0; i < count; ++i) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    Header_GetItem(header, i, &item);
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (column == static_cast<size_t>(i)) item.fmt |= descending ? HDF_SORTDOWN : HDF_SORTUP;
    Header_SetItem(header, i, &item);
  }
}

}  // namespace my
