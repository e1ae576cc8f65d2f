#pragma once

#include <string>

#include "engine/result.h"
#include "ui/models/row_colors.h"
#include "ui/models/table_model.h"

namespace my {
class IClock;
}

namespace qlm {

// The result rows of a run.
class CResultListModel : public CTableModel {
 public:
  enum ResultColumn : size_t { Id, Path, Type, Time, Message };

  // The arguments must outlive the model.
  CResultListModel(const CUISetting& setting, const my::IMessageTexts& texts, const my::IClock& clock);

  // Sets all rows of a job. `firstRow` is the index of its first row, at most RowCount().
  void ShowResults(size_t firstRow, const CResults& rows);
  void Clear() { m_rows.clear(); }

  const CResults& Rows() const { return m_rows; }
  size_t ErrorCount() const;
  size_t UnlistedCount() const;  // folders that could not be listed
  const CResult& Row(size_t row) const { return *m_rows[row]; }
  const CResultPtr& Shared(size_t row) const { return m_rows[row]; }

  // Returns the list with its column titles as CSV: UTF-8 with a byte-order mark, lines end in CR LF.
  std::string Csv() const;

  size_t RowCount() const override { return m_rows.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override { return StateLook(m_setting, StateOf(Row(row))); }
  std::wstring Tip(size_t row) const override { return RowDetail(m_texts, Row(row)); }

 private:
  const CUISetting& m_setting;
  const my::IClock& m_clock;
  CResults m_rows;
};

}  // namespace qlm
