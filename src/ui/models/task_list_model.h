#pragma once

#include <string>
#include <unordered_map>

#include "engine/result.h"
#include "ui/models/cells.h"

namespace qlm {

class CDocument;

// The tasks of the document, and how the last run of each went.
class CTaskListModel : public CTableModel {
 public:
  enum TaskColumn : size_t { ID, PATH, FILTER, DSTS, STATE };

  // All outlive the model.
  CTaskListModel(const CDocument& document, const CUISetting& setting, const my::IMessageTexts& texts);

  // To be called after every change of the destinations. Returns whether the number of one that
  // was there before has changed.
  bool Refresh();

  // A job's rows, all of them. Of several rows the one that is worst tells the task's state.
  void ShowResults(const CResults& rows);
  void ClearResults() { m_states.clear(); }

  size_t RowCount() const override;
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override;

 private:
  struct CState {
    ResultState state = ResultState::RUNNING;
    std::wstring text;
  };

  std::wstring DstNumbers(const CTask& task) const;
  const CState* FindState(size_t row) const;

  const CDocument& m_document;
  const CUISetting& m_setting;
  std::unordered_map<const CDst*, size_t> m_dstNumbers;  // from 1 on
  std::unordered_map<std::wstring, CState> m_states;     // by task ID
};

}  // namespace qlm
