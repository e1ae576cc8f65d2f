#include "app/windows.h"

namespace qlm {

std::ptrdiff_t PositionAfterSelection(const IListState& list) {
  const std::vector<size_t> rows = list.SelectedRows();
  return rows.empty() ? -1 : static_cast<std::ptrdiff_t>(rows.back()) + 1;
}

}  // namespace qlm
