// Perl regular expressions over wide strings. Hides the library's headers, which are slow to compile.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace my {

// The result of a search. Reusing one object avoids an allocation per search. Groups refer to the searched
// text. Must not be shared between threads.
class CRegexMatch {
 public:
  CRegexMatch();
  ~CRegexMatch();
  CRegexMatch(CRegexMatch&&) noexcept;
  CRegexMatch& operator=(CRegexMatch&&) noexcept;

  // Group 0 is the whole match; a group that did not participate is empty.
  std::wstring_view Group(int index) const;

 private:
  friend class CRegex;
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

// A compiled expression; copies share it. Several threads may search with it at the same time.
class CRegex {
 public:
  // Throws IDS_REGEX_ERROR with a reason, IDS_REGEX_INVALID or IDS_REGEX_TOO_COMPLEX.
  explicit CRegex(std::wstring_view expression);

  // Returns whether the expression matches anywhere in the text. Throws IDS_REGEX_TOO_COMPLEX if the search
  // exceeds the library's limits.
  bool Search(std::wstring_view text, CRegexMatch& match) const;
  bool Found(std::wstring_view text) const;

  // Returns the text with every match replaced by `format`, in Perl's format syntax. Throws like Search.
  std::wstring Replace(const std::wstring& text, const std::wstring& format) const;

 private:
  struct Impl;
  std::shared_ptr<const Impl> m_impl;
};

}  // namespace my
