// Functions on controls that several dialogs use.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace my {

class IMessageTexts;

// Appends the items to the list of a combo box.
void FillCombo(HWND combo, const std::vector<std::wstring>& items);

// Appends `count` texts with consecutive ids to a combo box and selects item `chosen`.
void FillFromTexts(HWND combo, const IMessageTexts& texts, uint32_t firstText, int count, int chosen);

// Returns the index of the selected item; -1 for none.
int Chosen(HWND combo);

// Shows or masks the characters of a password edit control.
void MaskPassword(HWND edit, bool hide);

// Overwrites the text of the control before emptying it: the control keeps the text in its own memory.
void WipePassword(HWND edit);

}  // namespace my
