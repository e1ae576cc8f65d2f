// The sizes that controls need for their font and texts.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "support/box_layout.h"
#include "ui/framework/gdi.h"

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

  // What is known of a control. A layout asks for it many times.
  struct CControl {
    HWND window = nullptr;
    Kind kind = Kind::Other;
    bool isShown = false;
    mutable std::optional<int> contentWidth;
    mutable std::map<int, SIZE> textSizes;  // by width
  };

  static Kind KindOf(HWND control);
  const CControl& Find(const CBox& box) const;
  std::optional<CSizeRanges> Special(const CBox& box) const;
  int Px(int at96) const { return ::MulDiv(at96, static_cast<int>(m_dpi), 96); }
  int FieldFrame() const { return Px(kFieldPadding) + kFieldBorder; }
  int Chars(int count) const { return ::MulDiv(count, m_alphabetWidth, kAlphabetLength); }
  SIZE TextSize(const CControl& control, int width) const;
  int LongestItem(HWND combo) const;
  int ContentWidth(const CControl& control) const;
  int ListHeight(int rows) const;

  static constexpr int kAlphabetLength = 52;
  static constexpr int kFieldPadding = 3;  // above and below a text, in pixels at 96 DPI
  static constexpr int kFieldBorder = 4;   // of an edit control or button; the system does not scale it

  HWND m_window;
  UINT m_dpi;
  int m_lineHeight = 0;
  int m_alphabetWidth = 0;
  CSizesOf m_sizesOf;
  mutable CFontDc m_dc;
  mutable std::map<std::pair<int, bool>, CControl> m_controls;  // by id and whether it is the label
};

}  // namespace my
