#include "document/filter.h"

#include <iterator>
#include <random>
#include <sstream>

#include "document/text_file.h"
#include "support/engine_doubles.h"
#include "support/regex_prefilter.h"

namespace {

const test::CRcTexts texts;
const test::CFakeAnsiCodec ansi;

qlm::CFilter Filter(const std::vector<std::wstring>& lines) {
  qlm::CFilter filter;
  filter.Parse(lines, texts);
  return filter;
}

// Returns the index of the line that decides for the path, -1 for none.
int Deciding(const qlm::CFilter& filter, const std::wstring& path) {
  my::CRegexMatch scratch;
  const qlm::CFilterItem* item = filter.Find(path, scratch);
  return item ? static_cast<int>(item->lineIndex) : -1;
}

TEST(Filter, line_is_parsed_into_its_expression) {
  // A line, a path that matches, and one that does not.
  const std::wstring table[][3] = {
      {L"- \\.tmp$", L"a\\b.tmp", L"a.tmpx"}, {L"+ ^docs/", L"docs\\", L"a\\docs\\"},
      {L"+ ^a//b", L"a\\\\b", L"a\\b"},       {L"+abc def", L"xdef", L"c de"},
      {L"+ \"a  b\" \t", L"a  b", L"a b"},    {L"+ \"a\"b\"", L"a\"b", L"ab"},
      {L"+ \"a\" b", L"\"a\" b", L"a"},       {L"-\t \ta b  ", L"a b  ", L"a b "},
      {L"+ Docs", L"Docs", L"docs"},          {L"- 字.*𠮷", L"字x𠮷", L"𠮷字"}};
  for (const auto& [line, match, other] : table) {
    const qlm::CFilter filter = Filter({L"# note", line});
    ASSERT_TRUE(filter.Items().size() == 1 && !filter.HasErrors()) << line;
    EXPECT_EQ(filter.Items()[0]->IsExclude(), line[0] == L'-');
    EXPECT_EQ(Deciding(filter, match), 1) << line;
    EXPECT_EQ(Deciding(filter, other), -1) << line;
  }
}

TEST(Filter, invalid_line_has_an_error_and_matches_nothing) {
  const std::pair<const wchar_t*, uint32_t> table[] = {
      {L"   # note", IDS_FILTER_BAD_SIGN}, {L"*a b", IDS_FILTER_BAD_SIGN}, {L"-\\.tmp", IDS_FILTER_BAD_FORM},
      {L"+", IDS_FILTER_BAD_FORM},         {L"+ \t", IDS_FILTER_BAD_FORM}, {L"- (", IDS_REGEX_ERROR}};
  for (const auto& [line, id] : table) {
    const qlm::CFilter filter = Filter({L"+ good", line, L"- \\.tmp"});
    ASSERT_TRUE(filter.FirstError() && filter.FirstError()->line == line) << line;
    EXPECT_EQ(filter.FirstError()->error.code, id) << line;
    EXPECT_EQ(Deciding(filter, L"a.tmp"), 2);
  }
  qlm::CFilter again = Filter({L"- a", L"x"});
  again.Parse({L"- b"}, texts);
  EXPECT_TRUE(again.Items().size() == 1 && !again.HasErrors() && Deciding(again, L"b") == 0);
  EXPECT_EQ(Filter({L"+abc def/"}).Items()[0]->pattern, L"def/") << "the pattern as typed";
  EXPECT_TRUE(test::Has(Filter({L"𠮷"}).FirstError()->error.message, L"(𠮷)"));
  EXPECT_TRUE(
      Filter({L"- 𠮷(古[写真"})
          .FirstError()
          ->error.message.starts_with(L"正規表現エラー: 括弧 ( ) や [ ] が対応していません（𠮷(古[写真）。"))
      << "the expression is shown as it was typed";
}

TEST(TextFile, encoding_and_line_ends_are_detected) {
  const std::pair<std::string, std::vector<std::wstring>> table[] = {
      {"", {}},
      {"\xEF\xBB\xBF", {}},
      {"a\r\nb\rc\n\nd", {L"a", L"b", L"c", L"", L"d"}},
      {"\n\r\n\r", {L"", L"", L""}},
      {"\xEF\xBB\xBF\xE5\xAD\x97\xFF\n", {L"字\xFFFD"}},
      {"\x8E\x9A\xB1\x81 \xE5", {L"字ｱ\xFFFD \xFFFD"}},
      {"\xFF\xFE\x42\xD8\xB7\xDF", {L"𠮷"}},
      {std::string("\xFF\xFE\x57\x5B\x42\xD8\xB7\xDF\n\0!", 11), {L"字𠮷", L"\xFFFD"}},
      {std::string("\xFE\xFF\x5B\x57\xD8\x42\xDF\xB7\0\r\0\n\xDF\xB7\xD8\x42", 16),
       {L"字𠮷", L"\xFFFD\xFFFD"}}};
  for (const auto& [bytes, lines] : table) EXPECT_EQ(qlm::TextLines(ansi, bytes), lines) << bytes;

  test::CMemoryFileSystem files;
  const auto read = [&](const wchar_t* path) {
    return test::ThrownId([&] { qlm::ReadTextLines(files, ansi, path); });
  };
  files.AddFile(L"C:\\huge", std::string((16u << 20) + 1, '#'));
  EXPECT_EQ(read(L""), IDS_PATH_EMPTY);
  EXPECT_EQ(read(L"C:\\none"), IDS_OPEN_FILE_FAILED);
  EXPECT_EQ(read(L"C:\\huge"), IDS_OPEN_FILE_FAILED);
}

std::vector<std::wstring> Words(const wchar_t* text) {
  std::wistringstream stream(text);
  return {std::istream_iterator<std::wstring, wchar_t>(stream), {}};
}

// Generates patterns and paths that resemble them.
class CMaker {
 public:
  std::wstring Pattern(int depth = 0) {
    static const auto kAtoms = Words(
        L"a b ab A ! 字 / \\. \\- . - a- [ab] [^a/] [\\]a] []a] [[:alpha:]] \\d \\W \\b \\B \\n \\x61 \\Qa. "
        L"\\E \\1 \\< \\z (?i) (?#a) ^ $");
    static const auto kGroups = Words(L"( ( ( (?: (?: (?i: (?= (?! (?> (?<= (?<n>");
    static const auto kQuantifiers = Words(L"* + ? *? +? ++ {0} {2} {0,1} {1,} {,2}");
    std::wstring text = depth == 0 && OneIn(8) ? L"(?i)" : L"";
    if (depth == 0 && OneIn(4)) text += L"^";
    for (size_t pieces = 1 + Below(4); pieces > 0; --pieces) {
      text += depth < 3 && OneIn(5) ? Pick(kGroups) + Pattern(depth + 1) + L")" : Pick(kAtoms);
      if (OneIn(4)) text += Pick(kQuantifiers);
      if (OneIn(depth == 0 ? 12 : 4)) text += L"|";
      if (OneIn(20)) text += static_cast<wchar_t>(L' ' + Below(95));
    }
    return depth == 0 && OneIn(4) ? text + L"$" : text;
  }

  std::wstring Path(const std::wstring& pattern) {
    constexpr std::wstring_view kCommon = L"aaabbbA!字.-\\\\ 1x";
    constexpr std::wstring_view kStrange = L"\n\r\f\x85\x2028\x2029\x7F\xFFFD𠮷";
    std::wstring path;
    for (size_t length = Below(8); length > 0; --length) path += kCommon[Below(kCommon.size())];
    if (OneIn(8)) path.insert(Below(path.size() + 1), 1, kStrange[Below(kStrange.size())]);
    if (OneIn(8)) path.insert(Below(path.size() + 1), pattern.substr(Below(pattern.size()), 3));
    return path;
  }

 private:
  size_t Below(size_t bound) { return m_random() % bound; }
  bool OneIn(size_t times) { return Below(times) == 0; }
  const std::wstring& Pick(const std::vector<std::wstring>& all) { return all[Below(all.size())]; }

  std::mt19937 m_random;
};

TEST(RegexPrefilter, agrees_with_the_search_and_decides_simple_cases) {
  CMaker maker;
  int counts[2] = {};
  int decided = 0;
  for (int patterns = 0; patterns < 20'000; ++patterns) {
    const std::wstring pattern = maker.Pattern();
    std::optional<my::CRegex> expression;
    if (test::ThrownId([&] { expression.emplace(pattern); }) != 0) continue;
    const my::CRegexPrefilter prefilter(pattern);
    for (int paths = 0; paths < 20; ++paths) {
      const std::wstring path = maker.Path(pattern);
      bool expected = false;
      if (test::ThrownId([&] { expected = expression->Found(path); }) != 0) continue;  // too complex
      ++counts[expected];
      const auto verdict = prefilter.Test(my::CPrefilterText(path));
      if (verdict == my::CRegexPrefilter::Verdict::Undecided) continue;
      ++decided;
      EXPECT_EQ(verdict == my::CRegexPrefilter::Verdict::Match, expected)
          << pattern << L" in " << testing::PrintToString(path);
    }
  }
  EXPECT_TRUE(counts[0] > 100'000 && counts[1] > 50'000) << counts[0] << " " << counts[1];
  EXPECT_GE(decided, 47'443) << "less than it has understood so far";
}

TEST(RegexPrefilter, saves_the_filter_a_search) {
  const std::wstring path(180, L'a');
  my::CRegexMatch scratch;
  EXPECT_EQ(test::ThrownId([&] { Filter({L"- ^(a+)+[b]"}).Find(path, scratch); }), IDS_REGEX_TOO_COMPLEX);
  EXPECT_EQ(test::ThrownId([&] { Filter({L"- ^(a+)+[b]zip"}).Find(path, scratch); }), 0u);
}

}  // namespace
