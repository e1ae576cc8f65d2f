#include "support/regex_prefilter.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "support/strings.h"

namespace my {
namespace {

// Upper and lower case of a letter share a bit, so the set also serves expressions that ignore case.
constexpr uint64_t CharacterBit(wchar_t c) {
  return uint64_t{1} << ((static_cast<uint32_t>(c) & 31) | (static_cast<uint32_t>(c) & 64) >> 1);
}

uint64_t CharacterBits(std::wstring_view text) {
  uint64_t bits = 0;
  for (const wchar_t c : text) bits |= CharacterBit(c);
  return bits;
}

constexpr bool IsLineEnd(wchar_t c) {
  return c == L'\n' || c == L'\r' || c == L'\f' || c == 0x85 || c == 0x2028 || c == 0x2029;
}

constexpr uint64_t kLineEndBits = CharacterBit(L'\n') | CharacterBit(L'\r') | CharacterBit(L'\f') |
                                  CharacterBit(0x85) | CharacterBit(0x2028) | CharacterBit(0x2029);

constexpr size_t kNone = std::wstring_view::npos;

size_t SkipAtom(std::wstring_view text, size_t at);

// Skips a character class that starts at "[".
size_t SkipClass(std::wstring_view text, size_t at) {
  ++at;
  if (text.substr(at, 1) == L"^") ++at;
  if (text.substr(at, 1) == L"]") return kNone;
  while (at < text.size() && text[at] != L'[') {
    if (text[at] == L']') return at + 1;
    at += text[at] == L'\\' ? 2 : 1;
  }
  return kNone;
}

// Skips a group that starts at "(". Groups with special syntax, such as a look-ahead, are not supported.
size_t SkipGroup(std::wstring_view text, size_t at) {
  ++at;
  const std::wstring_view kind = text.substr(at, 2);
  if (kind.starts_with(L'*') || (kind.starts_with(L'?') && kind != L"?:")) return kNone;
  while (at < text.size()) {
    if (text[at] == L')') return at + 1;
    at = SkipAtom(text, at);
  }
  return kNone;
}

size_t SkipEscape(std::wstring_view text, size_t at) {
  const std::wstring_view escape = text.substr(at, 2);
  const bool quotes = escape == L"\\Q" || escape == L"\\E";  // the text between them is literal
  return escape.size() == 2 && !quotes ? at + 2 : kNone;
}

// Returns the position after the character, escape, class or group at `at`; kNone if it is not supported.
size_t SkipAtom(std::wstring_view text, size_t at) {
  switch (text[at]) {
    case L'\\': return SkipEscape(text, at);
    case L'[': return SkipClass(text, at);
    case L'(': return SkipGroup(text, at);
    default: return at + 1;
  }
}

bool IsRepeat(wchar_t c) {
  return c == L'*' || c == L'+' || c == L'?' || c == L'{';
}

// Splits at each "|" outside of groups. Returns nothing if a part is not supported.
std::vector<std::wstring_view> SplitAlternatives(std::wstring_view text) {
  std::vector<std::wstring_view> parts;
  size_t start = 0;
  for (size_t at = 0; at != text.size(); at = SkipAtom(text, at)) {
    if (at > text.size()) return {};
    if (text[at] != L'|') continue;
    parts.push_back(text.substr(start, at - start));
    start = at + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}

struct CSpan {
  size_t begin = kNone;
  size_t end = kNone;
};

// Returns the first group that occurs exactly once in every match.
CSpan FindGroup(std::wstring_view text) {
  for (size_t at = 0; at < text.size();) {
    const size_t next = SkipAtom(text, at);
    const bool repeated = next < text.size() && IsRepeat(text[next]);
    if (text[at] == L'(' && !repeated) return {at, next};
    at = next;
  }
  return {};
}

// Adds equivalent expressions without groups: "abd" and "acd" for "a(b|c)d". Returns false if something is
// not supported or there are too many.
bool SpellOut(std::wstring_view expression, std::vector<std::wstring>& ways) {
  constexpr size_t kMostWays = 64;
  const std::vector<std::wstring_view> parts = SplitAlternatives(expression);
  for (const std::wstring_view part : parts) {
    const CSpan group = FindGroup(part);
    if (group.begin == kNone) {
      if (ways.size() == kMostWays) return false;
      ways.emplace_back(part);
      continue;
    }
    std::wstring_view inner = part.substr(group.begin + 1, group.end - group.begin - 2);
    if (inner.starts_with(L"?:")) inner.remove_prefix(2);
    for (const std::wstring_view alternative : SplitAlternatives(inner)) {
      std::wstring way(part.substr(0, group.begin));
      way.append(alternative).append(part.substr(group.end));
      if (!SpellOut(way, ways)) return false;
    }
  }
  return !parts.empty();
}

// Consecutive literal characters that every match contains.
struct CRun {
  std::wstring text;
  bool atStart = false;  // preceded by a leading "^"
  bool atEnd = false;    // followed by a final "$"
};

}  // namespace

struct CLiteralRuns {
  std::vector<CRun> runs;
  bool others = false;  // the expression requires more than the runs
};

namespace {

// Reads the literals of an expression without alternatives.
class CExpressionReader {
 public:
  explicit CExpressionReader(std::wstring_view expression) : m_text(expression) {}

  // Returns false if something is not supported.
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

  const CLiteralRuns& Runs() const { return m_runs; }

 private:
  wchar_t Peek() const { return m_at < m_text.size() ? m_text[m_at] : L'\0'; }

  void EndRun() {
    if (!m_run.text.empty()) m_runs.runs.push_back(m_run);
    m_run = {};
  }

  bool ReadAtom() {
    const size_t begin = m_at;
    m_at = SkipAtom(m_text, begin);
    if (m_at == kNone) return false;
    const wchar_t c = m_text[begin];
    if (c == L'.' || c == L'(' || c == L'[') return EndOther();
    if (c == L'$') return ReadEnd();
    if (c == L'\\') return ReadEscape(m_text[begin + 1]);
    constexpr std::wstring_view kMisplaced(L"|^*+?{})]\0", 10);
    return kMisplaced.find(c) == kNone && ReadLiteral(c);
  }

  bool ReadEnd() {
    if (m_at != m_text.size()) return false;
    m_run.atEnd = true;
    if (m_run.text.empty()) m_runs.others = true;
    EndRun();
    return true;
  }

  bool ReadEscape(wchar_t c) {
    constexpr std::wstring_view kClassesAndBorders = L"dDwWsSbB";
    if (kClassesAndBorders.find(c) != kNone) return EndOther();
    constexpr std::wstring_view kPlain = L"\\.*+?[](){}^$|-_/ #&,;=!@%~:\"";
    return kPlain.find(c) != kNone && ReadLiteral(c);
  }

  bool ReadLiteral(wchar_t c) {
    const wchar_t next = Peek();
    if (IsRepeat(next) && next != L'+') return EndOther();
    m_run.text += c;
    return next != L'+' || EndOther();
  }

  // Ends the run at something that is not a literal, and skips its repeat count.
  bool EndOther() {
    m_runs.others = true;
    EndRun();
    if (!IsRepeat(Peek())) return true;
    if (Peek() == L'{') m_at = m_text.find(L'}', m_at);
    if (m_at == kNone) return false;
    ++m_at;
    if (Peek() == L'?' || Peek() == L'+') ++m_at;
    return true;
  }

  std::wstring_view m_text;
  size_t m_at = 0;
  CRun m_run;
  CLiteralRuns m_runs;
};

constexpr std::wstring_view kIgnoreCase = L"(?i)";

// Expressions fold the case of all letters, the prefilter only that of ASCII letters.
bool IsAscii(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; });
}

bool StartsWith(std::wstring_view text, std::wstring_view part, bool ignoreCase) {
  if (!ignoreCase) return text.starts_with(part);
  const auto equal = [](wchar_t a, wchar_t b) { return LowerAscii(a) == LowerAscii(b); };
  return text.size() >= part.size() && std::equal(part.begin(), part.end(), text.begin(), equal);
}

bool EndsWith(std::wstring_view text, std::wstring_view part, bool ignoreCase) {
  return text.size() >= part.size() && StartsWith(text.substr(text.size() - part.size()), part, ignoreCase);
}

bool Contains(std::wstring_view text, std::wstring_view part, bool ignoreCase) {
  if (!ignoreCase) return text.find(part) != kNone;
  for (; text.size() >= part.size(); text.remove_prefix(1)) {
    if (StartsWith(text, part, true)) return true;
  }
  return false;
}

}  // namespace

CPrefilterText::CPrefilterText(std::wstring_view text) : m_text(text) {
  wchar_t codes = 0;
  for (const wchar_t c : text) {
    m_characters |= CharacterBit(c);
    codes |= c;
  }
  m_ascii = codes < 0x80;
  m_lineEnds = (m_characters & kLineEndBits) != 0 && std::any_of(text.begin(), text.end(), IsLineEnd);
}

CRegexPrefilter::CAlternative::CAlternative(const CLiteralRuns& runs) {
  for (const CRun& run : runs.runs) {
    characters |= CharacterBits(run.text);
    if (run.atStart) prefix = run.text;
    if (run.atEnd) suffix = run.text;
    if (!run.atStart && !run.atEnd && run.text.size() > part.size()) part = run.text;
  }
  // A run with both anchors must equal the whole text; prefix and suffix alone cannot express that.
  const bool both = !prefix.empty() && !suffix.empty();
  complete = runs.runs.size() == 1 && !runs.others && !both;
}

CRegexPrefilter::Verdict CRegexPrefilter::CAlternative::Test(const CPrefilterText& text,
                                                             bool ignoreCase) const {
  if ((characters & ~text.Characters()) != 0) return Verdict::NoMatch;
  const std::wstring_view all = text.Text();
  if (!EndsWith(all, suffix, ignoreCase) || !StartsWith(all, prefix, ignoreCase)) return Verdict::NoMatch;
  if (!Contains(all, part, ignoreCase)) return Verdict::NoMatch;
  return complete ? Verdict::Match : Verdict::Undecided;
}

CRegexPrefilter::CRegexPrefilter(std::wstring_view expression)
    : m_ignoreCase(expression.starts_with(kIgnoreCase)) {
  if (m_ignoreCase) {
    expression.remove_prefix(kIgnoreCase.size());
    if (!IsAscii(expression)) return;
  }
  std::vector<std::wstring> texts;
  if (!SpellOut(expression, texts)) return;
  std::vector<CAlternative> alternatives;
  uint64_t common = ~uint64_t{0};
  for (const std::wstring& text : texts) {
    CExpressionReader reader(text);
    if (!reader.Read()) return;
    alternatives.emplace_back(reader.Runs());
    common &= alternatives.back().characters;
  }
  m_characters = common;
  m_alternatives = std::move(alternatives);
}

CRegexPrefilter::Verdict CRegexPrefilter::Test(const CPrefilterText& text) const {
  if (m_alternatives.empty() || (m_ignoreCase && !text.IsAscii())) return Verdict::Undecided;
  if ((m_characters & ~text.Characters()) != 0) return Verdict::NoMatch;
  if (text.HasLineEnds()) return Verdict::Undecided;
  Verdict verdict = Verdict::NoMatch;
  for (const CAlternative& alternative : m_alternatives) {
    const Verdict one = alternative.Test(text, m_ignoreCase);
    if (one == Verdict::Match) return one;
    if (one != Verdict::NoMatch) verdict = one;
  }
  return verdict;
}

}  // namespace my
