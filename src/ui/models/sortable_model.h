#pragma once

#include <cstdint>
#include <string>

#include "ui/models/table_model.h"

namespace qlm {

// The value by which a cell is sorted: first by the number, then by the text without regard to ASCII case.
struct CSortKey {
  uint64_t number = 0;
  std::wstring text = {};
};

// A table whose rows can be sorted and filtered by a CRowView.
class CSortableModel : public CTableModel {
 public:
  virtual CSortKey SortKey(size_t row, size_t column) const { return {0, Text(row, column)}; }

  // Returns whether the row remains when only problems are shown.
  virtual bool IsProblem(size_t row) const = 0;

 protected:
  using CTableModel::CTableModel;
};

}  // namespace qlm
