// The contents of a list; the view queries the model whenever it draws.
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
  int width = 0;  // default, in pixels at 96 DPI
  ListAlign align = ListAlign::Left;
  bool stored = true;  // whether CListColumns::Widths contains the width
};

struct CListLook {
  std::optional<CColor> color;  // text colour; empty for the colour of the view
  bool grey = false;            // drawn as disabled; overrides the colour
  bool alarm = false;           // stands out from the other rows
  int icon = -1;                // index of an icon of the view; -1: none
};

// Rows and columns count from 0. Code that changes rows must refresh the view; code that changes columns must
// call CListView::ResetColumns.
class IListModel {
 public:
  virtual ~IListModel() = default;

  virtual size_t RowCount() const = 0;
  virtual size_t ColumnCount() const = 0;
  virtual CListColumn Column(size_t column) const = 0;
  virtual std::wstring Text(size_t row, size_t column) const = 0;
  virtual CListLook Look(size_t) const { return {}; }
  virtual size_t IconColumn() const { return 0; }

  // Returns the look of one cell, for views that draw their rows themselves. This implementation returns that
  // of the row, with its icon in IconColumn().
  virtual CListLook CellLook(size_t row, size_t column) const;

  // Returns the text to show when the mouse rests on the row; empty for none.
  virtual std::wstring Tip(size_t) const { return {}; }

  // A view shows check boxes only if created with CListView::Boxes::Yes.
  virtual ListCheck Check(size_t) const { return ListCheck::None; }

  // What screen readers speak for the check box of a row in addition to its state, which they know only as
  // checked or not; usually empty.
  virtual std::wstring CheckRemark(size_t) const { return {}; }
};

// Returns the row that typing `text` selects: the first from `start`, wrapping around, whose first column
// begins with it. Ignores case.
std::optional<size_t> FindRow(const IListModel& model, const std::wstring& text, size_t start);

}  // namespace my
