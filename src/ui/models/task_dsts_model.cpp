#include "ui/models/task_dsts_model.h"

#include <algorithm>
#include <utility>

#include "resource.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {
    {IDS_COL_DST_NUMBER, 48}, {IDS_COL_DST_FOLDER, 190}, {IDS_COL_DST_TYPE, 118}, {IDS_COL_DST_PATTERN, 212}};

}  // namespace

CTaskDstsModel::CTaskDstsModel(const CDsts& dsts, const CTaskDsts& used, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns) {
  for (const CDstPtr& dst : used) {
    const std::ptrdiff_t index = dsts.IndexOf(dst);
    if (index >= 0) m_rows.push_back({dst, static_cast<size_t>(index) + 1, true});
  }
  for (size_t i = 0; i < dsts.size(); ++i) {
    if (std::find(used.begin(), used.end(), dsts[i]) == used.end()) m_rows.push_back({dsts[i], i + 1, false});
  }
}

CTaskDsts CTaskDstsModel::Used() const {
  CTaskDsts used;
  for (const CRow& row : m_rows) {
    if (row.used) used.push_back(row.dst);
  }
  return used;
}

size_t CTaskDstsModel::StepRow(size_t row, Step step) {
  const size_t to = Neighbour(row, step);
  std::swap(m_rows[row], m_rows[to]);
  return to;
}

// The next used row on the way of a used one; the row itself when there is none.
size_t CTaskDstsModel::Neighbour(size_t row, Step step) const {
  if (!m_rows[row].used) return row;
  if (step == Step::UP) {
    for (size_t i = row; i-- > 0;) {
      if (m_rows[i].used) return i;
    }
    return row;
  }
  for (size_t i = row + 1; i < m_rows.size(); ++i) {
    if (m_rows[i].used) return i;
  }
  return row;
}

std::wstring CTaskDstsModel::Text(size_t row, size_t column) const {
  const CRow& shown = m_rows[row];
  switch (column) {
    case NUMBER: return std::to_wstring(shown.number);
    case FOLDER: return shown.dst->folder;
    case TYPE: return DstTypeText(m_texts, shown.dst->type);
    default: return shown.dst->pattern;
  }
}

my::ListCheck CTaskDstsModel::Check(size_t row) const {
  return m_rows[row].used ? my::ListCheck::Checked : my::ListCheck::Unchecked;
}

}  // namespace qlm
