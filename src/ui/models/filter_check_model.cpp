#include "ui/models/filter_check_model.h"

#include <algorithm>

#include "engine/remedy.h"
#include "settings/settings.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"
#include "ui/models/row_colors.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {{IDS_COL_FILTER_LINE, 44, my::ListAlign::Right},
                                    {IDS_COL_FILTER_SIGN, 44, my::ListAlign::Centre},
                                    {IDS_COL_FILTER_EXPRESSION, 250},
                                    {IDS_COL_FILTER_ERROR, 270}};

// Returns the parsed pattern, or the text after the first character of an invalid line.
std::wstring ExpressionOf(const CFilterItem& item) {
  if (!item.pattern.empty()) return item.pattern;
  return std::wstring(my::TrimStart(std::wstring_view(item.line).substr(1), my::kBlanks));
}

}  // namespace

CFilterCheckModel::CFilterCheckModel(const CUISetting& setting, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns), m_setting(setting) {}

void CFilterCheckModel::Show(std::vector<std::wstring> lines) {
  m_items.clear();
  m_lines = std::move(lines);
  m_filter.Parse(m_lines, m_texts);
  m_items.resize(m_lines.size());
  for (const CFilterItemPtr& item : m_filter.Items()) m_items[item->lineIndex] = item.get();
}

CFilterCheckModel::CDecision CFilterCheckModel::Decide(std::wstring_view relativePath) const {
  std::wstring path(relativePath);
  std::replace(path.begin(), path.end(), L'/', L'\\');
  my::CRegexMatch scratch;
  const CFilterItem* item = m_filter.Find(path, scratch);
  CDecision decision;
  decision.text = FilterItemText(m_texts, item);
  if (!item) return decision;
  decision.row = item->lineIndex;
  decision.excluded = item->IsExclude();
  return decision;
}

std::wstring CFilterCheckModel::Text(size_t row, size_t column) const {
  const CFilterItem* item = m_items[row];
  const std::wstring& line = m_lines[row];
  switch (column) {
    case Line: return std::to_wstring(row + 1);
    case Sign: return item ? std::wstring(my::FirstCharacter(line)) : std::wstring();
    case Expression: return item ? ExpressionOf(*item) : line;
    default: return item ? my::OneLine(item->error.message) : std::wstring();
  }
}

my::CListLook CFilterCheckModel::Look(size_t row) const {
  const CFilterItem* item = m_items[row];
  if (!item) return {{}, true};
  return item->error ? StateLook(m_setting, ResultState::Failed) : my::CListLook{};
}

std::wstring CFilterCheckModel::Tip(size_t row) const {
  const CFilterItem* item = m_items[row];
  return item ? RemedyLine(m_texts, item->error) : std::wstring();
}

}  // namespace qlm
