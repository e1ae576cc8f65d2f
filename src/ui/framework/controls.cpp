#include "ui/framework/controls.h"

#include "platform/message_texts.h"

namespace my {

void FillCombo(HWND combo, const std::vector<std::wstring>& items) {
  for (const std::wstring& item : items) {
    ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
}

void FillFromTexts(HWND combo, const IMessageTexts& texts, uint32_t firstText, int count, int chosen) {
  std::vector<std::wstring> items;
  for (int i = 0; i < count; ++i) items.push_back(texts.Text(firstText + static_cast<uint32_t>(i)));
  FillCombo(combo, items);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

int Chosen(HWND combo) {
  return static_cast<int>(::SendMessageW(combo, CB_GETCURSEL, 0, 0));
}

void MaskPassword(HWND edit, bool hide) {
  constexpr wchar_t kMask = L'\u25CF';
  ::SendMessageW(edit, EM_SETPASSWORDCHAR, hide ? kMask : 0, 0);
  ::InvalidateRect(edit, nullptr, TRUE);
}

void WipePassword(HWND edit) {
  const std::wstring blanks(static_cast<size_t>(::GetWindowTextLengthW(edit)), L' ');
  ::SetWindowTextW(edit, blanks.c_str());
  ::SetWindowTextW(edit, L"");
  ::SendMessageW(edit, EM_EMPTYUNDOBUFFER, 0, 0);
}

}  // namespace my
