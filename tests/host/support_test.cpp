#include <gtest/gtest.h>

#include "support/checks.h"
#include "support/fake_ports.h"
#include "support/mru_strings.h"
#include "support/name_faults.h"
#include "support/paths.h"
#include "support/strings.h"
#include "support/value_codecs.h"
#include "text_ids.h"

namespace {

using namespace my;

constexpr CSystemError kDiskFull = CSystemError::FromWin32(kErrorDiskFull);
const test::CRcTexts texts;

TEST(Strings, invalid_utf8_bytes_become_replacement_characters) {
  const std::wstring wide = L"a\x7F\x80\x7FF\x800\xFFFF\U00010000\U0010FFFF𠮷";
  EXPECT_EQ(WideFromUtf8(Utf8FromWide(wide)), wide);
  EXPECT_EQ(Utf8FromWide(L"é€𠮷"), "\xC3\xA9\xE2\x82\xAC\xF0\xA0\xAE\xB7");
  EXPECT_EQ(Utf8FromWide(std::wstring{wchar_t(0xD800), wchar_t(0xDFFF)}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  // Overlong forms, surrogates, beyond the last code point, lone and missing continuation bytes.
  for (const char* bad : {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                          "\xF5\x80\x80\x80", "\x80", "\xE2\x82", "\xF0\xA0\xAE", "\xC3"}) {
    const std::wstring marks(std::string_view(bad).size(), L'\xFFFD');
    EXPECT_EQ(WideFromUtf8(bad + std::string("é")), marks + L"é");
    EXPECT_EQ(WideFromUtf8(bad), marks);
  }
}

TEST(Strings, lone_surrogates_are_replaced_in_messages) {
  CException failure(IDS_WARNING, {std::wstring(L"𠮷") + wchar_t(0xD842) + L"b"});
  failure.SetWhere(std::wstring(L"C:\\") + wchar_t(0xDFB7));
  EXPECT_EQ(MakeErrorText(texts, failure),
            L"警告: 𠮷\xFFFD"
            L"b\n\nC:\\\xFFFD");
}

TEST(Paths, parents_end_at_the_root) {
  // Each path with all its parents.
  for (const std::vector<std::wstring>& way : std::vector<std::vector<std::wstring>>{
           {L"Q:\\a/b\\c", L"Q:\\a/b", L"Q:\\a", L"Q:\\"},
           {L"\\\\server\\share\\a\\b", L"\\\\server\\share\\a", L"\\\\server\\share\\"},
           {L"//server/share"},
           {L"\\\\server"},
           {L"\\\\?\\C:\\a", L"\\\\?\\C:\\"},
           {L"\\\\?\\unc\\server\\share\\a", L"\\\\?\\unc\\server\\share\\"},
           {L"\\a", L"\\"},
           {L"a\\b", L"a"}}) {
    std::vector<std::wstring> walked{way[0]};
    while (walked.size() < 9 && !ParentPath(walked.back()).empty())
      walked.emplace_back(ParentPath(walked.back()));
    EXPECT_EQ(walked, way);
  }
}

TEST(Paths, taken_name_is_skipped) {
  std::wstring taken;
  const auto take = [&](const std::wstring& path) { return taken.find(path + L"|") == taken.npos; };
  EXPECT_EQ(TakeTemporaryPath(L"C:\\d.e\\a", take), L"C:\\d.e\\_tmp_a");
  EXPECT_EQ(TakeNumberedPath(L"C:\\t\\", L"q", L".x", take), L"C:\\t\\q0.x");
  taken = L"C:\\_tmp_a.b.zip|C:\\_tmp1_a.b.zip|C:\\t\\q0.x|";
  EXPECT_EQ(TakeTemporaryPath(L"C:\\a.b.zip", take), L"C:\\_tmp2_a.b.zip");
  EXPECT_EQ(TakeNumberedPath(L"C:\\t", L"q", L".x", take), L"C:\\t\\q1.x");
  for (const wchar_t* nameless : {L"C:\\d\\", L"\\\\server\\share"})
    EXPECT_EQ(test::ThrownId([&] { TakeTemporaryPath(nameless, take); }), IDS_PATH_NO_FILE_NAME);
}

TEST(Paths, name_pending_deletion_is_skipped_but_a_denied_folder_is_an_error) {
  int refusals = 0;
  int left = 0;
  const auto take = [&](const std::wstring&) -> bool {
    if (left-- <= 0) return true;
    ++refusals;
    throw CException(IDS_CREATE_FILE_FAILED, {CSystemError::FromWin32(kErrorAccessDenied)});
  };
  left = 3;
  EXPECT_EQ(TakeNumberedPath(L"C:\\t", L"q", L".x", take), L"C:\\t\\q3.x");
  refusals = 0;
  left = 1'000'000;
  EXPECT_EQ(test::ThrownId([&] { TakeNumberedPath(L"C:\\t", L"q", L".x", take); }), IDS_CREATE_FILE_FAILED);
  EXPECT_LT(refusals, 20);
}

TEST(NameFaults, names_that_windows_maps_to_others_are_found) {
  const auto fault = [](std::wstring_view folder, std::wstring_view name) {
    const auto found = FindNameFault(folder, name);
    return found ? std::to_wstring(found->id) + L" " + found->name : std::wstring();
  };
  const std::wstring dots = std::to_wstring(IDS_NAME_ONLY_DOTS) + L" ";
  const std::wstring device = std::to_wstring(IDS_NAME_IS_DEVICE) + L" ";
  const std::wstring colon = std::to_wstring(IDS_NAME_HAS_COLON) + L" ";
  EXPECT_EQ(fault(L"D:\\b", L"..."), dots + L"...");
  EXPECT_EQ(fault(L"D:\\b", L"\\a\\..\\.. "), dots + L"..");
  EXPECT_EQ(fault(L"D:\\b", L". ."), dots + L". .");
  EXPECT_EQ(fault(L"D:\\b", L"x\\Com1.2024.zip"), device + L"Com1.2024.zip");
  EXPECT_EQ(fault(L"D:\\aux \\b", L"x"), device + L"aux ");
  for (const wchar_t* name : {L"con", L"nul.txt", L"LPT\u00B2", L"conin$", L"prn  .a", L"COM0"}) {
    EXPECT_EQ(fault(L"D:\\b", name), device + name);
  }
  EXPECT_EQ(fault(L"D:\\b", L"8:30"), colon + L"8:30");
  EXPECT_EQ(fault(L"D:\\a:b", L"x"), colon + L"a:b");
  EXPECT_EQ(fault(L"nul\\b", L"x"), device + L"nul") << "without a drive";
  for (const wchar_t* folder : {L"D:", L"\\\\?\\D:\\b", L"\\\\server\\share", L"..\\b", L""}) {
    EXPECT_EQ(fault(folder, L"\\.a\\b.\\communal\\com10\\nul_1.zip"), L"") << folder;
  }
}

TEST(ValueCodecs, malformed_values_are_refused) {
  EXPECT_EQ(ParseInt(L"-2147483648"), INT32_MIN);
  EXPECT_EQ(ParseDword(L"4294967295"), UINT32_MAX);
  EXPECT_EQ(ParseVersion(VersionText({1, 20, 0, UINT32_MAX})), (CVersion{1, 20, 0, UINT32_MAX}));
  EXPECT_TRUE(*ParseBool(BoolText(true)) && !*ParseBool(BoolText(false)));
  EXPECT_EQ(BytesText("\x7F\xFF"), L"7FFF");
  EXPECT_EQ(ParseInt(L"-0000000000012"), -12);
  EXPECT_FALSE(ParseBytes(L"\x100") || ParseInt(L"2147483648") || ParseDword(L"-1"));
  for (const wchar_t* bad : {L"", L" 1", L"1 ", L"+1", L"0x1", L"1.0", L"１", L"4294967296", L"--1", L"True",
                             L"1.2.3", L"1.2.3.4.5", L"1..2.3", L"1.2.3.4.", L"-1.0.0.0"}) {
    EXPECT_FALSE(ParseInt(bad) || ParseDword(bad) || ParseBool(bad) || ParseVersion(bad)) << bad;
  }
  EXPECT_EQ(ParseColor(L"00a1FE"), (CColor{0, 0xA1, 0xFE}));
  EXPECT_EQ(ParseColor(L"7f"), (CColor{0x7F, 0x7F, 0x7F}));
  EXPECT_EQ(ParseColor(L"F"), (CColor{15, 15, 15}));
  EXPECT_EQ(ColorText({0x01, 0xAB, 0xFE}), L"01ABFE");
  for (const wchar_t* bad : {L"", L"123", L"GG", L"-1", L"1234567", L"#12345"}) EXPECT_FALSE(ParseColor(bad));
}

TEST(MruStrings, string_used_again_moves_to_the_front) {
  CMruStrings recent(3, {L"a", L"b", L"c", L"d"});
  recent.Add(L"b");
  EXPECT_EQ(recent.Items(), (std::vector<std::wstring>{L"b", L"a", L"c"}));
  recent.Add(L"e");
  EXPECT_EQ(recent.Items(), (std::vector<std::wstring>{L"e", L"b", L"a"}));
}

TEST(MessageTexts, arguments_and_path_are_each_inserted_once) {
  CException copy(IDS_COPY_FILE_FAILED, {kDiskFull, L"C:\\%s", L"D:\\b", L"one too many"});
  const std::wstring text =
      L"ファイルのコピーに失敗しました - system error (0x80070070)\n\nC:\\%s\n->\nD:\\b";
  copy.SetWhere(L"D:\\b");
  EXPECT_EQ(MakeErrorText(texts, copy), text) << "a path in the text is not repeated";
  copy.SetWhere(L"E:\\c");
  EXPECT_EQ(MakeErrorText(texts, copy), text + L"\n\nE:\\c");
  EXPECT_EQ(MakeErrorText(texts, CException(IDS_STD_ERROR, {CTextId{IDS_STOPPED}})),
            L"標準エラーが発生しました: 処理が中断されました");
}

}  // namespace
