#include "ui/framework/list_columns.h"

#include <algorithm>

#include "ui/framework/dpi.h"
#include "ui/framework/flag.h"

namespace my {
namespace {

int Format(ListAlign align) {
  switch (align) {
    case ListAlign::Right: return LVCFMT_RIGHT;
    case ListAlign::Centre: return LVCFMT_CENTER;
    case ListAlign::Left: break;
  }
  return LVCFMT_LEFT;
}

// Posted after the user has changed the last column: its width must not be set while the header changes it.
UINT FillMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"Quillmoor.FillColumns");
  return message;
}

}  // namespace

void CListColumns::Create(HWND list, const IListModel& model, UINT dpi) {
  m_list = list;
  m_model = &model;
  m_dpi = dpi;
  for (size_t i = 0; i < model.ColumnCount(); ++i) {
    CListColumn source = model.Column(i);
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH;
    column.fmt = Format(source.align);
    column.cx = Scale(source.width, dpi);
    column.pszText = source.title.data();
    ListView_InsertColumn(list, static_cast<int>(i), &column);
  }
  SetWidths({});
}

void CListColumns::Reset() {
  {
    const CFlag setting(m_isSetting);
    while (ListView_DeleteColumn(m_list, 0)) {
    }
  }
  Create(m_list, *m_model, m_dpi);
}

void CListColumns::SetWidths(const std::vector<int32_t>& stored) {
  constexpr int32_t kDefault = -1;
  std::vector<int32_t> all(m_model->ColumnCount(), kDefault);
  auto next = stored.begin();
  for (size_t i = 0; i < all.size() && next != stored.end(); ++i) {
    if (IsStored(i)) all[i] = *next++;
  }
  SetAllWidths(all);
}

std::vector<int32_t> CListColumns::Widths() const {
  const std::vector<int32_t> all = AllWidths();
  std::vector<int32_t> stored;
  for (size_t i = 0; i < all.size(); ++i) {
    if (IsStored(i)) stored.push_back(all[i]);
  }
  return stored;
}

void CListColumns::SetAllWidths(const std::vector<int32_t>& widths) {
  const CFlag setting(m_isSetting);
  for (int i = 0; i <= Last(); ++i) {
    const auto index = static_cast<size_t>(i);
    const int width = widths[index] >= 0 ? widths[index] : m_model->Column(index).width;
    if (i == Last()) m_lastWidth = width;
    SetWidth(i, Scale(width, m_dpi));
  }
  Fill();
}

std::vector<int32_t> CListColumns::AllWidths() const {
  std::vector<int32_t> widths;
  for (int i = 0; i < Last(); ++i) widths.push_back(Unscale(WidthOf(i), m_dpi));
  if (Last() >= 0) widths.push_back(m_lastWidth);
  return widths;
}

void CListColumns::SetDpi(UINT dpi) {
  const std::vector<int32_t> widths = AllWidths();
  m_dpi = dpi;
  SetAllWidths(widths);
}

void CListColumns::Fill() {
  if (!m_model || Last() < 0) return;
  const CFlag setting(m_isSetting);
  RECT client{};
  ::GetClientRect(m_list, &client);
  int room = client.right;
  for (int i = 0; i < Last(); ++i) room -= WidthOf(i);
  const int width = std::max(room, Scale(m_lastWidth, m_dpi));
  SetWidth(Last(), width);
}

// Setting a width is slow, even the one that the column has.
void CListColumns::SetWidth(int column, int width) const {
  if (width != WidthOf(column)) ListView_SetColumnWidth(m_list, column, width);
}

void CListColumns::OnHeader(const NMHDR& notification) {
  if (m_isSetting) return;
  const auto& change = reinterpret_cast<const NMHEADERW&>(notification);
  switch (notification.code) {
    case HDN_ITEMCHANGEDW:
      if (!change.pitem || (change.pitem->mask & HDI_WIDTH) == 0) return;
      if (change.iItem != Last()) return Fill();
      m_lastWidth = Unscale(WidthOf(Last()), m_dpi);
      return;
    case HDN_ENDTRACKW:
    case HDN_DIVIDERDBLCLICKW: ::PostMessageW(m_list, FillMessage(), 0, 0); return;
    default: return;
  }
}

bool CListColumns::OnMessage(UINT message) {
  if (message != FillMessage()) return false;
  Fill();
  return true;
}

int CListColumns::WidthOf(int column) const {
  return ListView_GetColumnWidth(m_list, column);
}

}  // namespace my
