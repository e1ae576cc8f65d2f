#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "ui/framework/list_model.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CColumnSpec {
  uint32_t titleId = 0;
  int width = 0;  // pixels at 96 DPI
  my::ListAlign align = my::ListAlign::Left;
  bool stored = true;  // see my::CListColumn
};

// The base of list models with a fixed table of columns. This and all derived classes are for the GUI thread
// only.
class CTableModel : public my::IListModel {
 public:
  size_t ColumnCount() const final { return m_columns.size(); }
  my::CListColumn Column(size_t column) const final;

 protected:
  // `columns` must be static.
  CTableModel(const my::IMessageTexts& texts, std::span<const CColumnSpec> columns)
      : m_texts(texts), m_columns(columns) {}

  const my::IMessageTexts& m_texts;

 private:
  std::span<const CColumnSpec> m_columns;
};

}  // namespace qlm
