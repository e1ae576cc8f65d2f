#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/targets.h"
#include "ui/models/table_model.h"

namespace my {
class IClock;
}

namespace qlm {

// All entries of a task's source in listing order, with the filter line that decided each.
class CTargetListModel : public CTableModel {
 public:
  enum TargetColumn : size_t { Path, Time, Size, Attributes, Filter };

  // `texts` and `clock` must outlive the model.
  CTargetListModel(CTargetsPtr targets, const my::IMessageTexts& texts, const my::IClock& clock);

  // Returns the numbers of entries, folders, files to back up, and excluded entries.
  std::wstring CountsText() const;

  // Returns the first file with the newest write time among those to back up; nullopt if there is none.
  std::optional<size_t> NewestRow() const { return m_newestRow; }

  // Returns the first row from `start`, wrapping around, whose path contains the text. Ignores ASCII case.
  std::optional<size_t> Find(std::wstring_view text, size_t start) const;

  size_t RowCount() const override { return m_targets->size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override { return {{}, Target(row).IsExcluded()}; }

 private:
  CTarget Target(size_t row) const { return (*m_targets)[row]; }

  CTargetsPtr m_targets;
  const my::IClock& m_clock;
  std::optional<size_t> m_newestRow;
};

}  // namespace qlm
