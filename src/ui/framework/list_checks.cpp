#include "ui/framework/list_checks.h"

#include <algorithm>
#include <utility>

#include "ui/framework/accessibility.h"
#include "ui/framework/check_images.h"

namespace my {

void CListChecks::Attach(HWND list, const IListModel& model, UINT dpi) {
  m_list = list;
  m_model = &model;
  // Tells screen readers that rows have check boxes.
  ListView_SetExtendedListViewStyleEx(list, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
  ListView_SetCallbackMask(list, LVIS_STATEIMAGEMASK);
  UseImages(dpi);
}

void CListChecks::Detach() {
  if (!m_list) return;
  for (size_t row = 0; row < m_remarks.size(); ++row)
    if (!m_remarks[row].empty()) SetSpokenValue(m_list, row, {});
  // The control would destroy the images, which this object owns.
  ListView_SetImageList(m_list, nullptr, LVSIL_STATE);
  m_list = nullptr;
}

void CListChecks::UseImages(UINT dpi) {
  if (!m_list) return;
  CImageList images = CheckImages(m_list, dpi);
  const HIMAGELIST before = ListView_SetImageList(m_list, images.Get(), LVSIL_STATE);
  // The control has images of its own when it gets the style for check boxes or another visual style.
  if (before && before != m_images.Get()) ::ImageList_Destroy(before);
  m_images = std::move(images);
}

void CListChecks::Refresh() {
  if (!m_list) return;
  const size_t count = m_model->RowCount();
  m_remarks.resize(std::max(count, m_remarks.size()));
  for (size_t row = 0; row < m_remarks.size(); ++row) {
    std::wstring remark = row < count ? m_model->CheckRemark(row) : std::wstring();
    if (remark == m_remarks[row]) continue;
    SetSpokenValue(m_list, row, remark);
    m_remarks[row] = std::move(remark);
  }
  m_remarks.resize(count);
}

UINT CListChecks::StateOf(size_t row) const {
  // The control may query rows that were removed from the model since the last refresh.
  const bool exists = m_list && row < m_model->RowCount();
  return INDEXTOSTATEIMAGEMASK(exists ? CheckImageIndex(m_model->Check(row)) : 0U);
}

bool CListChecks::IsToggle(size_t row, const LVITEMW& item) const {
  return m_list && row < m_model->RowCount() && item.stateMask == LVIS_STATEIMAGEMASK &&
         item.state != StateOf(row);
}

}  // namespace my
