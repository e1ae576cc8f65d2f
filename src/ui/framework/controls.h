// What several dialogs do to their controls.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/message_texts.h"
#include "support/enum_names.h"

namespace my {

// Adds to the list of a combo box.
void FillCombo(HWND combo, const std::vector<std::wstring>& items);

// Fills the list of a combo box with the texts of an enumeration and chooses one.
template <class TEnum>
void FillFromTexts(HWND combo, const IMessageTexts& texts, const CEnumTexts<TEnum>& ids, TEnum chosen) {
  std::vector<std::wstring> items;
  for (size_t i = 0; i < ids.size(); ++i) items.push_back(texts.Text(ids[static_cast<TEnum>(i)]));
  FillCombo(combo, items);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

// The chosen item of a combo box, from 0 on.
int Chosen(HWND combo);

// Whether the characters of a password's edit control are masked, from now on.
void MaskPassword(HWND edit, bool hide);

// Overwrites and empties the control, which keeps its text in memory of its own.
void WipePassword(HWND edit);

}  // namespace my
