#pragma once

#include <string>
#include <vector>

#include "document/document_edits.h"
#include "ui/models/advice_marks.h"
#include "ui/models/table_model.h"

namespace qlm {

// The destinations of the document. Check boxes show which of them the selected tasks use.
class CDstListModel : public CTableModel {
 public:
  enum DstColumn : size_t { Number, Folder, Type, Pattern };

  // The arguments must outlive the model.
  CDstListModel(const CDocument& document, const my::IMessageTexts& texts);

  // Must be called after every change of the document or of the selected tasks. Returns whether a check box
  // changed.
  bool Refresh(const CRows& selectedTasks);

  // Sets the marks of the rows with findings.
  void ShowAdvice(std::shared_ptr<const CAdviceMarks> marks) { m_marks = std::move(marks); }

  size_t RowCount() const override { return m_document.Dsts().size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook CellLook(size_t row, size_t column) const override;
  std::wstring Tip(size_t row) const override;
  my::ListCheck Check(size_t row) const override;
  std::wstring CheckRemark(size_t row) const override;

 private:
  const CDocument& m_document;
  std::shared_ptr<const CAdviceMarks> m_marks = std::make_shared<CAdviceMarks>();
  std::vector<DstUse> m_uses;
};

}  // namespace qlm
