#include "ui/main_window/main_menu.h"

#include <algorithm>

#include "command_ids.h"
#include "ui/framework/gdi.h"
#include "ui/framework/local_menu.h"

namespace qlm {
namespace {

bool IsRecent(UINT id) {
  return id >= ID_MRU_FIRST && id <= ID_MRU_LAST;
}

// Returns "&1 path", with each "&" in the path escaped.
std::wstring RecentText(size_t index, const std::wstring& path) {
  std::wstring text = (index < 9 ? L"&" : L"") + std::to_wstring(index + 1) + L" ";
  for (const wchar_t c : path) text.append(c == L'&' ? 2 : 1, c);
  return text;
}

}  // namespace

void EnableItems(HMENU menu, const std::function<bool(int id)>& isEnabled) {
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    const UINT id = ::GetMenuItemID(menu, i);
    if (id == 0 || id == static_cast<UINT>(-1)) continue;
    const UINT state = isEnabled(static_cast<int>(id)) ? MF_ENABLED : MF_GRAYED;
    ::EnableMenuItem(menu, static_cast<UINT>(i), MF_BYPOSITION | state);
  }
}

void ShowRecent(HMENU menu, const std::vector<std::wstring>& paths, const std::wstring& none) {
  int first = -1;
  for (int i = ::GetMenuItemCount(menu) - 1; i >= 0; --i) {
    if (!IsRecent(::GetMenuItemID(menu, i))) continue;
    ::DeleteMenu(menu, static_cast<UINT>(i), MF_BYPOSITION);
    first = i;
  }
  if (first < 0) return;
  const auto insert = [&](size_t index, const std::wstring& text) {
    ::InsertMenuW(menu, static_cast<UINT>(first) + static_cast<UINT>(index), MF_BYPOSITION | MF_STRING,
                  ID_MRU_FIRST + index, text.c_str());
  };
  if (paths.empty()) insert(0, none);
  const size_t count = std::min<size_t>(paths.size(), ID_MRU_LAST - ID_MRU_FIRST + 1);
  for (size_t i = 0; i < count; ++i) insert(i, RecentText(i, paths[i]));
}

void SetItemText(HMENU menu, int id, const std::wstring& text) {
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING;
  item.dwTypeData = const_cast<wchar_t*>(text.c_str());  // not written to
  ::SetMenuItemInfoW(menu, static_cast<UINT>(id), FALSE, &item);
}

void ShowPictures(HMENU menu, CToolImages& images) {
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_BITMAP;
    item.hbmpItem = images.Bitmap(static_cast<int>(::GetMenuItemID(menu, i)));
    if (item.hbmpItem) ::SetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
  }
}

void TrackMenu(HWND window, int menuId, int defaultId, POINT screen) {
  const my::CMenu menu(my::LoadLocalMenu(static_cast<UINT>(menuId)));
  const HMENU popup = ::GetSubMenu(menu.Get(), 0);
  ::SetMenuDefaultItem(popup, static_cast<UINT>(defaultId), FALSE);
  ::TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window, nullptr);
}

}  // namespace qlm
