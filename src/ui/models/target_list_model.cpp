#include "ui/models/target_list_model.h"

#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {{IDS_COL_TARGET_PATH, 260},
                                    {IDS_COL_TARGET_TIME, 140},
                                    {IDS_COL_TARGET_SIZE, 76, my::ListAlign::Right},
                                    {IDS_COL_TARGET_ATTRIBUTES, 44},
                                    {IDS_COL_FILTER_ITEM, 216}};

std::optional<size_t> FindNewest(const CTargets& targets) {
  const my::CFileTime newest = NewestWriteTime(targets);
  size_t row = 0;
  for (const CTarget target : targets) {
    if (target.IsCountedFile() && target.LastWriteTime() == newest) return row;
    ++row;
  }
  return {};
}

}  // namespace

CTargetListModel::CTargetListModel(CTargetsPtr targets, const my::IMessageTexts& texts,
                                   const my::IClock& clock)
    : CTableModel(texts, kColumns),
      m_targets(std::move(targets)),
      m_clock(clock),
      m_newestRow(FindNewest(*m_targets)) {}

std::wstring CTargetListModel::CountsText() const {
  const CTargetCounts counts = CountTargets(*m_targets);
  const my::CMsgArg args[] = {GroupedText(m_targets->size()), GroupedText(counts.folders),
                              GroupedText(counts.counted), GroupedText(counts.excluded)};
  return my::MakeText(m_texts, IDS_COUNTS, args);
}

std::optional<size_t> CTargetListModel::Find(std::wstring_view text, size_t start) const {
  std::wstring path;
  for (size_t n = 0; n < RowCount(); ++n) {
    const size_t row = (start + n) % RowCount();
    path.clear();
    Target(row).AppendRelativePath(path);
    if (my::ContainsNoCase(path, text)) return row;
  }
  return {};
}

std::wstring CTargetListModel::Text(size_t row, size_t column) const {
  const CTarget target = Target(row);
  switch (column) {
    case Path: return target.RelativePath();
    case Time: return my::LocalTimeText(m_clock, target.LastWriteTime());
    case Size: return target.IsFolder() ? std::wstring() : GroupedText(target.Size());
    case Attributes: return AttributesText(target.Attributes());
    default: return FilterItemText(m_texts, target.FilterItem());
  }
}

}  // namespace qlm
