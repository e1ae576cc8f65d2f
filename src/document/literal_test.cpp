#include "document/literal_test.h"

#include <vector>

namespace qlm {
namespace {

constexpr uint64_t CharacterBit(wchar_t c) { return uint64_t{1} << (static_cast<uint32_t>(c) & 63); }

uint64_t CharacterBits(std::wstring_view text) {
  uint64_t bits = 0;
  for (const wchar_t c : text) bits |= CharacterBit(c);
  return bits;
}

constexpr bool IsLineEnd(wchar_t c) {
  return c == L'\n' || c == L'\r' || c == L'\f' || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// A stretch of literal characters, one after the other, that every match contains.
struct CRun {
  std::wstring text;
  bool atStart = false;  // right behind a leading "^"
  bool atEnd = false;    // right before a closing "$"
};

// Reads an expression of the Perl kind as far as it consists of plain things.
class CExpressionReader {
 public:
  explicit CExpressionReader(std::wstring_view expression) : m_text(expression) {}

  // False when there is something in it that the reader does not understand.
  bool Read() {
    if (Peek() == L'^') {
      ++m_at;
      m_run.atStart = true;
    }
    while (m_at < m_text.size()) {
      if (!ReadAtom()) return false;
    }
    EndRun();
    return true;
  }

  const std::vector<CRun>& Runs() const { return m_runs; }

  // Whether the expression was one run and nothing else.
  bool OneRun() const { return m_runs.size() == 1 && !m_others; }

 private:
  wchar_t Peek() const { return m_at < m_text.size() ? m_text[m_at] : L'\0'; }

  void EndRun() {
    if (!m_run.text.empty()) m_runs.push_back(m_run);
    m_run = {};
  }

  bool ReadAtom() {
    const wchar_t c = m_text[m_at++];
    switch (c) {
      case L'.': return EndOther();
      case L'(': return SkipGroup() && EndOther();
      case L'[': return SkipClass() && EndOther();
      case L'$': return ReadEnd();
      case L'\\': return ReadEscape();
      case L'|': case L'^': case L'*': case L'+': case L'?': case L'{': case L'}': case L')': case L']':
      case L'\0': return false;
      default: return ReadLiteral(c);
    }
  }

  bool ReadEnd() {
    if (m_at != m_text.size()) return false;
    m_run.atEnd = true;
    if (m_run.text.empty()) m_others = true;
    EndRun();
    return true;
  }

  bool ReadEscape() {
    const wchar_t c = Peek();
    ++m_at;
    switch (c) {
      case L'd': case L'D': case L'w': case L'W': case L's': case L'S': return EndOther();
      default: break;
    }
    constexpr std::wstring_view kPlain = L"\\.*+?[](){}^$|-_/ #&,;=!@%~:\"";
    return kPlain.find(c) != kPlain.npos && ReadLiteral(c);
  }

  bool ReadLiteral(wchar_t c) {
    const wchar_t next = Peek();
    const bool optional = next == L'*' || next == L'?' || next == L'{';
    if (optional) return EndOther();
    m_run.text += c;
    return next != L'+' || EndOther();
  }

  // Ends the run at something that is no literal, and passes over what says how often it may occur.
  bool EndOther() {
    m_others = true;
    EndRun();
    const wchar_t c = Peek();
    if (c == L'{') {
      const size_t close = m_text.find(L'}', m_at);
      if (close == m_text.npos) return false;
      m_at = close;
    } else if (c != L'*' && c != L'+' && c != L'?') {
      return true;
    }
    ++m_at;
    if (Peek() == L'?' || Peek() == L'+') ++m_at;
    return true;
  }

  // Behind "(": passes over a plain group; a group with a meaning of its own is not understood.
  bool SkipGroup() {
    if (Peek() == L'*') return false;
    if (Peek() == L'?') {
      ++m_at;
      if (Peek() != L':') return false;
    }
    while (m_at < m_text.size()) {
      const wchar_t c = m_text[m_at++];
      if (c == L')') return true;
      if (c == L'(' && !SkipGroup()) return false;
      if (c == L'[' && !SkipClass()) return false;
      if (c == L'\\' && (Peek() == L'Q' || Peek() == L'E')) return false;
      if (c == L'\\') ++m_at;
    }
    return false;
  }

  // Behind "[": passes over a plain character class.
  bool SkipClass() {
    if (Peek() == L'^') ++m_at;
    if (Peek() == L']') return false;
    while (m_at < m_text.size()) {
      const wchar_t c = m_text[m_at++];
      if (c == L']') return true;
      if (c == L'[') return false;
      if (c == L'\\') ++m_at;
    }
    return false;
  }

  std::wstring_view m_text;
  size_t m_at = 0;
  CRun m_run;
  std::vector<CRun> m_runs;
  bool m_others = false;
};

}  // namespace

CTestedPath::CTestedPath(std::wstring_view path) : m_path(path) {
  for (const wchar_t c : path) {
    m_characters |= CharacterBit(c);
    m_lineEnds |= IsLineEnd(c);
  }
}

CLiteralTest::CLiteralTest(std::wstring_view expression) {
  CExpressionReader reader(expression);
  if (!reader.Read()) return;
  for (const CRun& run : reader.Runs()) {
    m_characters |= CharacterBits(run.text);
    if (run.atStart) m_prefix = run.text;
    if (run.atEnd) m_suffix = run.text;
    if (!run.atStart && !run.atEnd && run.text.size() > m_part.size()) m_part = run.text;
  }
  // A run with both anchors asks for the whole path, which prefix and suffix alone do not tell.
  const bool both = !m_prefix.empty() && !m_suffix.empty();
  m_complete = reader.OneRun() && !both;
}

CLiteralTest::Answer CLiteralTest::Ask(const CTestedPath& path) const {
  if ((m_characters & ~path.Characters()) != 0) return Answer::NO;
  if (path.HasLineEnds()) return Answer::RUN_EXPRESSION;
  if (!path.Text().ends_with(m_suffix) || !path.Text().starts_with(m_prefix)) return Answer::NO;
  if (!m_part.empty() && path.Text().find(m_part) == std::wstring_view::npos) return Answer::NO;
  return m_complete ? Answer::YES : Answer::RUN_EXPRESSION;
}

}  // namespace qlm
