#include <gtest/gtest.h>

#include <stdexcept>

#include "engine/result.h"
#include "resource.h"
#include "support/enum_names.h"
#include "support/fake_ports.h"
#include "support/mru_strings.h"
#include "support/paths.h"
#include "support/strings.h"
#include "support/thrown.h"
#include "support/value_codecs.h"

namespace {

using namespace my;

constexpr CSystemError kDiskFull = CSystemError::FromWin32(kErrorDiskFull);
const test::CRcTexts texts;

TEST(Strings, utf8_marks_every_byte_that_is_no_text) {
  const std::wstring wide = L"a\x7F\x80\x7FF\x800\xFFFF\U00010000\U0010FFFF𠮷";
  EXPECT_EQ(WideFromUtf8(Utf8FromWide(wide)), wide);
  EXPECT_EQ(Utf8FromWide(L"é€𠮷"), "\xC3\xA9\xE2\x82\xAC\xF0\xA0\xAE\xB7");
  EXPECT_EQ(Utf8FromWide(std::wstring{L'a', wchar_t(0xD800), wchar_t(0xDC00 - 1)}),
            "a\xEF\xBF\xBD\xEF\xBF\xBD");
  // Overlong forms, surrogates, beyond the last code point, lone and missing tails.
  for (const char* bad :
       {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\x80", "\xE2\x82", "\xF0\xA0\xAE", "\xC3"}) {
    const std::wstring marks(std::string_view(bad).size(), L'\xFFFD');
    EXPECT_EQ(WideFromUtf8(bad), marks) << bad;
    EXPECT_EQ(WideFromUtf8(bad + std::string("é")), marks + L"é") << bad;
  }
}

TEST(Strings, trimming_and_joining_of_lines) {
  EXPECT_EQ(Trim(L" \t\r\na \n b\n", kBlanks), L"a \n b");
  EXPECT_EQ(Trim(L" \n", kBlanks), L"");
  EXPECT_EQ(TrimStart(L"xxa", L"x"), L"a");
  EXPECT_EQ(TrimEnd(L"axx", L"x"), L"a");
  EXPECT_EQ(OneLine(L"\na\r\n\r\nb \nc\n"), L"a b c");
  EXPECT_TRUE(EqualNoCase(L"C:\\Az{", L"c:\\aZ{"));
  EXPECT_FALSE(EqualNoCase(L"É[", L"é{"));
  EXPECT_FALSE(EqualNoCase(L"a", L"ab"));
}

TEST(Paths, parent_and_last_component) {
  const std::wstring table[][3] = {
      {L"C:\\a\\b.c", L"C:\\a", L"b.c"}, {L"C:\\a", L"C:\\", L"a"}, {L"C:/a/b", L"C:/a", L"b"},
      {L"C:\\a\\", L"C:\\a", L""},       {L"name", L"", L"name"},   {L"\\\\pc\\share", L"\\\\pc", L"share"}};
  for (const auto& [path, parent, last] : table) {
    EXPECT_EQ(ParentPath(path), parent);
    EXPECT_EQ(LastComponent(path), last);
    
  }
  EXPECT_EQ(SplitExtension(L"a.b.c").stem, L"a.b");
  EXPECT_EQ(SplitExtension(L"a.b.c").extension, L"c");
  EXPECT_EQ(SplitExtension(L"a").stem, L"a");
}

TEST(Paths, name_that_is_taken_is_not_used) {
  std::vector<std::wstring> taken;
  const auto exists = [&](const std::wstring& path) {
    return std::count(taken.begin(), taken.end(), path) > 0;
  };
  EXPECT_EQ(FreeTemporaryPath(L"C:\\d.e\\a", exists), L"C:\\d.e\\_tmp_a");
  EXPECT_EQ(FreeTemporaryPath(L"C:\\a.b.zip", exists), L"C:\\_tmp_a.b.zip");
  EXPECT_EQ(FreeNumberedPath(L"C:\\t\\", L"q", L".x", exists), L"C:\\t\\q0.x");
  taken = {L"C:\\_tmp_a.b.zip", L"C:\\_tmp1_a.b.zip", L"C:\\t\\q0.x"};
  EXPECT_EQ(FreeTemporaryPath(L"C:\\a.b.zip", exists), L"C:\\_tmp2_a.b.zip");
  EXPECT_EQ(FreeNumberedPath(L"C:\\t", L"q", L".x", exists), L"C:\\t\\q1.x");
  EXPECT_EQ(test::ThrownId([&] { FreeTemporaryPath(L"C:\\d\\", exists); }), IDS_PATH_NO_FILE_NAME);
}

TEST(ValueCodecs, text_that_is_no_value_is_refused) {
  EXPECT_EQ(ParseInt(L"-2147483648"), INT32_MIN);
  EXPECT_EQ(ParseDword(L"4294967295"), UINT32_MAX);
  EXPECT_EQ(ParseVersion(L"1.20.0.4294967295"), (CVersion{1, 20, 0, UINT32_MAX}));
  EXPECT_EQ(VersionText({1, 20, 0, 3}), L"1.20.0.3");
  EXPECT_EQ(ParseBool(BoolText(true)), true);
  EXPECT_EQ(ParseBool(BoolText(false)), false);
  EXPECT_EQ(ParseBytes(BytesText(std::string("\0\x7F\xFF", 3))), std::string("\0\x7F\xFF", 3));
  EXPECT_FALSE(ParseBytes(L"\x100"));
  for (const wchar_t* bad :
       {L"", L" 1", L"1 ", L"+1", L"0x1", L"1.0", L"１", L"99999999999", L"--1", L"True", L"1.2.3",
        L"1.2.3.4.5", L"1..2.3", L"1.2.3.4.", L"-1.0.0.0", L"1.0.0.4294967296"}) {
    EXPECT_FALSE(ParseInt(bad) || ParseDword(bad) || ParseBool(bad) || ParseVersion(bad))
        << Utf8FromWide(bad);
  }
  EXPECT_FALSE(ParseInt(L"2147483648") || ParseDword(L"-1") || ParseDword(L"4294967296"));
}

TEST(ValueCodecs, colours_of_one_two_and_six_digits) {
  EXPECT_EQ(ParseColor(L"00a1FE"), (CColor{0, 0xA1, 0xFE}));
  EXPECT_EQ(ParseColor(L"7f"), (CColor{0x7F, 0x7F, 0x7F}));
  EXPECT_EQ(ParseColor(L"F"), (CColor{15, 15, 15}));
  EXPECT_EQ(ColorText({0x01, 0xAB, 0xFE}), L"01ABFE");
  for (const wchar_t* bad : {L"", L"123", L"GG", L"-1", L"1234567", L"#12345"}) EXPECT_FALSE(ParseColor(bad));
}

TEST(EnumNames, flags_are_joined_by_name) {
  constexpr std::wstring_view kNames[] = {L"A", L"B", L"AB"};
  const CEnumTable table{L"Letters", kNames};
  EXPECT_EQ(FlagsText(table, 5), L"A|AB");
  for (uint32_t flags = 0; flags < 8; ++flags) EXPECT_EQ(ParseFlags(table, FlagsText(table, flags)), flags);
  for (const wchar_t* bad : {L"|", L"A|", L"|A", L"A||B", L"a", L"C", L"A | B"})
    EXPECT_FALSE(ParseFlags(table, bad));
  EXPECT_EQ(UnknownFlags(table, 0x8000000F), 0x80000008u);
  EXPECT_FALSE(EnumName(table, 3) || EnumValue(table, L"ab"));
}

TEST(MruStrings, string_used_again_moves_to_the_front) {
  CMruStrings recent(3, {L"a", L"b", L"c", L"d"});
  EXPECT_EQ(recent.Items(), (std::vector<std::wstring>{L"a", L"b", L"c"}));
  recent.Add(L"c");
  EXPECT_EQ(recent.Items(), (std::vector<std::wstring>{L"c", L"a", L"b"}));
  recent.Add(L"e");
  EXPECT_EQ(recent.Items(), (std::vector<std::wstring>{L"e", L"c", L"a"}));
}

TEST(MessageTexts, argument_stays_where_it_belongs) {
  const CException copy(IDS_COPY_FILE_FAILED, {kDiskFull, L"C:\\%s", L"D:\\b"});
  EXPECT_EQ(MakeErrorText(texts, copy),
            L"ファイルのコピーに失敗しました - system error (0x80070070)\n\nC:\\%s\n->\nD:\\b");
  EXPECT_EQ(MakeErrorText(texts, CException(IDS_STOPPED, {L"x"})), L"処理が中断されました");
  EXPECT_EQ(MakeErrorText(texts, CException(IDS_ERR_COPYING, {CTextId{IDS_STOPPED}})),
            L"コピー処理中にエラーが発生しました: 処理が中断されました");
  CException named(IDS_DST_NOT_COMMON);
  named.SetWhere(L"C:\\f");
  EXPECT_EQ(MakeErrorText(texts, named), texts.Text(IDS_DST_NOT_COMMON) + L"\n\nC:\\f");
  CException once(IDS_DELETE_FAILED, {kDiskFull, L"C:\\f"});
  once.SetWhere(L"C:\\f");
  EXPECT_EQ(MakeErrorText(texts, once), L"削除に失敗しました - system error (0x80070070)\n\nC:\\f")
      << "not named twice";
}

TEST(MessageTexts, what_was_thrown_is_stored) {
  const CSimpleErr own = TrapError(texts, [] { throw CException(IDS_DELETE_FAILED, {kDiskFull, L"x"}); });
  EXPECT_EQ(std::make_pair(own.code, own.detail), std::make_pair(uint32_t{IDS_DELETE_FAILED}, 0x80070070u));
  const CSimpleErr system = TrapError(texts, [] { throw CException(kDiskFull); });
  EXPECT_EQ(std::make_pair(system.code, system.message),
            std::make_pair(0x80070070u, std::wstring(L"system error (0x80070070)")));
  EXPECT_EQ(TrapError(texts, [] { throw std::runtime_error("é"); }).message, L"標準エラーが発生しました: é");
  EXPECT_FALSE(TrapError(texts, [] {}));
  EXPECT_EQ(CSystemError::FromWin32(0x80004005).hresult, static_cast<int32_t>(0x80004005));
}

TEST(MessageTexts, error_of_a_row_names_its_phase_on_one_line) {
  qlm::CResult row;
  for (const uint32_t phase : {IDS_PHASE_LISTING, IDS_PHASE_LISTED, IDS_PHASE_COPYING, IDS_PHASE_ARCHIVING}) {
    row.message = phase;
    row.error = {};
    EXPECT_EQ(qlm::ResultText(texts, row), texts.Text(phase));
    row.error = {1, 0, L"a\n\nb"};
    const std::wstring form = texts.Text(phase + 6);
    EXPECT_EQ(qlm::ResultText(texts, row), form.substr(0, form.find(L"%s")) + L"a b");
  }
}

}  // namespace
