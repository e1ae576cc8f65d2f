// Helpers for the pictures of the windows.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "gui/gui_app.h"

namespace shots {

// Sets the folder for the pictures and the names of those wanted; no names: all.
void Begin(std::wstring folder, std::vector<std::wstring> names);
bool Wanted(const std::wstring& name);

// Returns the text with the names of the samples in the language of the pictures.
std::wstring Sample(std::wstring text);

void Save(HBITMAP bitmap, const std::wstring& name);
void Shoot(HWND window, const std::wstring& name);  // from the screen

void ShootMenu(HWND window, wchar_t key, const std::wstring& name);  // with the menu opened by Alt+key

// Takes the picture at the current DPI, and as if the window moved to screens of 150 and 200 %.
void ShootAtAllDpis(HWND window, const std::wstring& name);

// The program with a realistic document. Writes the sources to the drives D and E, which must be empty at the
// start of the process.
class CSampleApp : public test::CGuiApp {
 public:
  CSampleApp();
  void Restart();  // with the same document
  void WritePhoto(const std::wstring& name);
  void UseArchiver() { app->Settings().archive.sevenZipPath = L"D:\\7-Zip\\7z.exe"; }

 private:
  void FillDisk();
  void FillHistory();  // two weeks, and makes the program read it
  void OpenSample();
};

// Takes the pictures of the main view: brushes, images, high contrast, and the characters with their names.
void ShootDesign();

}  // namespace shots
