// The lists of the history window.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "history/history_record.h"
#include "history/task_history.h"
#include "ui/models/row_colors.h"
#include "ui/models/sortable_model.h"

namespace my {
class IClock;
}

namespace qlm {

// What all three lists are made with; must outlive them.
struct CHistoryTexts {
  const CUISetting& setting;
  const my::IMessageTexts& texts;
  const my::IClock& clock;
};

// The runs, newest first.
class CHistoryRunsModel : public CSortableModel {
 public:
  enum RunColumn : size_t { Start, Duration, Document, Program, State, Created, Skipped, Failed, Unlisted };

  explicit CHistoryRunsModel(const CHistoryTexts& with);

  // The runs must outlive the model or the next call.
  void Show(const std::vector<const CHistoryRun*>& runs);

  const CHistoryRun& Run(size_t row) const { return *m_runs[row].run; }

  // Returns times and document of a run.
  std::wstring Detail(size_t row) const;

  size_t RowCount() const override { return m_runs.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  CSortKey SortKey(size_t row, size_t column) const override;
  bool IsProblem(size_t row) const override;
  my::CListLook Look(size_t row) const override;
  std::wstring Tip(size_t row) const override { return Detail(row); }

 private:
  struct CRun {
    const CHistoryRun* run = nullptr;
    CHistoryCounts counts;
  };

  CHistoryTexts m_with;
  std::vector<CRun> m_runs;
};

// The rows of one run.
class CHistoryRowsModel : public CSortableModel {
 public:
  enum RowColumn : size_t { Id, Path, Outcome, Files, Bytes, Message };

  explicit CHistoryRowsModel(const CHistoryTexts& with);

  // Null shows no rows. The run must outlive the model or the next call.
  void Show(const CHistoryRun* run) { m_run = run; }

  const CHistoryRow& Row(size_t row) const { return m_run->rows[row]; }

  // Returns all that is known of a row, in lines that end in CR LF: message, what to do about it, and paths.
  std::wstring Detail(size_t row) const;

  size_t RowCount() const override { return m_run ? m_run->rows.size() : 0; }
  std::wstring Text(size_t row, size_t column) const override;
  CSortKey SortKey(size_t row, size_t column) const override;
  bool IsProblem(size_t row) const override;
  my::CListLook Look(size_t row) const override;

 private:
  CHistoryTexts m_with;
  const CHistoryRun* m_run = nullptr;
};

// The tasks with their last success.
class CHistoryTasksModel : public CSortableModel {
 public:
  enum TaskColumn : size_t { Id, Document, LastSuccess, State };

  explicit CHistoryTasksModel(const CHistoryTexts& with);

  // The tasks must outlive the model or the next call.
  void Show(std::vector<const CTaskHistories::value_type*> tasks) { m_tasks = std::move(tasks); }

  std::wstring Detail(size_t row) const;

  size_t RowCount() const override { return m_tasks.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  CSortKey SortKey(size_t row, size_t column) const override;
  bool IsProblem(size_t row) const override;
  my::CListLook Look(size_t row) const override;

 private:
  CHistoryTexts m_with;
  std::vector<const CTaskHistories::value_type*> m_tasks;
};

// Returns the time of the last success, or the text that there was none.
std::wstring LastSuccessText(const my::IMessageTexts& texts, const my::IClock& clock,
                             const CTaskHistory& task);

}  // namespace qlm
