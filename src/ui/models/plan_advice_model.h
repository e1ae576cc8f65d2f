#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/advice.h"
#include "ui/models/row_colors.h"
#include "ui/models/table_model.h"

namespace qlm {

// The findings about a plan, the most severe first.
class CPlanAdviceModel : public CTableModel {
 public:
  enum AdviceColumn : size_t { Severity, Item, Message };

  // The arguments must outlive the model.
  CPlanAdviceModel(const CUISetting& setting, const my::IMessageTexts& texts);

  void Begin(CContent content);
  void Add(const std::vector<CAdvice>& findings);
  void Remove(const CAdvice& leftover);

  const CAdvice& Finding(size_t row) const { return m_findings[row]; }

  size_t RowCount() const override { return m_findings.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override;
  std::wstring Tip(size_t row) const override { return m_findings[row].text; }

 private:
  const CUISetting& m_setting;
  CContent m_content;
  std::vector<CAdvice> m_findings;
};

// Returns the state whose colour and icon show a severity; nullopt for a hint, which has none.
std::optional<ResultState> StateOf(AdviceSeverity severity);

}  // namespace qlm
