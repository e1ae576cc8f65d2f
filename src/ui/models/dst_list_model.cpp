#include "ui/models/dst_list_model.h"

#include <utility>

#include "platform/message_texts.h"
#include "replace/replace_rule.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {
    {IDS_COL_DST_NUMBER, 60}, {IDS_COL_DST_FOLDER, 320}, {IDS_COL_DST_TYPE, 190}, {IDS_COL_DST_PATTERN, 280}};

}  // namespace

CDstListModel::CDstListModel(const CDocument& document, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns), m_document(document) {}

bool CDstListModel::Refresh(const CRows& selectedTasks) {
  auto uses = UsesOf(m_document.Content(), selectedTasks);
  if (uses == m_uses) return false;
  m_uses = std::move(uses);
  return true;
}

std::wstring CDstListModel::Text(size_t row, size_t column) const {
  const CDst& dst = *m_document.Dsts()[row];
  switch (column) {
    case Number: return std::to_wstring(row + 1);
    case Folder: return ShownValue(dst, kReplaceDstFolder);
    case Type: return m_texts.Text(kDstTypeTexts[dst.type]);
    default: return ShownValue(dst, kReplaceDstPattern);
  }
}

my::CListLook CDstListModel::CellLook(size_t row, size_t column) const {
  my::CListLook look = CTableModel::CellLook(row, column);
  if (column == Folder) look.icon = IconOf(m_marks->Find(m_document.Dsts()[row]));
  return look;
}

std::wstring CDstListModel::Tip(size_t row) const {
  const CAdviceMark* mark = m_marks->Find(m_document.Dsts()[row]);
  return mark ? mark->text : std::wstring();
}

my::ListCheck CDstListModel::Check(size_t row) const {
  // Between a document change and the refresh there may be a new row.
  switch (row < m_uses.size() ? m_uses[row] : DstUse::None) {
    case DstUse::All: return my::ListCheck::Checked;
    case DstUse::Mixed: return my::ListCheck::Mixed;
    case DstUse::None: break;
  }
  return my::ListCheck::Unchecked;
}

std::wstring CDstListModel::CheckRemark(size_t row) const {
  return Check(row) == my::ListCheck::Mixed ? m_texts.Text(IDS_USED_BY_SOME) : std::wstring();
}

}  // namespace qlm
