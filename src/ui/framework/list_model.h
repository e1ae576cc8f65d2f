// What a list shows; the view asks for it whenever it draws.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "support/value_codecs.h"

namespace my {

enum class ListAlign { Left, Right, Centre };
enum class ListCheck { None, Unchecked, Checked, Mixed };

struct CListColumn {
  std::wstring title;
  int width = 0;  // by default, in pixels at 96 DPI
  ListAlign align = ListAlign::Left;
};

struct CListLook {
  std::optional<CColor> color;  // of the texts; empty: that of the view
  bool grey = false;            // as something switched off; goes before the colour
};

// Rows and columns count from 0. The columns stay the same for the life of a view; whoever changes rows
// refreshes the view.
class IListModel {
 public:
  virtual ~IListModel() = default;

  virtual size_t RowCount() const = 0;
  virtual size_t ColumnCount() const = 0;
  virtual CListColumn Column(size_t column) const = 0;
  virtual std::wstring Text(size_t row, size_t column) const = 0;
  virtual CListLook Look(size_t) const { return {}; }

  // With anything but None in some row the view needs check boxes (CListView::Boxes).
  virtual ListCheck Check(size_t) const { return ListCheck::None; }
};

// The row to which typing `text` leads: the first from `start` on, around the end, whose first column begins
// with it, upper and lower case being the same.
std::optional<size_t> FindRow(const IListModel& model, const std::wstring& text, size_t start);

}  // namespace my
