// Rows of a list as text for other programs. A cell that a spreadsheet would take for a formula gets an
// apostrophe in front, which makes it a text: names of files and tasks may come from anybody.
#pragma once

#include <string>
#include <vector>

#include "ui/framework/list_model.h"

namespace qlm {

// Returns all rows of the model, in its order, with the column titles as CSV: UTF-8 with a byte-order mark,
// lines end in CR LF. A sorted or filtered model is written as it is shown.
std::string CsvText(const my::IListModel& model);

// Returns these rows with tabs between the cells, one line per row, as spreadsheets take it from the
// clipboard.
std::wstring TabbedText(const my::IListModel& model, const std::vector<size_t>& rows);

}  // namespace qlm
