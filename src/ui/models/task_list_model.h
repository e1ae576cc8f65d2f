#pragma once

#include <string>
#include <unordered_map>

#include "engine/result.h"
#include "ui/models/advice_marks.h"
#include "ui/models/row_colors.h"
#include "ui/models/table_model.h"

namespace qlm {

class CDocument;
class CLastSuccess;

// The tasks of the document with the results of their last run.
class CTaskListModel : public CTableModel {
 public:
  enum TaskColumn : size_t { Id, Path, Filter, Dsts, LastSuccess, State };

  // The arguments must outlive the model.
  CTaskListModel(const CDocument& document, const CUISetting& setting, const my::IMessageTexts& texts);

  // Must be called after every change of the destinations. Returns whether the number of an existing
  // destination changed.
  bool Refresh();

  // Sets all rows of a job. The row in the worst state determines the state of the task.
  void ShowResults(const CResults& rows);
  void ClearResults() { m_states.clear(); }

  // Sets the marks of the rows with findings.
  void ShowAdvice(std::shared_ptr<const CAdviceMarks> marks) { m_marks = std::move(marks); }

  // Shows the last success of the tasks, which must outlive the model.
  void SetLastSuccess(const CLastSuccess& lastSuccess) { m_lastSuccess = &lastSuccess; }

  size_t RowCount() const override;
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override;
  my::CListLook CellLook(size_t row, size_t column) const override;
  size_t IconColumn() const override { return State; }
  std::wstring Tip(size_t row) const override;

 private:
  struct CState {
    ResultState state = ResultState::Running;
    std::wstring text;
    std::wstring tip;
  };

  std::wstring DstNumbers(const CTask& task) const;
  const CState* FindState(size_t row) const;
  std::wstring OverdueText(size_t row) const;

  const CDocument& m_document;
  const CUISetting& m_setting;
  std::shared_ptr<const CAdviceMarks> m_marks = std::make_shared<CAdviceMarks>();
  const CLastSuccess* m_lastSuccess = nullptr;
  std::unordered_map<const CDst*, size_t> m_dstNumbers;  // from 1
  std::unordered_map<std::wstring, CState> m_states;     // by task ID
};

}  // namespace qlm
