#include "support/box_layout.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace my {
namespace {

// Numbers of CBox::same.
constexpr int kLabels = -1;
constexpr int kButtons = -2;

CBox Container(BoxKind kind, std::vector<CBox> parts) {
  CBox box;
  box.kind = kind;
  box.parts = std::move(parts);
  return box;
}

bool IsContainer(const CBox& box) {
  return !box.parts.empty();
}

bool IsWide(const CBox& box) {
  return box.wide || std::ranges::any_of(box.parts, IsWide);
}

bool IsTall(const CBox& box) {
  return box.tall || std::ranges::any_of(box.parts, IsTall);
}

CSizeRange Sum(CSizeRange a, CSizeRange b) {
  return {a.least + b.least, a.natural + b.natural};
}

CSizeRange Larger(CSizeRange a, CSizeRange b) {
  return {std::max(a.least, b.least), std::max(a.natural, b.natural)};
}

CSizeRange Wider(CSizeRange extent, int by) {
  return Sum(extent, {by, by});
}

// Divides `room`: extra room goes to the parts that grow, missing room is taken from those that can shrink.
std::vector<int> Divide(const std::vector<std::pair<CSizeRange, bool>>& parts, int room) {
  CSizeRange total;
  int growing = 0;
  for (const auto& [extent, grows] : parts) {
    total = Sum(total, extent);
    if (grows) ++growing;
  }
  int extra = std::max(0, room - total.natural);
  int missing = std::clamp(total.natural - room, 0, total.natural - total.least);
  int flexible = total.natural - total.least;
  std::vector<int> sizes;
  for (const auto& [extent, grows] : parts) {
    const int more = grows ? extra / growing : 0;
    const int reserve = extent.natural - extent.least;
    const int less = flexible > 0 ? missing * reserve / flexible : 0;
    sizes.push_back(extent.natural + more - less);
    if (grows) extra -= more, --growing;
    missing -= less;
    flexible -= reserve;
  }
  return sizes;
}

CRect Inside(const CRect& area, const CBorder& border) {
  return {area.left + border.left, area.top + border.top, area.right - border.right,
          area.bottom - border.bottom};
}

template <class TVisit>
void VisitControls(const CBox& box, const TVisit& visit) {
  if (box.kind == BoxKind::Control) visit(box);
  for (const CBox& part : box.parts) VisitControls(part, visit);
}

}  // namespace

CBox CBox::Wide() const {
  CBox box = *this;
  box.wide = true;
  return box;
}

CBox CBox::Tall() const {
  CBox box = *this;
  box.tall = true;
  return box;
}

CBox CBox::Chars(int count) const {
  CBox box = *this;
  box.chars = count;
  return box;
}

CBox CBox::Lines(int count) const {
  CBox box = *this;
  box.lines = count;
  return box;
}

CBox CBox::Same(int number) const {
  CBox box = *this;
  box.same = number;
  return box;
}

CBox Control(int id) {
  CBox box;
  box.id = id;
  return box;
}

CBox LabelOf(int id) {
  CBox box = Control(id);
  box.label = true;
  return box;
}

CBox Space() {
  return Container(BoxKind::Gap, {});
}

CBox Spring() {
  return Space().Wide();
}

CBox Row(std::vector<CBox> parts) {
  return Container(BoxKind::Row, std::move(parts));
}

CBox Column(std::vector<CBox> parts) {
  return Container(BoxKind::Column, std::move(parts));
}

CBox Flow(std::vector<CBox> parts) {
  return Container(BoxKind::Flow, std::move(parts));
}

CBox Field(int id) {
  return Field(Control(id).Wide());
}

CBox Field(CBox control, std::vector<CBox> more) {
  const CBox label = LabelOf(control.id).Same(kLabels);
  more.insert(more.begin(), {label, std::move(control)});
  return Row(std::move(more));
}

CBox Indent() {
  return Space().Same(kLabels);
}

CBox Buttons(const std::vector<int>& ids) {
  std::vector<CBox> parts{Spring()};
  for (const int id : ids) parts.push_back(Control(id).Same(kButtons));
  return Row(std::move(parts));
}

CBox Group(int id, std::vector<CBox> parts) {
  CBox box = Container(BoxKind::Group, std::move(parts));
  box.id = id;
  return box;
}

CBoxLayout::CBoxLayout(const CBox& root, const IBoxMeasure& measure) : m_root(root), m_measure(measure) {
  VisitControls(root, [this](const CBox& control) {
    if (control.same == 0 || !m_measure.IsShown(control)) return;
    const CSizeRange width = m_measure.Width(control);
    const auto found = std::ranges::find(m_same, control.same, &std::pair<int, CSizeRange>::first);
    if (found == m_same.end())
      m_same.emplace_back(control.same, width);
    else
      found->second = Larger(found->second, width);
  });
}

std::vector<CPlacedBox> CBoxLayout::Place(const CRect& area) const {
  std::vector<CPlacedBox> places;
  Put(m_root, area, places);
  return places;
}

bool CBoxLayout::IsShown(const CBox& box) const {
  if (box.kind == BoxKind::Control) return m_measure.IsShown(box);
  return box.kind == BoxKind::Gap || !Shown(box).empty();
}

CBoxLayout::CLine CBoxLayout::Shown(const CBox& box) const {
  CLine shown;
  for (const CBox& part : box.parts)
    if (IsShown(part)) shown.push_back(&part);
  return shown;
}

int CBoxLayout::Gaps(size_t count) const {
  return count == 0 ? 0 : static_cast<int>(count - 1) * m_measure.Gap();
}

CSizeRange CBoxLayout::SingleWidth(const CBox& box) const {
  const auto found = std::ranges::find(m_same, box.same, &std::pair<int, CSizeRange>::first);
  if (found != m_same.end()) return found->second;
  return box.kind == BoxKind::Control ? m_measure.Width(box) : CSizeRange{};
}

CSizeRange CBoxLayout::WidthOf(const CBox& box) const {
  if (box.kind == BoxKind::Gap || box.kind == BoxKind::Control) return SingleWidth(box);
  const CLine parts = Shown(box);
  CSizeRange sum;
  CSizeRange largest;
  for (const CBox* part : parts) {
    const CSizeRange width = WidthOf(*part);
    sum = Sum(sum, width);
    largest = Larger(largest, width);
  }
  sum = Wider(sum, Gaps(parts.size()));
  switch (box.kind) {
    case BoxKind::Row: return sum;
    case BoxKind::Flow: return {largest.natural, sum.natural};
    case BoxKind::Group: {
      const CBorder frame = m_measure.Frame(box);
      return Wider(largest, frame.left + frame.right);
    }
    default: return largest;
  }
}

// Returns the width of a part of a column.
int CBoxLayout::PartWidth(const CBox& part, int width) const {
  return IsContainer(part) || IsWide(part) ? width : std::min(width, WidthOf(part).natural);
}

CSizeRange CBoxLayout::HeightOf(const CBox& box, int width) const {
  if (box.kind == BoxKind::Gap) return {};
  if (box.kind == BoxKind::Control) return m_measure.Height(box, width);
  if (box.kind == BoxKind::Row) return LineHeight(Shown(box), width);
  CSizeRange sum;
  if (box.kind == BoxKind::Flow) {
    const std::vector<CLine> lines = Lines(box, width);
    for (const CLine& line : lines) sum = Sum(sum, LineHeight(line, width));
    return Wider(sum, Gaps(lines.size()));
  }
  const CBorder frame = box.kind == BoxKind::Group ? m_measure.Frame(box) : CBorder{};
  const CLine parts = Shown(box);
  const int inner = width - frame.left - frame.right;
  for (const CBox* part : parts) sum = Sum(sum, HeightOf(*part, PartWidth(*part, inner)));
  return Wider(sum, Gaps(parts.size()) + frame.top + frame.bottom);
}

std::vector<int> CBoxLayout::LineWidths(const CLine& line, int width) const {
  std::vector<std::pair<CSizeRange, bool>> parts;
  for (const CBox* part : line) parts.emplace_back(WidthOf(*part), IsWide(*part));
  return Divide(parts, width - Gaps(line.size()));
}

CSizeRange CBoxLayout::LineHeight(const CLine& line, int width) const {
  const std::vector<int> widths = LineWidths(line, width);
  CSizeRange largest;
  for (size_t i = 0; i < line.size(); ++i) largest = Larger(largest, HeightOf(*line[i], widths[i]));
  return largest;
}

std::vector<CBoxLayout::CLine> CBoxLayout::Lines(const CBox& flow, int width) const {
  std::vector<CLine> lines;
  int used = 0;
  for (const CBox* part : Shown(flow)) {
    const int needed = WidthOf(*part).natural + m_measure.Gap();
    if (lines.empty() || used + needed - m_measure.Gap() > width) {
      lines.emplace_back();
      used = 0;
    }
    lines.back().push_back(part);
    used += needed;
  }
  return lines;
}

void CBoxLayout::Put(const CBox& box, const CRect& area, std::vector<CPlacedBox>& places) const {
  switch (box.kind) {
    case BoxKind::Gap: return;
    case BoxKind::Control: places.push_back({&box, area}); return;
    case BoxKind::Row: return PutLine(Shown(box), area, places);
    case BoxKind::Flow: {
      CRect line = area;
      for (const CLine& parts : Lines(box, area.right - area.left)) {
        line.bottom = line.top + LineHeight(parts, area.right - area.left).natural;
        PutLine(parts, line, places);
        line.top = line.bottom + m_measure.Gap();
      }
      return;
    }
    case BoxKind::Group:
      places.push_back({&box, area});
      return PutColumn(box, Inside(area, m_measure.Frame(box)), places);
    case BoxKind::Column: return PutColumn(box, area, places);
  }
}

void CBoxLayout::PutLine(const CLine& line, const CRect& area, std::vector<CPlacedBox>& places) const {
  const std::vector<int> widths = LineWidths(line, area.right - area.left);
  const int room = area.bottom - area.top;
  int left = area.left;
  for (size_t i = 0; i < line.size(); ++i) {
    const CBox& part = *line[i];
    const bool fills = IsContainer(part) || IsTall(part);
    const int height = fills ? room : std::min(room, HeightOf(part, widths[i]).natural);
    const int top = area.top + (room - height) / 2;
    Put(part, {left, top, left + widths[i], top + height}, places);
    left += widths[i] + m_measure.Gap();
  }
}

void CBoxLayout::PutColumn(const CBox& column, const CRect& area, std::vector<CPlacedBox>& places) const {
  const CLine shown = Shown(column);
  std::vector<std::pair<CSizeRange, bool>> parts;
  for (const CBox* part : shown)
    parts.emplace_back(HeightOf(*part, PartWidth(*part, area.right - area.left)), IsTall(*part));
  const std::vector<int> heights = Divide(parts, area.bottom - area.top - Gaps(shown.size()));
  int top = area.top;
  for (size_t i = 0; i < shown.size(); ++i) {
    const int width = PartWidth(*shown[i], area.right - area.left);
    Put(*shown[i], {area.left, top, area.left + width, top + heights[i]}, places);
    top += heights[i] + m_measure.Gap();
  }
}

}  // namespace my
