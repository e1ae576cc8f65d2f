// Functions on controls that several dialogs use.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/message_texts.h"
#include "support/enum_names.h"

namespace my {

int HeightOf(HWND window);  // pixels
std::wstring ClassOf(HWND window);
std::wstring TextOf(HWND window);
bool IsComboBox(HWND window);

// Returns the size in pixels of the control's text on one line, in its font.
SIZE TextSize(HWND control);

// Appends the items to the list of a combo box.
void FillCombo(HWND combo, const std::vector<std::wstring>& items);

// Appends the texts of an enumeration to the list of a combo box and selects `chosen`.
template <class TEnum>
void FillFromTexts(HWND combo, const IMessageTexts& texts, const CEnumTexts<TEnum>& ids, TEnum chosen) {
  std::vector<std::wstring> items;
  for (size_t i = 0; i < ids.size(); ++i) items.push_back(texts.Text(ids[static_cast<TEnum>(i)]));
  FillCombo(combo, items);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

// Returns the index of the selected item; -1 for none.
int Chosen(HWND combo);

// Shows or masks the characters of a password edit control.
void MaskPassword(HWND edit, bool hide);

// Overwrites the text of the control before emptying it: the control keeps the text in its own memory.
void WipePassword(HWND edit);

}  // namespace my
