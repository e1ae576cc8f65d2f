#include "ui/models/table_text.h"

#include "support/strings.h"

namespace qlm {
namespace {

// The signs in their full width are formulas too, in an East Asian spreadsheet.
constexpr std::wstring_view kFormulaStarts = L"=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20";

std::wstring AsText(std::wstring cell) {
  if (!cell.empty() && kFormulaStarts.find(cell.front()) != kFormulaStarts.npos) cell.insert(0, 1, L'\'');
  return cell;
}

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

std::string CsvText(const my::IListModel& model) {
  std::wstring csv = L"\xFEFF";
  const auto line = [&](const auto& field) {
    for (size_t column = 0; column < model.ColumnCount(); ++column) {
      if (column != 0) csv += L',';
      AppendField(csv, AsText(field(column)));
    }
    csv += L"\r\n";
  };
  line([&model](size_t column) { return model.Column(column).title; });
  for (size_t row = 0; row < model.RowCount(); ++row) {
    line([&model, row](size_t column) { return model.Text(row, column); });
  }
  return my::Utf8FromWide(csv);
}

std::wstring TabbedText(const my::IListModel& model, const std::vector<size_t>& rows) {
  std::wstring text;
  for (const size_t row : rows) {
    for (size_t column = 0; column < model.ColumnCount(); ++column) {
      if (column != 0) text += L'\t';
      std::wstring cell = AsText(model.Text(row, column));
      for (wchar_t& c : cell) c = c == L'\t' ? L' ' : c;
      text += cell;
    }
    text += L"\r\n";
  }
  return text;
}

}  // namespace qlm
