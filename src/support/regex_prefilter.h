// Decides for most texts whether a regular expression matches in them, without running the expression. Nearly
// every expression has literal characters that all of its matches contain: a text without ".bak" has no match
// of "\.bak$". The prefilter reads these literals from the expression once. For each text it compares the set
// of characters, as 64 bits, then prefix, suffix and one part. Only texts that pass need the slow search. For
// an expression that the prefilter does not support, every text needs it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace my {

struct CLiteralRuns;

// A text with the properties that all prefilters need, computed once.
class CPrefilterText {
 public:
  explicit CPrefilterText(std::wstring_view text);

  std::wstring_view Text() const { return m_text; }

  // A bit mask of the characters in the text. Some characters share bits, as do upper and lower case.
  uint64_t Characters() const { return m_characters; }

  // Returns whether the text has line ends, at which "^" and "$" may match.
  bool HasLineEnds() const { return m_lineEnds; }

  bool IsAscii() const { return m_ascii; }

 private:
  std::wstring_view m_text;
  uint64_t m_characters = 0;
  bool m_lineEnds = false;
  bool m_ascii = false;
};

class CRegexPrefilter {
 public:
  enum class Verdict { NoMatch, Match, Undecided };

  explicit CRegexPrefilter(std::wstring_view expression);

  // Returns whether the expression matches in the text; UNDECIDED if only a search can tell.
  Verdict Test(const CPrefilterText& text) const;

 private:
  // One of the alternatives of the expression: "a(b|c)" has "ab" and "ac".
  struct CAlternative {
    explicit CAlternative(const CLiteralRuns& runs);
    Verdict Test(const CPrefilterText& text, bool ignoreCase) const;

    uint64_t characters = 0;  // in every match
    std::wstring prefix;      // start of every matching text
    std::wstring suffix;      // end of every matching text
    std::wstring part;        // within every matching text
    bool complete = false;    // whether every text that passes these is a match
  };

  bool m_ignoreCase = false;
  uint64_t m_characters = 0;                 // in every match of any alternative
  std::vector<CAlternative> m_alternatives;  // empty if the expression is not supported
};

}  // namespace my
