#include "ui/framework/controls.h"

#include <commctrl.h>

#include <iterator>

#include "ui/framework/gdi.h"

namespace my {

int HeightOf(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  return bounds.bottom - bounds.top;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[32]{};
  ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return name;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<size_t>(::GetWindowTextLengthW(window)), L'\0');
  text.resize(static_cast<size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

bool IsComboBox(HWND window) {
  return ClassOf(window) == WC_COMBOBOXW;
}

SIZE TextSize(HWND control) {
  const std::wstring text = TextOf(control);
  const CMemoryDc dc(::CreateCompatibleDC(nullptr));
  const CSelect select(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0)));
  SIZE size{};
  ::GetTextExtentPoint32W(dc.Get(), text.c_str(), static_cast<int>(text.size()), &size);
  return size;
}

void FillCombo(HWND combo, const std::vector<std::wstring>& items) {
  for (const std::wstring& item : items) {
    ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
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
