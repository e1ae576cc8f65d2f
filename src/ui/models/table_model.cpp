#include "ui/models/table_model.h"

#include "platform/message_texts.h"

namespace qlm {

my::CListColumn CTableModel::Column(size_t column) const {
  const CColumnSpec& spec = m_columns[column];
  return {m_texts.Text(spec.titleId), spec.width, spec.align, spec.stored};
}

}  // namespace qlm
