#include "ui/models/result_list_model.h"

#include <algorithm>

#include "engine/value_texts.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {{IDS_COL_TASK_ID, 104},
                                    {IDS_COL_RESULT_PATH, 170},
                                    {IDS_COL_DST_TYPE, 190},
                                    {IDS_COL_RESULT_TIME, 140},
                                    {IDS_COL_RESULT_MESSAGE, 420}};

// A field with a separator, quote or line break is quoted, and quotes in it are doubled.
void AppendField(std::wstring& csv, const std::wstring& field) {
  if (field.find_first_of(L"\",\r\n") == field.npos) {
    csv += field;
    return;
  }
  csv += L'"';
  for (const wchar_t c : field) csv.append(c == L'"' ? 2 : 1, c);
  csv += L'"';
}

}  // namespace

CResultListModel::CResultListModel(const CUISetting& setting, const my::IMessageTexts& texts,
                                   const my::IClock& clock)
    : CTableModel(texts, kColumns), m_setting(setting), m_clock(clock) {}

void CResultListModel::ShowResults(size_t firstRow, const CResults& rows) {
  m_rows.resize(std::max(m_rows.size(), firstRow + rows.size()));
  std::copy(rows.begin(), rows.end(), m_rows.begin() + static_cast<std::ptrdiff_t>(firstRow));
}

size_t CResultListModel::ErrorCount() const {
  const auto failed = [](const CResultPtr& row) { return static_cast<bool>(row->error); };
  return static_cast<size_t>(std::count_if(m_rows.begin(), m_rows.end(), failed));
}

size_t CResultListModel::UnlistedCount() const {
  size_t count = 0;
  const CTargets* last = nullptr;  // all rows of a job share one list
  for (const CResultPtr& row : m_rows) {
    if (row->targets.get() != last) count += row->targets->Unlisted().size();
    last = row->targets.get();
  }
  return count;
}

std::string CResultListModel::Csv() const {
  std::wstring csv = L"\xFEFF";
  const auto line = [&](const auto& field) {
    for (size_t column = 0; column < ColumnCount(); ++column) {
      if (column != 0) csv += L',';
      AppendField(csv, field(column));
    }
    csv += L"\r\n";
  };
  line([this](size_t column) { return Column(column).title; });
  for (size_t row = 0; row < m_rows.size(); ++row) {
    line([this, row](size_t column) { return Text(row, column); });
  }
  return my::Utf8FromWide(csv);
}

std::wstring CResultListModel::Text(size_t row, size_t column) const {
  const CResult& result = Row(row);
  switch (column) {
    case Id: return result.task->id;
    case Path: return result.destinationPath;
    case Type: return result.Dst() ? m_texts.Text(kDstTypeTexts[result.Dst()->type]) : std::wstring();
    case Time: return LocalTimeText(m_clock, result.newestWriteTime);
    default: return RowText(m_texts, result);
  }
}

}  // namespace qlm
