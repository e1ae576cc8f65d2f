// Regular expressions of the Perl kind over wide strings: a thin cover that keeps the library's headers,
// which are slow to compile, out of every other file.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace my {

// The place where a search leaves what it found. Reusing one spares an allocation a search.
// Its groups point into the text that was searched. Not to be shared between threads.
class CRegexMatch {
 public:
  CRegexMatch();
  ~CRegexMatch();
  CRegexMatch(CRegexMatch&&) noexcept;
  CRegexMatch& operator=(CRegexMatch&&) noexcept;

  // Group 0 is the whole match; a group that took no part is empty.
  std::wstring_view Group(int index) const;

 private:
  friend class CRegex;
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

// A compiled expression; copies share it. Threads may search with one expression at the same time.
class CRegex {
 public:
  // Throws IDS_REGEX_ERROR with a reason, IDS_REGEX_INVALID or IDS_REGEX_TOO_COMPLEX.
  explicit CRegex(std::wstring_view expression);

  // Whether the expression is found anywhere in the text. Throws IDS_REGEX_TOO_COMPLEX if the search grows
  // beyond the library's bounds.
  bool Search(std::wstring_view text, CRegexMatch& match) const;
  bool Found(std::wstring_view text) const;

  // The text with every match replaced by the format, in Perl's format syntax. Throws like Search.
  std::wstring Replace(const std::wstring& text, const std::wstring& format) const;

 private:
  struct Impl;
  std::shared_ptr<const Impl> m_impl;
};

}  // namespace my
