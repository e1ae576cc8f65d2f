// Overwrites passwords in memory that is no longer used.
#pragma once

#include <string>

namespace my {

// Overwrites the text, including its unused capacity, and empties it.
void Wipe(std::wstring& text);
void Wipe(std::string& text);

// Wipes a text at the end of a scope, also after an exception.
template <class TString>
class CWipeAtEnd {
 public:
  explicit CWipeAtEnd(TString& text) : m_text(text) {}
  CWipeAtEnd(const CWipeAtEnd&) = delete;
  CWipeAtEnd& operator=(const CWipeAtEnd&) = delete;
  ~CWipeAtEnd() { Wipe(m_text); }

 private:
  TString& m_text;
};

}  // namespace my
