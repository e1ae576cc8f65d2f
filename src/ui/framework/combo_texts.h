#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace my {

// Saves text and selection of the editable combo boxes in a window, and restores them when destroyed. Needed
// because an editable combo box completes its text from its list when its width or font changes.
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
