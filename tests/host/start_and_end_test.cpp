#include "app/command_line.h"
#include "app/diagnostics.h"
#include "support/commands_fixture.h"

namespace {

using namespace qlm;
using namespace test;

TEST_F(Commands, closing_asks_about_edits_and_runs_and_waits_for_the_worker) {
  StartIn(RunState::Running, true);
  EXPECT_FALSE(a.app->OnClose());
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + a.Text(IDS_ASK_DISCARD) + L"\n");
  a.dialogs.buttons = {true, false};
  EXPECT_FALSE(a.app->OnClose());
  EXPECT_EQ(a.TakeBoxes(),
            L"確認: " + a.Text(IDS_ASK_DISCARD) + L"\n確認: " + a.Text(IDS_ASK_STOP_AND_QUIT) + L"\n");
  EXPECT_EQ(a.State(), RunState::Running);
  EXPECT_EQ(a.files.Kind(kSettingsFile), my::PathKind::None);
  a.dialogs.buttons = {true, true};
  EXPECT_FALSE(a.app->OnClose());
  EXPECT_EQ(a.State(), RunState::Stopping);
  EXPECT_EQ(a.window.closingShown, 1);
  a.TakeBoxes();
  const size_t tasks = a.app->Document().Tasks().size();
  for (const uint32_t id : {ID_NEW, ID_RUN, ID_POWER_OFF, ID_SETTINGS}) {
    EXPECT_FALSE(a.app->IsEnabled(id)) << id;
    a.Do(id);
  }
  EXPECT_FALSE(a.app->OnClose()) << "the user closes again";
  EXPECT_EQ(a.TakeBoxes(), L"") << "no question, run or message until then";
  EXPECT_EQ(a.app->Document().Tasks().size(), tasks);
  EXPECT_FALSE(a.app->OnQueryEndSession()) << "the worker has not ended";
  EXPECT_FALSE(a.window.closing);
  a.EndRun();
  EXPECT_EQ(a.State(), RunState::Stopped);
  EXPECT_TRUE(a.window.closing);
  EXPECT_TRUE(a.app->OnClose());
  EXPECT_EQ(a.files.Kind(kSettingsFile), my::PathKind::File);
  a.files.FailAt(Op::CREATE_FOLDERS, 1, my::kErrorAccessDenied);
  EXPECT_TRUE(a.app->OnClose()) << "unwritable settings do not block exit";
  EXPECT_TRUE(Has(a.TakeBoxes(), L"フォルダーの作成に失敗しました"));
}

TEST_F(Commands, session_end_is_blocked_by_work_unless_the_program_requested_it) {
  const auto mayEnd = [this] { return a.app->OnQueryEndSession(); };
  bool vetoed = false;
  a.power.onSessionEnd = [&] { vetoed = !mayEnd(); };
  StartIn(RunState::NotRun);
  EXPECT_TRUE(mayEnd());
  for (const auto type : {PowerOffType::LOGOFF, PowerOffType::POWEROFF}) {
    StartIn(RunState::Running, true);
    EXPECT_EQ(a.window.hold, a.Text(IDS_SHUTDOWN_REASON));
    EXPECT_FALSE(mayEnd());
    a.app->Settings().ui.powerOffType = type;
    a.dialogs.buttons = {true, true};
    vetoed = true;
    a.Do(ID_POWER_OFF);
    EXPECT_FALSE(vetoed) << "asked before the call returned";
    EXPECT_TRUE(a.app->Run().IsActive() && a.app->Document().IsModified() && mayEnd());
    EXPECT_EQ(a.window.hold, L"");
    a.app->OnEndSession(false);
    EXPECT_EQ(a.window.hold, a.Text(IDS_SHUTDOWN_REASON)) << "the session goes on, and so does the run";
    a.EndRun();
    EXPECT_EQ(a.window.hold, a.Text(IDS_SHUTDOWN_REASON_EDITS));
    EXPECT_FALSE(mayEnd());
    a.app->Document().Undo();
    EXPECT_EQ(a.window.hold, L"");
  }
  const auto requestAfter = [&](PowerOffType type, bool modified = true) {
    StartIn(RunState::NotRun, modified);
    a.app->Settings().ui.powerOffType = type;
    a.dialogs.buttons = {true};
    a.Do(ID_POWER_OFF);
  };
  for (const auto type : {PowerOffType::SLEEP, PowerOffType::HIBERNATE}) {
    requestAfter(type);
    EXPECT_FALSE(mayEnd()) << "this does not end the session";
  }
  requestAfter(PowerOffType::POWEROFF, false);
  a.Fill(content);
  EXPECT_FALSE(mayEnd()) << "new edits after another program has blocked the end";
  requestAfter(PowerOffType::POWEROFF, false);
  a.Do(ID_RUN);
  EXPECT_FALSE(mayEnd());
  a.power.actionCode = 5;
  a.TakeBoxes();
  requestAfter(PowerOffType::POWEROFF);
  EXPECT_FALSE(mayEnd()) << "the request failed";
}

TEST_F(Commands, end_of_session_stores_settings_without_a_message_box) {
  StartIn(RunState::NotRun, true);
  a.Do(ID_REPLACE);
  EXPECT_FALSE(a.app->OnQueryEndSession());
  a.app->OnEndSession(true);
  EXPECT_FALSE(a.app->Replace().IsOpen());
  EXPECT_EQ(a.files.Kind(kSettingsFile), my::PathKind::File);
  a.files.FailAt(Op::CREATE_FOLDERS, 1, my::kErrorAccessDenied);
  a.app->OnEndSession(true);
  EXPECT_EQ(a.TakeBoxes(), L"");
}

TEST(CommandLine, quotes_protect_spaces_and_are_removed) {
  const auto split = &CCommandLineParserUtil::Split;
  EXPECT_EQ(split(L"\"C:\\p q\\Q.exe\"\t 'a \"b' c\"d e\"f \"\" ''"),
            (std::vector<std::wstring>{L"C:\\p q\\Q.exe", L"a \"b", L"cd ef"}));
  EXPECT_EQ(CSingleCommandLineParser(L"q \"C:\\a b.qlmr").Path(), L"C:\\a b.qlmr");
  EXPECT_EQ(CSingleCommandLineParser(L"q \"\"").Path(), L"");
  EXPECT_EQ(ThrownId([] { CSingleCommandLineParser(L"q a b").Path(); }), IDS_TOO_MANY_ARGUMENTS);
}

TEST_F(Commands, start_opens_the_named_document_or_the_last_one) {
  StartIn(RunState::NotRun, true);
  for (const wchar_t* path : {L"C:\\a b.qlmr", L"C:\\last.qlmr"}) {
    a.DoWithPath(ID_SAVE_AS, path);
  }
  a.app->Settings().archive.sevenZipPath.clear();
  a.folders.programs = L"D:\\Program Files (x86)";
  a.files.AddFile(L"D:\\Program Files\\7-Zip\\7z.exe", "MZ");
  ASSERT_TRUE(a.app->OnClose());
  EXPECT_EQ(a.Start().Document().Path(), L"C:\\last.qlmr");
  EXPECT_EQ(a.app->Settings().archive.sevenZipPath, L"D:\\Program Files\\7-Zip\\7z.exe") << "is found";
  EXPECT_EQ(a.Start(L"q.exe \"a b.qlmr\"").Document().Path(), L"C:\\a b.qlmr") << "in the current folder";
  EXPECT_EQ(a.TakeBoxes(), L"");
  EXPECT_TRUE(a.Start(L"q.exe a b").Document().Path().empty());
  EXPECT_EQ(a.TakeBoxes(), L"エラー: コマンドライン引数が多すぎます: 2\n\na\nb\n");
  EXPECT_EQ(a.Start(L"q.exe \"--check-filter=C:\\f\\a b.flt\"").Document().Path(), L"C:\\last.qlmr");
  EXPECT_TRUE(a.dialogs.filters.empty()) << "the window is not complete yet";
  ASSERT_EQ(a.window.posted.size(), 1u);
  a.Do(a.window.posted[0]);
  EXPECT_EQ(a.dialogs.filters, std::vector<std::wstring>{L"C:\\f\\a b.flt|"});
  a.files.AddFile(L"C:\\last2.qlmr", a.files.Files().at(L"C:\\last.qlmr"));
  a.files.Remove(L"C:\\last.qlmr");
  EXPECT_TRUE(a.Start().Document().Path().empty());
  EXPECT_TRUE(Has(a.TakeBoxes(), L"C:\\last.qlmr"));
  EXPECT_TRUE(a.window.shown);
  a.onTitle = [&a = a] {
    if (!a.document->Path().empty()) throw std::runtime_error("title");
  };
  EXPECT_TRUE(a.Start(L"q.exe C:\\last2.qlmr").Document().Path().empty()) << "no half of a failed opening";
  EXPECT_EQ(a.TakeBoxes(), L"エラー: 標準エラーが発生しました: title\n");
}

TEST_F(Commands, diagnostics_tell_errors_without_the_names_of_files) {
  StartIn(RunState::NotRun);
  a.files.Remove(L"C:\\src");
  a.RunToEnd();
  const std::wstring text = DiagnosticsText(a.app->Context(), L"Windows", L"");
  EXPECT_TRUE(Has(text, std::to_wstring(a.app->Run().Rows().at(0)->error.code)));
  for (const wchar_t* const name : {L"plain", L"src", L"doc", L"D:", L"pw"}) EXPECT_FALSE(Has(text, name));
}

TEST_F(Commands, every_kind_of_exception_is_shown) {
  StartIn(RunState::NotRun);
  a.app->ShowFailure(std::make_exception_ptr(std::runtime_error("何か")));
  EXPECT_EQ(a.TakeBoxes(), L"エラー: 標準エラーが発生しました: 何か\n");
  a.app->ShowFailure(std::make_exception_ptr(1));
  EXPECT_EQ(a.TakeBoxes(), L"エラー: 内部エラー\n\nunknown exception\n");
}

TEST_F(Commands, cancelled_start_does_not_overwrite_the_settings_file) {
  StartIn(RunState::NotRun);
  ASSERT_TRUE(a.app->OnClose());
  const std::string good = a.files.Files().at(kSettingsFile);
  std::string newer = good;
  newer.replace(newer.find("1.0.1.0"), 7, "2.0.0.0");
  for (const std::string& content_ : {good.substr(0, 300), newer}) {
    a.files.AddFile(kSettingsFile, content_);
    a.Start();
    EXPECT_TRUE(a.window.closing);
    EXPECT_FALSE(a.window.shown);
    EXPECT_TRUE(a.app->OnClose());
    EXPECT_EQ(a.files.Files().at(kSettingsFile), content_) << "untouched";
    a.dialogs.buttons = {true};
    a.Start();
    EXPECT_TRUE(a.window.shown);
    EXPECT_TRUE(a.app->OnClose());
    EXPECT_NE(a.files.Files().at(kSettingsFile), content_);
  }
  a.files.AddFile(kSettingsFile, good);
  a.files.FailAt(test::Op::KIND, 1, 53);  // the profile is on an unreachable share
  a.Start();
  EXPECT_TRUE(a.window.closing && a.app->OnClose());
  EXPECT_EQ(a.files.Files().at(kSettingsFile), good) << "not replaced by defaults";
  std::wstring boxes = a.TakeBoxes();
  EXPECT_TRUE(Has(boxes, L"設定ファイル: " + kSettingsFile + L"\nXML")) << "named once";
  EXPECT_TRUE(Has(boxes, L"有無を確認できませんでした"));
  EXPECT_TRUE(Has(boxes, L"新しいバージョン用の設定ファイル"));
  a.folders.failure = my::CException(IDS_PATH_EMPTY);
  a.Start();
  const my::CMsgArg reason = a.Text(IDS_PATH_EMPTY);
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + my::MakeText(a.texts, IDS_ASK_SETTINGS_ERROR, {&reason, 1}) + L"\n");
}

}  // namespace
