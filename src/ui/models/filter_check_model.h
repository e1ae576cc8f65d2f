#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/filter.h"
#include "ui/models/table_model.h"

namespace qlm {

struct CUISetting;

// The item of each line of a filter file; null for a comment.
using CFilterLines = std::vector<const CFilterItem*>;

// The lines of a filter file with their errors. Comments and empty lines are grey.
class CFilterCheckModel : public CTableModel {
 public:
  enum FilterColumn : size_t { Line, Sign, Expression, ErrorText };

  // The arguments must outlive the model.
  CFilterCheckModel(const CUISetting& setting, const my::IMessageTexts& texts);

  // Replaces the lines, which are in the form that ReadTextLines returns.
  void Show(std::vector<std::wstring> lines);

  const CFilterLines& Lines() const { return m_items; }
  bool HasErrors() const { return m_filter.HasErrors(); }

  struct CDecision {
    std::optional<size_t> row;  // nullopt if no line matches
    bool excluded = false;
    std::wstring text;  // the line with its number, or the text that none matches
  };

  // Returns what the filter decides for a path relative to the source ("docs\a.txt"; a folder ends in "\").
  // "/" is also a separator. Throws what CFilter::Find throws.
  CDecision Decide(std::wstring_view relativePath) const;

  size_t RowCount() const override { return m_lines.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override;
  std::wstring Tip(size_t row) const override;

 private:
  const CUISetting& m_setting;
  std::vector<std::wstring> m_lines;
  CFilter m_filter;
  CFilterLines m_items;
};

}  // namespace qlm
