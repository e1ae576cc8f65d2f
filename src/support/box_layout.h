// The layout of a window as a tree of boxes: controls in rows, columns and wrapping rows. All sizes come from
// the contents, so that any font and any language fits. Lengths are pixels.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "support/placement.h"

namespace my {

// The range of sizes of a box: `least` is needed to be usable, `natural` shows everything.
struct CSizeRange {
  int least = 0;
  int natural = 0;

  friend bool operator==(const CSizeRange&, const CSizeRange&) = default;
};

enum class BoxKind { Control, Gap, Row, Column, Flow, Group };

// A box and its parts. Use the functions below to create one.
struct CBox {
  BoxKind kind = BoxKind::Control;
  std::vector<CBox> parts;
  int id = 0;          // of the control, or of the frame around a group
  bool label = false;  // this is the control before the one with the id, in tab order
  int chars = 0;       // natural width of the control in average characters; 0: depends on its contents
  int lines = 0;       // natural height of the control in lines or rows; 0: depends on its contents
  bool wide = false;   // takes extra width
  bool tall = false;   // takes extra height
  int same = 0;        // controls with the same number get the same width; 0: none

  CBox Wide() const;
  CBox Tall() const;
  CBox Chars(int count) const;
  CBox Lines(int count) const;
  CBox Same(int number) const;
};

CBox Control(int id);
CBox LabelOf(int id);

// Adds one gap between its neighbours.
CBox Space();

// Pushes its neighbours in a row apart.
CBox Spring();

CBox Row(std::vector<CBox> parts);     // controls are centred vertically
CBox Column(std::vector<CBox> parts);  // wide controls and containers take the full width
CBox Flow(std::vector<CBox> parts);    // a row that continues on further lines if it is too long

// A control after its label. The labels of a window have the same width.
CBox Field(int id);
CBox Field(CBox control, std::vector<CBox> more = {});

// Room of the width of the labels.
CBox Indent();

// Controls of the same width at the right edge.
CBox Buttons(const std::vector<int>& ids);

// A column with a frame; `id` is the frame's control.
CBox Group(int id, std::vector<CBox> parts);

// What a layout asks about the controls.
class IBoxMeasure {
 public:
  virtual ~IBoxMeasure() = default;

  // A hidden control takes no room.
  virtual bool IsShown(const CBox& control) const = 0;
  virtual CSizeRange Width(const CBox& control) const = 0;
  virtual CSizeRange Height(const CBox& control, int width) const = 0;
  virtual int Gap() const = 0;                         // between neighbours
  virtual CBorder Frame(const CBox& group) const = 0;  // room between the frame and its parts
};

struct CPlacedBox {
  const CBox* control;  // or the frame of a group
  CRect rect;
};

// Computes sizes and places. Both references must outlive the object, which measures again on each call.
class CBoxLayout {
 public:
  CBoxLayout(const CBox& root, const IBoxMeasure& measure);

  CSizeRange Width() const { return WidthOf(m_root); }
  CSizeRange Height(int width) const { return HeightOf(m_root, width); }

  // Returns the places of all shown controls within `area`. A frame comes before its parts. If the area is
  // smaller than the least size, the last boxes exceed it.
  std::vector<CPlacedBox> Place(const CRect& area) const;

 private:
  using CLine = std::vector<const CBox*>;

  bool IsShown(const CBox& box) const;
  CLine Shown(const CBox& box) const;
  CSizeRange WidthOf(const CBox& box) const;
  CSizeRange SingleWidth(const CBox& box) const;  // of a control or gap
  CSizeRange HeightOf(const CBox& box, int width) const;
  CSizeRange LineHeight(const CLine& line, int width) const;
  std::vector<int> LineWidths(const CLine& line, int width) const;
  std::vector<CLine> Lines(const CBox& flow, int width) const;
  int PartWidth(const CBox& part, int width) const;
  int Gaps(size_t count) const;

  void Put(const CBox& box, const CRect& area, std::vector<CPlacedBox>& places) const;
  void PutLine(const CLine& line, const CRect& area, std::vector<CPlacedBox>& places) const;
  void PutColumn(const CBox& column, const CRect& area, std::vector<CPlacedBox>& places) const;

  const CBox& m_root;
  const IBoxMeasure& m_measure;
  std::vector<std::pair<int, CSizeRange>> m_same;  // widths of the controls with equal widths
};

}  // namespace my
