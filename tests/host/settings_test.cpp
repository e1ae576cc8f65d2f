#include "settings/settings.h"

#include "document/dst.h"
#include "settings/settings_file.h"
#include "support/engine_doubles.h"
#include "support/golden.h"
#include "support/pugi_dom.h"

namespace {

using namespace qlm;

// Combines three files: up to "ReplaceDlg" from the first, that group from the second, the rest from the
// third.
std::string Spliced(const std::string& head, const std::string& replace, const std::string& rest) {
  const size_t from = replace.find("<ReplaceDlg>");
  return head.substr(0, head.find("<ReplaceDlg>")) + replace.substr(from, replace.find("<Archive>") - from) +
         rest.substr(rest.find("<Archive>"));
}

// Settings in which no field has its default, as in settings_full.config.
CSettings FullSettings() {
  constexpr auto kLimits = std::numeric_limits<int32_t>();
  CSettings s(1);
  s.mainFrame = {true, true, {-8, kLimits.min(), kLimits.max(), 4}, {80, 0, -1}, {200}, -120};
  s.taskDlg = {{true, {1, 2, 3, 4}}, {10, 11}};
  s.dstDlg = {true, {5, 6, 7, 8}};
  s.resultDlg = {{true, {9, 10, 11, 12}}, {12, 13}};
  s.targetDlg = {{true, {13, 14, 15, 16}}, {14}};
  s.filterDlg = {{true, {17, 18, 19, 20}}, {15, 16, 17}};
  const ReplaceCol col = kReplaceTaskPath | kReplaceDstFolder | kReplaceDstPattern;
  const CReplaceOptions replace{ReplaceRow::FOCUSED, col, L"<(\\d+)> & \"x\"", L"[$1]", true, false};
  const my::CMruStrings dsts(kMruMaximum, {L"置換", L"  two  "});
  s.replaceDlg = {
      {true, {21, 22, 23, 24}}, replace, my::CMruStrings(kMruMaximum, {L"newest", L"", L" "}), dsts};
  s.archive = {L"C:\\Tools\\7z.exe", PasswordType::SAVE, false, L" pä<ß𠮷 ",
               "\x90\x01\x50\x98\x3C\xD2\x4F\xB0\xD6\x96\x3F\x7D\x28\xE1\x7F\x72"};
  const my::CMruStrings paths(kMruMaximum, {L"D:\\書類\\a.qlmr", L"C:\\b.qlmr"});
  s.ui = {L"D:\\書類\\a.qlmr", paths, PowerOffType::HIBERNATE, false, false};
  s.design = {{0, 0xA1, 0xFE},    BrushType::INTERLACE, {15, 15, 15},
              L"C:\\brush.png",   BkImgType::GETTODAZE, L"C:\\画像.png",
              FitType::AUTO_FILL, ImgOrigin::RT,        false};
  return s;
}

class SettingsFile : public testing::Test, protected test::CEngineDoubles {
 protected:
  // Returns the message id that `work` throws, 0 for none; keeps the text.
  uint32_t Failure(const std::function<void()>& work) {
    const my::CSimpleErr failure = my::TrapError(texts, work);
    text = failure.message;
    return failure.code;
  }
  uint32_t Load(const std::string& bytes) {
    files.AddFile(path, bytes, {1});
    return Failure([this] { version = LoadSettings(files, dom, path, live); });
  }
  // Loads the full file, with its first `from` replaced by `to`, over the defaults.
  uint32_t LoadWith(const std::string& from, const std::string& to) {
    live = CSettings(1);
    return Load(std::string(full).replace(full.find(from), from.size(), to));
  }
  std::string Saved(const CSettings& settings) {
    SaveSettings(files, clock, dom, path, settings);
    return files.Files().at(path);
  }

  test::CPugiDom dom;
  const std::wstring path = SettingsPath(test::CFakeFolders(), texts);
  const std::string defaults = test::Golden("settings_default.config");
  const std::string full = test::Golden("settings_full.config");
  CSettings live{1};
  my::CVersion version{};
  std::wstring text;
};

TEST_F(SettingsFile, every_field_round_trips_under_its_name) {
  EXPECT_EQ(path, L"C:\\Roaming\\Tenkowa\\Quillmoor\\Quillmoor32.config");
  EXPECT_EQ(Saved(live), defaults) << "creates its folder";
  EXPECT_EQ(Saved(FullSettings()), full);
  const uint32_t drawn = live.design.random;
  EXPECT_NE(drawn, CSettings(2).design.random);
  ASSERT_EQ(Load(full), 0u);
  EXPECT_EQ(Saved(live), full);
  EXPECT_EQ(live.design.random, drawn);
  EXPECT_EQ(live.ui.stateColors[3], (my::CColor{0xD6, 0x4A, 0x00}));
  ASSERT_EQ(LoadWith("<FullScreen>true", "<FullScreen>false"), 0u);
  EXPECT_TRUE(!live.mainFrame.fullScreen && live.mainFrame.maximized) << "the values are not exchanged";
  ASSERT_EQ(LoadWith("<HybridShutdown>false", "<HybridShutdown>true"), 0u);
  EXPECT_TRUE(live.ui.hybridShutdown && !live.ui.installUpdates) << "the values are not exchanged";
  ASSERT_EQ(Load(defaults), 0u);
  EXPECT_EQ(Saved(live), defaults) << "the lists of the file replace the old ones";
}

TEST(SettingsNames, every_value_has_its_name) {
  const std::pair<const my::CEnumTable&, std::wstring> kTables[] = {
      {kPasswordTypeNames, L"EXEC|EXEC_ONCE|SAVE"},
      {kPowerOffTypeNames, L"LOGOFF|SLEEP|HIBERNATE|POWEROFF"},
      {kBrushTypeNames, L"DEFAULT|OS_DEFAULT|CUSTOM_COLOR|CUSTOM_BK|CHECK|DIA|STRIPE|INTERLACE"},
      {kFitTypeNames, L"NONE|WIDTH|HEIGHT|AUTO_FIT|AUTO_FILL"},
      {kImgOriginNames, L"LT|LB|RB|RT"},
      {kBkImgTypeNames,
       L"DEFAULT|NONE|CUSTOM|OK|LOVELOVE|NO|HATENA|MASSAKASAMA|ASE|GAKKURI|PEROON|DARUDARU|CHOUDAI|DOGEZA|"
       L"MANEKI|"
       L"ONEGAI|BUTSUYO|GUROKKII|GUTTARI|DOWN|IYAIYA|OMOI|ZUKO|BIRIBIRI|URAMIMASU|CHANCE|GETTODAZE"},
      {kDstTypeNames, L"FOLDER|ZIP|PASSWORD_ZIP|AES_256_ZIP"},
      {kReplaceRowNames, L"ALL|SELECTED|FOCUSED"},
      {kReplaceColNames, L"TASK_ID|TASK_PATH|TASK_FILTER|DST_FOLDER|DST_PATTERN"}};
  for (const auto& [table, names] : kTables) {
    const uint32_t all = (1u << table.names.size()) - 1;
    EXPECT_EQ(my::FlagsText(table, all), names);
    EXPECT_EQ(my::ParseFlags(table, names), all);
  }
}

TEST_F(SettingsFile, invalid_values_get_the_message_of_their_type) {
  EXPECT_EQ(LoadWith(">true<", ">True<"), IDS_XML_BAD_BOOL);
  EXPECT_EQ(LoadWith("2147483647", "2147483648"), IDS_XML_BAD_INT);
  EXPECT_EQ(LoadWith("<Width>80", "<Width>8 0"), IDS_XML_BAD_INT);
  EXPECT_EQ(LoadWith("FOCUSED", "focused"), IDS_XML_BAD_ENUM);
  EXPECT_EQ(LoadWith("TASK_PATH|", "TASK_PATH||"), IDS_XML_UNKNOWN_FLAG);
  EXPECT_EQ(LoadWith("00A1FE", "12345"), IDS_XML_BAD_COLOR);
  EXPECT_EQ(LoadWith("9001", "あ"), IDS_XML_BAD_BYTES);
  EXPECT_EQ(LoadWith("9001", "900"), IDS_XML_BAD_BYTES);
  EXPECT_EQ(LoadWith("1.0.1.0", "1.0.1"), IDS_XML_BAD_VERSION);
  EXPECT_EQ(LoadWith("<bottom>4</bottom>", ""), IDS_XML_NODE_NOT_FOUND);
  EXPECT_TRUE(text.ends_with(L"/QuillmoorSetting/MainFrame/NormalBounds\n\n" + path)) << "place and file";
  EXPECT_EQ(LoadWith("<Version>", "<Later><Version>9</Version></Later><Version>"), 0u) << "ignored";
}

TEST_F(SettingsFile, failed_or_missing_groups_keep_their_values) {
  const size_t replace = full.find("<ReplaceDlg>");
  ASSERT_EQ(LoadWith("<HidePassword>false</HidePassword>", ""), IDS_XML_NODE_NOT_FOUND);
  EXPECT_EQ(Saved(live), Spliced(full, full, defaults));
  ASSERT_EQ(LoadWith(full.substr(replace, full.find("<Archive>") - replace), ""), IDS_XML_NODE_NOT_FOUND);
  EXPECT_EQ(Saved(live), Spliced(full, defaults, defaults));
  ASSERT_EQ(LoadWith("1.0.1.0", "1.0.0.9"), 0u);
  EXPECT_EQ(Saved(live), Spliced(full, defaults, full));
  ASSERT_EQ(LoadWith("1.0.1.0", "2.0.0.0"), 0u);
  EXPECT_GT(version, kSettingsVersion);
}

TEST_F(SettingsFile, password_is_written_only_if_it_may_be_stored) {
  live.archive.password = L"secret";
  for (const auto type : {PasswordType::EXEC, PasswordType::EXEC_ONCE, PasswordType::SAVE}) {
    live.archive.passwordType = type;
    EXPECT_EQ(Saved(live).find("<Password/>") == std::string::npos, type == PasswordType::SAVE);
  }
  ASSERT_EQ(LoadWith("9001", "9001"), 0u);
  std::string handmade = Saved(live);
  handmade.replace(handmade.find(">SAVE<"), 6, ">EXEC<");
  handmade.replace(handmade.find("3CD24FB0"), 8, "3cd24fb0");
  handmade.resize(handmade.find("<Design>"));
  EXPECT_EQ(Load(handmade + "</QuillmoorSetting>"), IDS_XML_NODE_NOT_FOUND);
  EXPECT_EQ(live.archive.password, L"") << "also if the load fails later";
  EXPECT_EQ(live.archive.passwordHash, FullSettings().archive.passwordHash) << "in either case";
}

TEST_F(SettingsFile, only_texts_that_xml_cannot_represent_are_omitted) {
  CSettings settings = FullSettings();
  const std::wstring half = std::wstring(L"C:\\") + wchar_t(0xD800);
  settings.ui.lastPath = half;
  settings.ui.mruPathes.Add(half);
  std::string expected = full;
  const size_t from = expected.find("<LastPath>");
  expected.replace(from, expected.find("<MruPathes>") - from, "<LastPath/>");
  EXPECT_EQ(Saved(settings), expected);
}

TEST_F(SettingsFile, values_without_a_name_are_not_written) {
  live.replaceDlg.replace.col = kReplaceDstFolder | 1u << 5;
  EXPECT_EQ(Failure([this] { Saved(live); }), IDS_XML_UNKNOWN_FLAG);
  EXPECT_TRUE(test::Has(text, L"ReplaceCol: 0x00000020")) << "only the flags without a name";
  live.replaceDlg.replace.row = static_cast<ReplaceRow>(-1);
  EXPECT_EQ(Failure([this] { Saved(live); }), IDS_XML_UNKNOWN_ENUM);
  EXPECT_TRUE(test::Has(text, L"ReplaceRow: -1"));
  EXPECT_TRUE(files.Files().empty());
}

}  // namespace
