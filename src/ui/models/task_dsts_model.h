#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/document_edits.h"
#include "ui/models/table_model.h"

namespace qlm {

// All destinations of a document, for one task that uses some of them. Initially the used ones come first, in
// the order of the task. The order of the used rows is the order of the task. Changing its use does not move
// a row.
class CTaskDstsModel : public CTableModel {
 public:
  enum DstColumn : size_t { Number, Folder, Type, Pattern };

  // Destinations in `used` that are not objects in `dsts` are ignored. The texts must outlive the model.
  CTaskDstsModel(const CDsts& dsts, const CTaskDsts& used, const my::IMessageTexts& texts);

  // All destinations, in row order.
  const CTaskDsts& Dsts() const { return m_dsts; }

  // The used destinations, in row order.
  CTaskDsts Used() const;

  void Toggle(size_t row) { m_rows[row].used = !m_rows[row].used; }

  // Moves a used row past the next used row. Returns its new index, which is the old one if the row is not
  // used or is already the first or last used one.
  size_t StepRow(size_t row, Step step);
  bool CanStep(size_t row, Step step) const { return Neighbour(row, step) != row; }

  size_t RowCount() const override { return m_rows.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::ListCheck Check(size_t row) const override;

 private:
  struct CRow {
    size_t number = 0;  // from 1, as in the document
    bool used = false;
  };

  void Add(const CDstPtr& dst, size_t index, bool used);
  size_t Neighbour(size_t row, Step step) const;

  CTaskDsts m_dsts;
  std::vector<CRow> m_rows;  // parallel to m_dsts
};

}  // namespace qlm
