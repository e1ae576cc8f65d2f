// The sizes that controls need for their font and texts.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>

#include "support/box_layout.h"

namespace my {

struct CSizeRanges {
  CSizeRange width;
  CSizeRange height;
};

// Returns the sizes of a control whose contents only its window knows; nullopt for any other control.
using CSizesOf = std::function<std::optional<CSizeRanges>(int id)>;

// Measures the controls of a window, which must have their fonts. Texts must not change during its life.
class CControlSizes : public IBoxMeasure {
 public:
  // `font` is the font of the window.
  CControlSizes(HWND window, HFONT font, UINT dpi, CSizesOf sizesOf = {});

  // Returns null if there is none.
  HWND ControlOf(const CBox& box) const;

  bool IsShown(const CBox& control) const override;
  CSizeRange Width(const CBox& control) const override;
  CSizeRange Height(const CBox& control, int width) const override;
  int Gap() const override;
  CBorder Frame(const CBox& group) const override;

  // Returns the room between the edges of the window and its controls.
  int Margin() const;

 private:
  enum class Kind { Text, OneLine, Icon, Push, Check, Edit, Combo, List, Link, Progress, Other };

  static Kind KindOf(HWND control);
  std::optional<CSizeRanges> Special(const CBox& box) const;
  int Px(int at96) const { return ::MulDiv(at96, static_cast<int>(m_dpi), 96); }
  int FieldFrame() const { return Px(kFieldPadding) + kFieldBorder; }
  int Chars(int count) const { return ::MulDiv(count, m_alphabetWidth, kAlphabetLength); }
  SIZE TextSize(HWND control, int width) const;
  int LongestItem(HWND combo) const;
  int ContentWidth(HWND control, Kind kind) const;
  int CachedWidth(HWND control, Kind kind) const;
  int ListHeight(int rows) const;

  static constexpr int kAlphabetLength = 52;
  static constexpr int kFieldPadding = 3;  // above and below a text, in pixels at 96 DPI
  static constexpr int kFieldBorder = 4;   // of an edit control or button; the system does not scale it

  HWND m_window;
  UINT m_dpi;
  int m_lineHeight = 0;
  int m_alphabetWidth = 0;
  CSizesOf m_sizesOf;
  mutable std::map<HWND, int> m_widths;  // a layout asks for each of them many times
};

}  // namespace my
