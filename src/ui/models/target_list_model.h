#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/targets.h"
#include "ui/models/cells.h"

namespace qlm {

// Everything below a task's source in the order of the listing, and which line of the filter decided.
class CTargetListModel : public CTableModel {
 public:
  enum TargetColumn : size_t { PATH, TIME, SIZE, ATTRIBUTES, FILTER };

  // `texts` and `clock` outlive the model.
  CTargetListModel(CTargetsPtr targets, const my::IMessageTexts& texts, const my::IClock& clock);

  // How many entries there are, how many of them are backed up, and how many are excluded.
  std::wstring CountsText() const;

  // The first entry that has the newest write time of all that are backed up; none when none is.
  std::optional<size_t> NewestRow() const { return m_newestRow; }

  // The first row from `start` on, around the end, with the text somewhere in its path; the case of ASCII
  // letters does not count.
  std::optional<size_t> Find(std::wstring_view text, size_t start) const;

  size_t RowCount() const override { return m_targets->size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override { return {{}, Target(row).IsExcluded()}; }

 private:
  const CTarget& Target(size_t row) const { return m_targets->begin()[static_cast<std::ptrdiff_t>(row)]; }

  CTargetsPtr m_targets;
  const my::IClock& m_clock;
  std::optional<size_t> m_newestRow;
};

}  // namespace qlm
