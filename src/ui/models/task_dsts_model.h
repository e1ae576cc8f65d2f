#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/document_edits.h"
#include "ui/models/cells.h"

namespace qlm {

// All destinations of a document, of which one task uses some: those first, in the task's order. The used
// rows from above are the order of the task at any time; a row stays where it is when its use changes.
class CTaskDstsModel : public CTableModel {
 public:
  enum DstColumn : size_t { NUMBER, FOLDER, TYPE, PATTERN };

  // `used` are objects of `dsts`; others are left out. The texts outlive the model.
  CTaskDstsModel(const CDsts& dsts, const CTaskDsts& used, const my::IMessageTexts& texts);

  // All of them, in the order of the rows.
  const CTaskDsts& Dsts() const { return m_dsts; }

  // The used ones, in order.
  CTaskDsts Used() const;

  void Toggle(size_t row) { m_rows[row].used = !m_rows[row].used; }

  // Moves a used row one step among the used ones. Answers where it is then: where it was, when it is not
  // used or the first (last) of them.
  size_t StepRow(size_t row, Step step);
  bool CanStep(size_t row, Step step) const { return Neighbour(row, step) != row; }

  size_t RowCount() const override { return m_rows.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::ListCheck Check(size_t row) const override;

 private:
  struct CRow {
    size_t number = 0;  // from 1 on, as in the document
    bool used = false;
  };

  void Add(const CDstPtr& dst, size_t index, bool used);
  size_t Neighbour(size_t row, Step step) const;

  CTaskDsts m_dsts;
  std::vector<CRow> m_rows;  // one for each
};

}  // namespace qlm
