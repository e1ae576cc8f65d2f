#include "document/literal_test.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace qlm {
namespace {

constexpr wchar_t Lower(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

// The two cases of a letter share their bit, so that one look serves expressions that ignore case as well.
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

// From "[" on: a plain character class.
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

// From "(" on: a plain group; one with a meaning of its own is not understood.
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
  const bool quotes = escape == L"\\Q" || escape == L"\\E";  // what lies between is no expression
  return escape.size() == 2 && !quotes ? at + 2 : kNone;
}

// The position behind the character, escape, class or group that begins at a position; kNone for what is not
// understood.
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

// The parts between the "|" that stand in no group; none when there is something that is not understood.
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

// The first group that occurs exactly once in every match.
CSpan FindGroup(std::wstring_view text) {
  for (size_t at = 0; at < text.size();) {
    const size_t next = SkipAtom(text, at);
    const bool repeated = next < text.size() && IsRepeat(text[next]);
    if (text[at] == L'(' && !repeated) return {at, next};
    at = next;
  }
  return {};
}

// Adds the expressions without groups that together mean the same: "abd" and "acd" for "a(b|c)d". False when
// there is something that is not understood, or too much of it.
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

// A stretch of literal characters, one after the other, that every match contains.
struct CRun {
  std::wstring text;
  bool atStart = false;  // right behind a leading "^"
  bool atEnd = false;    // right before a closing "$"
};

}  // namespace

struct CLiteralRuns {
  std::vector<CRun> runs;
  bool others = false;  // the expression asks for more than the runs
};

namespace {

// Reads an expression of the Perl kind without alternatives as far as it consists of plain things.
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

  // Ends the run at something that is no literal, and passes over what says how often it may occur.
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

// Beyond ASCII the expressions know cases that are not known here.
bool IsAscii(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; });
}

bool StartsWith(std::wstring_view text, std::wstring_view part, bool ignoreCase) {
  if (!ignoreCase) return text.starts_with(part);
  const auto equal = [](wchar_t a, wchar_t b) { return Lower(a) == Lower(b); };
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

CTestedPath::CTestedPath(std::wstring_view path) : m_path(path) {
  wchar_t codes = 0;
  for (const wchar_t c : path) {
    m_characters |= CharacterBit(c);
    codes |= c;
  }
  m_ascii = codes < 0x80;
  m_lineEnds = (m_characters & kLineEndBits) != 0 && std::any_of(path.begin(), path.end(), IsLineEnd);
}

CLiteralTest::CWay::CWay(const CLiteralRuns& runs) {
  for (const CRun& run : runs.runs) {
    characters |= CharacterBits(run.text);
    if (run.atStart) prefix = run.text;
    if (run.atEnd) suffix = run.text;
    if (!run.atStart && !run.atEnd && run.text.size() > part.size()) part = run.text;
  }
  // A run with both anchors asks for the whole path, which prefix and suffix alone do not tell.
  const bool both = !prefix.empty() && !suffix.empty();
  complete = runs.runs.size() == 1 && !runs.others && !both;
}

CLiteralTest::Answer CLiteralTest::CWay::Ask(const CTestedPath& path, bool ignoreCase) const {
  if ((characters & ~path.Characters()) != 0) return Answer::NO;
  const std::wstring_view text = path.Text();
  if (!EndsWith(text, suffix, ignoreCase) || !StartsWith(text, prefix, ignoreCase)) return Answer::NO;
  if (!Contains(text, part, ignoreCase)) return Answer::NO;
  return complete ? Answer::YES : Answer::RUN_EXPRESSION;
}

CLiteralTest::CLiteralTest(std::wstring_view expression) : m_ignoreCase(expression.starts_with(kIgnoreCase)) {
  if (m_ignoreCase) {
    expression.remove_prefix(kIgnoreCase.size());
    if (!IsAscii(expression)) return;
  }
  std::vector<std::wstring> texts;
  if (!SpellOut(expression, texts)) return;
  std::vector<CWay> ways;
  uint64_t common = ~uint64_t{0};
  for (const std::wstring& text : texts) {
    CExpressionReader reader(text);
    if (!reader.Read()) return;
    ways.emplace_back(reader.Runs());
    common &= ways.back().characters;
  }
  m_characters = common;
  m_ways = std::move(ways);
}

CLiteralTest::Answer CLiteralTest::Ask(const CTestedPath& path) const {
  if (m_ways.empty() || (m_ignoreCase && !path.IsAscii())) return Answer::RUN_EXPRESSION;
  if ((m_characters & ~path.Characters()) != 0) return Answer::NO;
  if (path.HasLineEnds()) return Answer::RUN_EXPRESSION;
  Answer answer = Answer::NO;
  for (const CWay& way : m_ways) {
    const Answer one = way.Ask(path, m_ignoreCase);
    if (one == Answer::YES) return one;
    if (one != Answer::NO) answer = one;
  }
  return answer;
}

}  // namespace qlm
