// Decides for most texts without running a regular expression whether the expression is found in them.
//
// Nearly every expression holds literal characters that all of its matches contain: a text without ".bak" has
// no match of "\.bak$". The prefilter reads these literals from the expression once. For each text it
// compares the set of characters, as 64 bits, then prefix, suffix and one part. Only texts that pass need a
// search, which is slow. A prefilter that does not understand an expression leaves every text to the search.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace my {

struct CLiteralRuns;

// A text with what all prefilters need to know of it, found once.
class CPrefilterText {
 public:
  explicit CPrefilterText(std::wstring_view text);

  std::wstring_view Text() const { return m_text; }

  // A bit for every character that occurs; some share bits, as do the cases of a letter.
  uint64_t Characters() const { return m_characters; }

  // Whether "^" and "$" may match inside the text, at a character that expressions take for a line end.
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
  enum class Verdict { NO_MATCH, MATCH, UNDECIDED };

  explicit CRegexPrefilter(std::wstring_view expression);

  // Whether the expression is found in the text. UNDECIDED: only a search can tell.
  Verdict Test(const CPrefilterText& text) const;

 private:
  // One of the alternatives of the expression: "a(b|c)" has "ab" and "ac".
  struct CAlternative {
    explicit CAlternative(const CLiteralRuns& runs);
    Verdict Test(const CPrefilterText& text, bool ignoreCase) const;

    uint64_t characters = 0;  // that every match contains
    std::wstring prefix;      // that a matching text starts with
    std::wstring suffix;      // that a matching text ends with
    std::wstring part;        // that a matching text contains
    bool complete = false;    // whether a text that passes these is a match
  };

  bool m_ignoreCase = false;
  uint64_t m_characters = 0;                 // that every match of any alternative contains
  std::vector<CAlternative> m_alternatives;  // empty if the expression is not understood
};

}  // namespace my
