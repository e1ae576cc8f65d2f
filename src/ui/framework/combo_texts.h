#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace my {

// Keeps text and selection of a window's editable combo boxes as they are now, as long as it lives. An
// editable combo box whose width or font changes completes its text with an entry of its list that begins
// with it.
class CComboTexts {
 public:
  explicit CComboTexts(HWND window);
  CComboTexts(const CComboTexts&) = delete;
  CComboTexts& operator=(const CComboTexts&) = delete;
  ~CComboTexts();

 private:
  struct CText {
    HWND combo;
    HWND edit;
    std::wstring text;
    DWORD start = 0;  // of the selection
    DWORD end = 0;
  };

  std::vector<CText> m_texts;
};

}  // namespace my
