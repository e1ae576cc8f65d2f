// What several dialogs do to their controls.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace my {

class IMessageTexts;

// Adds to the list of a combo box.
void FillCombo(HWND combo, const std::vector<std::wstring>& items);

// Fills the list of a combo box with `count` texts of consecutive ids.
void FillFromTexts(HWND combo, const IMessageTexts& texts, uint32_t firstText, int count, int chosen);

// The chosen item of a combo box, from 0 on.
int Chosen(HWND combo);

// Whether the characters of a password's edit control are masked, from now on.
void MaskPassword(HWND edit, bool hide);

// Overwrites and empties the control, which keeps its text in memory of its own.
void WipePassword(HWND edit);

}  // namespace my
