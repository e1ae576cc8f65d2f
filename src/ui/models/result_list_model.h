#pragma once

#include <string>
#include <vector>

#include "engine/result.h"
#include "ui/models/row_colors.h"
#include "ui/models/sortable_model.h"

namespace my {
class IClock;
}

namespace qlm {

// The result rows of a run, in the order of the run.
class CResultListModel : public CSortableModel {
 public:
  enum ResultColumn : size_t { Id, Path, Type, Time, Files, Bytes, Duration, Speed, Message };

  // The arguments must outlive the model.
  CResultListModel(const CUISetting& setting, const my::IMessageTexts& texts, const my::IClock& clock);

  // Sets all rows of a job. `firstRow` is the index of its first row, at most RowCount().
  void ShowResults(size_t firstRow, const CResults& rows);
  void Clear();

  const CResults& Rows() const { return m_rows; }
  size_t ErrorCount() const;
  size_t UnlistedCount() const;  // folders that could not be listed
  const CResult& Row(size_t row) const { return *m_rows[row]; }
  const CResultPtr& Shared(size_t row) const { return m_rows[row]; }

  // Returns files, bytes, time and speed of all created rows.
  std::wstring TotalsText() const;

  // Returns all that is known of a row, in lines that end in CR LF: its whole message, what to do about the
  // error, paths, counts, and the folders that could not be read.
  std::wstring Detail(size_t row) const;

  size_t RowCount() const override { return m_rows.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  CSortKey SortKey(size_t row, size_t column) const override;
  bool IsProblem(size_t row) const override;
  my::CListLook Look(size_t row) const override { return StateLook(m_setting, StateOf(Row(row))); }
  std::wstring Tip(size_t row) const override { return RowDetail(m_texts, Row(row)); }

 private:
  void Count(size_t row);
  bool IsListed(size_t row) const { return Row(row).phase != Phase::Listing; }
  std::vector<std::wstring> UnlistedLines(const CResult& result) const;

  const CUISetting& m_setting;
  const my::IClock& m_clock;
  CResults m_rows;
  std::vector<CTargetCounts> m_counts;  // of the target list of each row
};

}  // namespace qlm
