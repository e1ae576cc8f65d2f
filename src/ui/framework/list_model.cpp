#include "ui/framework/list_model.h"

#include "support/strings.h"

namespace my {

CListLook IListModel::CellLook(size_t row, size_t column) const {
  CListLook look = Look(row);
  if (column != IconColumn()) look.icon = -1;
  return look;
}

std::optional<size_t> FindRow(const IListModel& model, const std::wstring& text, size_t start) {
  const size_t count = model.RowCount();
  for (size_t i = 0; i < count; ++i) {
    const size_t row = (start + i) % count;
    if (EqualNoCase(model.Text(row, 0).substr(0, text.size()), text)) return row;
  }
  return {};
}

}  // namespace my
