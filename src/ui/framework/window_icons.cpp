#include "ui/framework/window_icons.h"

#include <utility>

#include "ui/framework/dpi.h"

namespace my {
namespace {

CIcon LoadIconOf(int iconId, int metric, UINT dpi) {
  const int size = SystemMetric(metric, dpi);
  return CIcon(static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(iconId),
                                               IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

}  // namespace

void CWindowIcons::Use(HWND window, int iconId, UINT dpi) {
  CIcon small = LoadIconOf(iconId, SM_CXSMICON, dpi);
  CIcon large = LoadIconOf(iconId, SM_CXICON, dpi);
  ::SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  ::SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large.Get()));
  m_small = std::move(small);  // until here the window uses the old ones
  m_large = std::move(large);
}

}  // namespace my
