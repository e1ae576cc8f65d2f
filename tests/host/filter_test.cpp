#include "document/filter.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "document/text_file.h"
#include "resource.h"
#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "support/strings.h"
#include "support/thrown.h"

namespace {

const test::CRcTexts texts;
const test::CIconvAnsiCodec ansi;

qlm::CFilter Filter(const std::vector<std::wstring>& lines) {
  qlm::CFilter filter;
  filter.Parse(lines, texts);
  return filter;
}

// The index of the line that decides about the path, -1 for none.
int Deciding(const qlm::CFilter& filter, const std::wstring& path) {
  my::CRegexMatch scratch;
  const qlm::CFilterItem* item = filter.Find(path, scratch);
  return item ? static_cast<int>(item->lineIndex) : -1;
}

TEST(Filter, line_yields_its_expression) {
  // The line, a path that it matches, and one that it does not match.
  const std::wstring table[][3] = {
      {L"- \\.tmp$", L"a\\b.tmp", L"a.tmpx"}, {L"+ ^docs/", L"docs\\", L"a\\docs\\"},
      {L"+ ^a//b", L"a\\\\b", L"a\\b"},       {L"+abc def", L"xdef", L"c de"},
      {L"+ \"a  b\" \t", L"a  b", L"a b"},    {L"+ \"a\"b\"", L"a\"b", L"ab"},
      {L"+ \"a\" b", L"\"a\" b", L"a"},       {L"+ \"\"", L"anything", L"\n!"},
      {L"-\t \ta b  ", L"a b  ", L"a b "},    {L"+ Docs", L"Docs", L"docs"},
      {L"- 字.*𠮷", L"字x𠮷", L"𠮷字"}};
  for (const auto& [line, match, other] : table) {
    const qlm::CFilter filter = Filter({L"# note", line});
    ASSERT_EQ(filter.Items().size(), 1u);
    EXPECT_FALSE(filter.HasErrors()) << my::Utf8FromWide(line);
    EXPECT_EQ(filter.Items()[0]->exclude, line[0] == L'-');
    EXPECT_EQ(Deciding(filter, match), 1) << my::Utf8FromWide(line);
    if (other != L"\n!") EXPECT_EQ(Deciding(filter, other), -1) << my::Utf8FromWide(line);
  }
}

TEST(Filter, bad_line_keeps_its_error_and_matches_nothing) {
  const std::pair<const wchar_t*, uint32_t> table[] = {
      {L"   # note", IDS_FILTER_BAD_SIGN}, {L"*a b", IDS_FILTER_BAD_SIGN}, {L"-\\.tmp", IDS_FILTER_BAD_FORM},
      {L"+", IDS_FILTER_BAD_FORM},         {L"+ \t", IDS_FILTER_BAD_FORM}, {L"- (", IDS_REGEX_ERROR}};
  for (const auto& [line, id] : table) {
    const qlm::CFilter filter = Filter({L"+ good", line, L"- \\.tmp"});
    EXPECT_EQ(filter.FirstError(), filter.Items()[1].get());
    EXPECT_EQ(filter.Items()[1]->error.code, id) << my::Utf8FromWide(line);
    EXPECT_EQ(filter.Items()[1]->line, line);
    EXPECT_EQ(Deciding(filter, L"a.tmp"), 2);
  }
  EXPECT_NE(Filter({L"?"}).FirstError()->error.message.find(L"(?)"), std::wstring::npos);
}

TEST(Filter, first_match_decides_and_no_line_means_no_rule) {
  const qlm::CFilter filter = Filter({L"", L" \t", L"#- a", L"- ^old/", L"+ ^old/keep", L"+ b", L"- ."});
  EXPECT_EQ(filter.Items().size(), 4u);
  EXPECT_EQ(Deciding(filter, L"old\\keep"), 3);
  EXPECT_EQ(Deciding(filter, L"b"), 5);
  EXPECT_EQ(Deciding(filter, L"a"), 6);
  EXPECT_EQ(Deciding(Filter({L"# only", L""}), L"a"), -1);
}

TEST(TextFile, encoding_and_line_ends) {
  const std::pair<std::string, std::vector<std::wstring>> table[] = {
      {"", {}},
      {"\xEF\xBB\xBF", {}},
      {"a\r\nb\rc\n\nd", {L"a", L"b", L"c", L"", L"d"}},
      {"\n\r\n\r", {L"", L"", L""}},
      {"\xEF\xBB\xBF\xE5\xAD\x97\xFF\n", {L"字\xFFFD"}},
      {"\x8E\x9A\xB1\x81 \xE5", {L"字ｱ\xFFFD \xFFFD"}},
      {std::string("\xFF\xFE\x57\x5B\x42\xD8\xB7\xDF\n\0!", 11), {L"字𠮷", L"\xFFFD"}},
      {std::string("\xFE\xFF\x5B\x57\xD8\x42\xDF\xB7\0\r\0\n\xDF\xB7\xD8\x42", 16),
       {L"字𠮷", L"\xFFFD\xFFFD"}}};
  for (const auto& [bytes, lines] : table) EXPECT_EQ(qlm::TextLines(ansi, bytes), lines) << bytes;

  test::CMemoryFileSystem files;
  const auto read = [&](const std::wstring& path) {
    return test::ThrownId([&] { qlm::ReadTextLines(files, ansi, path); });
  };
  files.AddFile(L"C:\\huge", std::string((16u << 20) + 1, '#'));
  EXPECT_EQ(read(L""), IDS_PATH_EMPTY);
  EXPECT_EQ(read(L"C:\\none"), IDS_OPEN_FILE_FAILED);
  EXPECT_EQ(read(L"C:\\huge"), IDS_OPEN_FILE_FAILED);
}

// Patterns and paths that have much to do with each other.
class CMaker {
 public:
  explicit CMaker(uint32_t seed) : m_random(seed) {}

  std::wstring Pattern(int depth = 0) {
    static const std::vector<std::wstring> kAtoms = {
        L"a",   L"b",   L"ab",   L"A",     L"!",    L"字",    L"/",      L"\\.",  L"\\-",
        L"\\ ", L".",   L"-",    L"a-",    L"[ab]", L"[^a/]", L"[\\]a]", L"[]a]", L"[[:alpha:]]",
        L"\\d", L"\\W", L"\\b",  L"\\B",   L"\\n",  L"\\x61", L"\\Qa.",  L"\\E",  L"\\1",
        L"\\<", L"\\z", L"(?i)", L"(?#a)", L"^",    L"$"};
    static const std::vector<std::wstring> kGroups = {L"(",   L"(?:", L"(?i:", L"(?=",
                                                      L"(?!", L"(?>", L"(?<=", L"(?<n>"};
    static const std::vector<std::wstring> kQuantifiers = {L"*",   L"+",   L"?",     L"*?",   L"+?",  L"++",
                                                           L"{0}", L"{2}", L"{0,1}", L"{1,}", L"{,2}"};
    std::wstring text = depth == 0 && Chance(4) ? L"^" : L"";
    for (uint32_t pieces = 1 + m_random() % 4; pieces > 0; --pieces) {
      text += depth < 2 && Chance(6) ? OneOf(kGroups) + Pattern(depth + 1) + L")" : OneOf(kAtoms);
      if (Chance(4)) text += OneOf(kQuantifiers);
      if (Chance(12)) text += L"|";
      if (Chance(20)) text += static_cast<wchar_t>(L'!' + m_random() % 94);
    }
    return depth == 0 && Chance(4) ? text + L"$" : text;
  }

  // Mostly made of what the patterns ask for; now and then with a line end, or of the pattern's own text.
  std::wstring Path(const std::wstring& pattern) {
    static const std::wstring kCharacters = L"aaabbbA!字.-\\\\ 1x";
    static const std::wstring kStrange = L"\n\r\f\x85\x2028\x2029\x7F\xFFFD𠮷";
    std::wstring path;
    for (uint32_t length = m_random() % 8; length > 0; --length)
      path += kCharacters[m_random() % kCharacters.size()];
    if (Chance(8)) path.insert(m_random() % (path.size() + 1), 1, kStrange[m_random() % kStrange.size()]);
    if (Chance(8))
      path.insert(m_random() % (path.size() + 1), pattern.substr(m_random() % pattern.size(), 3));
    return path;
  }

 private:
  bool Chance(uint32_t oneIn) { return m_random() % oneIn == 0; }
  const std::wstring& OneOf(const std::vector<std::wstring>& all) { return all[m_random() % all.size()]; }

  std::mt19937 m_random;
};

TEST(Filter, quick_look_never_contradicts_the_expression) {
  CMaker maker(20'160'305);
  my::CRegexMatch scratch;
  int counts[2] = {};
  for (int patterns = 0; patterns < 20'000; ++patterns) {
    const std::wstring pattern = maker.Pattern();
    const qlm::CFilter filter = Filter({L"+ \"" + pattern + L"\""});
    if (filter.HasErrors()) continue;
    for (int paths = 0; paths < 20; ++paths) {
      const std::wstring path = maker.Path(pattern);
      bool expected = false;
      try {
        expected = filter.Items()[0]->expression->Found(path);
      } catch (const std::runtime_error&) {
        continue;
      }
      ++counts[expected];
      EXPECT_EQ(filter.Find(path, scratch) != nullptr, expected)
          << my::Utf8FromWide(pattern) << " in " << testing::PrintToString(my::Utf8FromWide(path));
    }
  }
  EXPECT_GT(counts[0], 100'000);
  EXPECT_GT(counts[1], 50'000);
}

}  // namespace
