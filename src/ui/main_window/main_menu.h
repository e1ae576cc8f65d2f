// What changes in the menus of the main window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/look/tool_images.h"

namespace qlm {

// Enables what may run now. Items that open a menu stay as they are.
void EnableItems(HMENU menu, const std::function<bool(int id)>& isEnabled);

// Puts the recent documents in place of those that a menu shows; does nothing to a menu that shows none.
void ShowRecent(HMENU menu, const std::vector<std::wstring>& paths, const std::wstring& none);

void SetItemText(HMENU menu, int id, const std::wstring& text);

// Puts the pictures of the commands beside them.
void ShowPictures(HMENU menu, const CToolImages& images);

// Shows the first popup of a menu of the resources at a place on the screen; its messages go to the window.
void TrackMenu(HWND window, int menuId, POINT screen);

}  // namespace qlm
