// Updates of the menus of the main window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/look/tool_images.h"

namespace qlm {

// Enables the items that may run now. Items with a submenu are unchanged.
void EnableItems(HMENU menu, const std::function<bool(int id)>& isEnabled);

// Replaces the recent documents shown in a menu; does nothing if it shows none.
void ShowRecent(HMENU menu, const std::vector<std::wstring>& paths, const std::wstring& none);

void SetItemText(HMENU menu, int id, const std::wstring& text);

// Sets the images of the commands.
void ShowPictures(HMENU menu, CToolImages& images);

// Shows the first popup of a menu resource at a position on the screen; `window` receives its commands.
// `defaultId` is the command of a double click.
void TrackMenu(HWND window, int menuId, int defaultId, POINT screen);

}  // namespace qlm
