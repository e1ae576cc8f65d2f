#pragma once

#include "platform/win32/ui_language.h"

namespace test {

// Replaces the language of texts and windows while it exists.
class CTestLanguage {
 public:
  explicit CTestLanguage(my::UiLanguage language) { my::SetUiLanguage(language); }
  CTestLanguage(const CTestLanguage&) = delete;
  CTestLanguage& operator=(const CTestLanguage&) = delete;
  ~CTestLanguage() { my::SetUiLanguage(m_before); }

 private:
  my::UiLanguage m_before = my::CurrentUiLanguage();
};

}  // namespace test
