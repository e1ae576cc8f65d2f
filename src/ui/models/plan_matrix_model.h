#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/plan_scope.h"
#include "engine/plan.h"
#include "ui/framework/list_model.h"
#include "ui/models/row_colors.h"

namespace my {
class IClock;
}

namespace qlm {

// The matrix of a plan: a row for each task planned so far, a column for its ID and one for each destination.
// For the GUI thread only.
class CPlanMatrixModel : public my::IListModel {
 public:
  enum PlanColumn : size_t { Id, FirstDst };

  // The arguments must outlive the model.
  CPlanMatrixModel(const CUISetting& setting, const my::IMessageTexts& texts, const my::IClock& clock)
      : m_setting(setting), m_texts(texts), m_clock(clock) {}

  // Starts a new plan without rows. The columns change; a view must create them again.
  void Begin(CPlanScope scope);
  void Add(std::vector<CPlanTask> tasks);

  const CPlanScope& Scope() const { return m_scope; }
  const CPlanTask& Task(size_t row) const { return m_tasks[row]; }

  // Returns null if the task does not use the destination of the column.
  const CPlanCell* Cell(size_t row, size_t column) const;

  // Returns the row that the target list of a cell shows; without a destination for the column of the ID.
  CResultPtr RowOf(size_t row, size_t column) const;

  // Returns the lines of the detail pane, each with CR LF.
  std::wstring Detail(size_t row, size_t column) const;

  // Returns what screen readers speak for a cell.
  std::wstring SpokenCell(size_t row, size_t column) const;

  std::wstring Progress() const;  // "planning (3 / 12)"
  std::wstring CountsText() const;

  size_t RowCount() const override { return m_tasks.size(); }
  size_t ColumnCount() const override { return FirstDst + m_scope.content.dsts.size(); }
  my::CListColumn Column(size_t column) const override;
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook CellLook(size_t row, size_t column) const override;

 private:
  std::wstring CellTitle(size_t row, size_t column) const;
  std::wstring Line(uint32_t id, const std::vector<my::CMsgArg>& args) const;
  void AppendCell(std::wstring& text, const CPlanCell& cell) const;

  const CUISetting& m_setting;
  const my::IMessageTexts& m_texts;
  const my::IClock& m_clock;
  CPlanScope m_scope;
  std::vector<CPlanTask> m_tasks;
  CPlanSummary m_summary;
};

}  // namespace qlm
