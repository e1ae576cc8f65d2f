// What the pictures of the windows share.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "gui/gui_app.h"

namespace shots {

// Where the pictures go, and which; all of them for no names.
void Begin(std::wstring folder, std::vector<std::wstring> names);
bool Wanted(const std::wstring& name);

void Save(HBITMAP bitmap, const std::wstring& name);
void Shoot(HWND window, const std::wstring& name);  // as it stands on the screen

void ShootMenu(HWND window, wchar_t key, const std::wstring& name);  // with the menu of that key open

// Also as if it came to screens of 150 and 200 %.
void ShootAtAllDpis(HWND window, const std::wstring& name);

// The program with a document as people have it, with sources that exist. Writes them on the drives D and E,
// which are empty at the start of the process.
class CSampleApp : public test::CGuiApp {
 public:
  CSampleApp();

 private:
  void FillDisk();
};

// The design of the main view: brushes, pictures, high contrast, and the characters with their names.
void ShootDesign();

}  // namespace shots
