// A quick look at a path before a regular expression is run over it. Most lines of a filter hold letters that
// every match must contain; most paths lack them, and then the expression, which is slow, need not run.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qlm {

struct CLiteralRuns;

// A path as the tests look at it.
class CTestedPath {
 public:
  explicit CTestedPath(std::wstring_view path);

  std::wstring_view Text() const { return m_path; }

  // A bit for every character that occurs; some share bits, as do the cases of a letter.
  uint64_t Characters() const { return m_characters; }

  // Whether "^" and "$" may match inside the path, at a character that the expressions take for a line end.
  bool HasLineEnds() const { return m_lineEnds; }

  bool IsAscii() const { return m_ascii; }

 private:
  std::wstring_view m_path;
  uint64_t m_characters = 0;
  bool m_lineEnds = false;
  bool m_ascii = false;
};

class CLiteralTest {
 public:
  enum class Answer { NO, YES, RUN_EXPRESSION };

  // Learns what it can from the expression; what it does not understand makes it answer RUN_EXPRESSION.
  explicit CLiteralTest(std::wstring_view expression);

  // Whether the expression is found in the path.
  Answer Ask(const CTestedPath& path) const;

 private:
  // One way to match: "a(b|c)" has the ways "ab" and "ac".
  struct CWay {
    explicit CWay(const CLiteralRuns& runs);
    Answer Ask(const CTestedPath& path, bool ignoreCase) const;

    uint64_t characters = 0;  // that every match contains
    std::wstring prefix;      // that a matching path starts with
    std::wstring suffix;      // that a matching path ends with
    std::wstring part;        // that a matching path contains
    bool complete = false;    // nothing is asked for beyond these
  };

  bool m_ignoreCase = false;
  uint64_t m_characters = 0;  // that every match contains, whichever way it goes
  std::vector<CWay> m_ways;   // empty when nothing was learned
};

}  // namespace qlm
