#include "ui/models/task_dsts_model.h"

#include <algorithm>
#include <utility>

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {
    {IDS_COL_DST_NUMBER, 48}, {IDS_COL_DST_FOLDER, 190}, {IDS_COL_DST_TYPE, 190}, {IDS_COL_DST_PATTERN, 212}};

}  // namespace

CTaskDstsModel::CTaskDstsModel(const CDsts& dsts, const CTaskDsts& used, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns) {
  for (const CDstPtr& dst : used) {
    const std::ptrdiff_t index = dsts.IndexOf(dst);
    if (index >= 0) Add(dst, static_cast<size_t>(index), true);
  }
  for (size_t i = 0; i < dsts.size(); ++i) {
    if (std::find(used.begin(), used.end(), dsts[i]) == used.end()) Add(dsts[i], i, false);
  }
}

void CTaskDstsModel::Add(const CDstPtr& dst, size_t index, bool used) {
  m_dsts.push_back(dst);
  m_rows.push_back({index + 1, used});
}

CTaskDsts CTaskDstsModel::Used() const {
  CTaskDsts used;
  for (size_t row = 0; row < m_rows.size(); ++row) {
    if (m_rows[row].used) used.push_back(m_dsts[row]);
  }
  return used;
}

size_t CTaskDstsModel::StepRow(size_t row, Step step) {
  const size_t to = Neighbour(row, step);
  std::swap(m_rows[row], m_rows[to]);
  std::swap(m_dsts[row], m_dsts[to]);
  return to;
}

// Returns the nearest used row in that direction; the row itself if there is none.
size_t CTaskDstsModel::Neighbour(size_t row, Step step) const {
  if (!m_rows[row].used) return row;
  if (step == Step::Up) {
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
  const CDst& dst = *m_dsts[row];
  switch (column) {
    case Number: return std::to_wstring(m_rows[row].number);
    case Folder: return dst.folder;
    case Type: return m_texts.Text(kDstTypeTexts[dst.type]);
    default: return dst.pattern;
  }
}

my::ListCheck CTaskDstsModel::Check(size_t row) const {
  return m_rows[row].used ? my::ListCheck::Checked : my::ListCheck::Unchecked;
}

}  // namespace qlm
