// Texts and colours that several lists show.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "document/dst.h"
#include "support/file_time.h"
#include "ui/framework/list_model.h"

namespace my {
class IClock;
class IMessageTexts;
}  // namespace my

namespace qlm {

struct CFilterItem;
struct CResult;
struct CUISetting;

struct CColumnSpec {
  uint32_t titleId = 0;
  int width = 0;  // pixels at 96 DPI
  my::ListAlign align = my::ListAlign::Left;
};

// The base of list models with a fixed table of columns. This and all derived classes are for the GUI thread
// only.
class CTableModel : public my::IListModel {
 public:
  size_t ColumnCount() const final { return m_columns.size(); }
  my::CListColumn Column(size_t column) const final;

 protected:
  // `columns` must be static.
  CTableModel(const my::IMessageTexts& texts, std::span<const CColumnSpec> columns)
      : m_texts(texts), m_columns(columns) {}

  const my::IMessageTexts& m_texts;

 private:
  std::span<const CColumnSpec> m_columns;
};

// The first four are in the order of the state colours in the settings. INCOMPLETE has no colour there: the
// row ended without an error, but folders of its source could not be listed.
enum class ResultState { CREATED, RUNNING, NOT_UPDATED, FAILED, INCOMPLETE };

// Returns phase or error of a row, and the first folder that could not be listed, with the reason; in one
// line.
std::wstring RowText(const my::IMessageTexts& texts, const CResult& result);

ResultState StateOf(const CResult& result);
my::CListLook StateLook(const CUISetting& setting, ResultState state);

// Returns the time as "2024/03/05 07:04:09" in the user's time zone; empty if it is zero or cannot be
// converted.
std::wstring LocalTimeText(const my::IClock& clock, my::CFileTime time);

std::wstring GroupedText(uint64_t number);  // "1,234,567"

struct CAttributeLetter {
  uint32_t bit;  // FILE_ATTRIBUTE_ value
  wchar_t letter;
};

inline constexpr CAttributeLetter kAttributeLetters[] = {
    {0x1, L'R'},   {0x2, L'H'},   {0x4, L'S'},   {0x10, L'D'},   {0x20, L'A'},   {0x100, L'T'},
    {0x200, L'P'}, {0x400, L'L'}, {0x800, L'C'}, {0x1000, L'O'}, {0x2000, L'I'}, {0x4000, L'E'}};

// Returns the letters of the set attributes, in the order of the table.
std::wstring AttributesText(uint32_t attributes);

// Returns the deciding line of a filter with its number: "12: - \.bak$". For null the text that no line
// matches.
std::wstring FilterItemText(const my::IMessageTexts& texts, const CFilterItem* item);

}  // namespace qlm
