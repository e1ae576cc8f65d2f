// Passwords do not stay behind in memory that nobody uses any more.
#pragma once

#include <string>

namespace my {

// Overwrites the text, its spare room included, and empties it.
void Wipe(std::wstring& text);
void Wipe(std::string& text);

// Wipes a text at the end of a scope, also on a failure.
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
