#include "run/runner.h"

#include "run/exit_codes.h"
#include "run/history_output.h"
#include "run/run_notice.h"
#include "settings/settings_file.h"
#include "support/engine_doubles.h"
#include "support/fake_system.h"
#include "support/fake_windows.h"
#include "support/pugi_dom.h"
#include "support/strings.h"

namespace {

using test::Has;
using test::kTime;

class Runner : public testing::Test, protected test::CEngineDoubles {
 protected:
  Runner() {
    files.AddFile(L"C:\\src\\a", "a", kTime);
    files.AddFile(
        L"C:\\doc.qlmr",
        "<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>"
        "<Dst><Folder>D:\\dst</Folder><Type>FOLDER</Type><Pattern>copy</Pattern></Dst>"
        "<Dst><Folder>D:\\dst</Folder><Type>AES_256_ZIP</Type><Pattern>all.zip</Pattern></Dst></Dsts>"
        "<Tasks><Task><Id>plain</Id><Path>C:\\src</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task>"
        "<Task><Id>zip</Id><Path>C:\\src</Path><Dsts><Dst>1</Dst></Dsts><FilterPath/></Task>"
        "<Task><Id>none</Id><Path>C:\\src</Path><Dsts/><FilterPath/></Task></Tasks></QuillmoorDoc>",
        kTime);
    console.terminal = true;
    threads.eager = true;
  }

  int Run(std::vector<std::wstring> arguments) {
    console.output.clear();
    console.errors.clear();
    arguments.push_back(L"C:\\doc.qlmr");
    const qlm::CParsedOptions parsed = qlm::ParseOptions(arguments, texts);
    if (parsed.exitCode >= 0) return parsed.exitCode;
    const qlm::CRunnerPorts runner{ports, dom, threads, console, folders, power};
    if (parsed.options.history) return qlm::ShowHistory(runner, parsed.options);
    outcome = qlm::RunDocument(runner, parsed.options);
    return outcome.exitCode;
  }

  // Returns the title of the notification of the last run, or an empty text.
  std::wstring Notice() const {
    const auto notice = qlm::NoticeOf(texts, L"C:\\doc.qlmr", outcome);
    return notice ? notice->title : std::wstring();
  }

  // Returns the output that clears a progress line of this length.
  static std::wstring Wiped(size_t length) { return L"\r" + std::wstring(2 * length, L' ') + L"\r"; }

  test::CPugiDom dom;
  test::CManualThreads threads;
  test::CFakeConsole console;
  test::CFakeFolders folders;
  test::CFakePower power;
  qlm::CRunOutcome outcome;
};

TEST_F(Runner, progress_line_on_a_terminal_is_cleared_before_rows) {
  EXPECT_EQ(Run({L"--task", L"plain"}), qlm::kExitDone);
  const std::wstring running = L"1 / 1  実行中  0:00  .";
  const std::wstring ended = L"1 / 1  正常終了  0:00  ";
  EXPECT_EQ(console.output, L"plain | D:\\dst\\copy | 正常終了 - バックアップが作成されました\n" + running +
                                Wiped(running.size()) + ended + Wiped(ended.size()) +
                                L"正常終了 - 結果 1 件、エラー 0 件\n");
  console.terminal = false;
  Run({L"--task", L"plain"});
  EXPECT_FALSE(Has(console.output, L"\r")) << "no progress in a file";
  console.terminal = true;
  Run({L"--task", L"plain", L"--quiet"});
  EXPECT_EQ(console.output, L"");
  files.Remove(L"C:\\src");
  EXPECT_EQ(Run({L"--task", L"plain", L"--quiet"}), qlm::kExitErrors);
  EXPECT_TRUE(console.output.starts_with(L"plain | C:\\src | ")) << "the source, while there is no name yet";
  EXPECT_TRUE(console.output.ends_with(L"\n    対処: " + texts.Text(IDS_REMEDY_NO_SOURCE) + L"\n"));
}

TEST_F(Runner, json_has_a_line_for_progress_rows_and_the_end) {
  const std::wstring end = L"{\"event\":\"end\",\"state\":375,\"rows\":1,\"errors\":0}\n";
  Run({L"--json", L"--task", L"plain"});
  EXPECT_EQ(
      console.output,
      L"{\"event\":\"row\",\"task\":\"plain\",\"destination\":\"D:\\\\dst\\\\copy\",\"type\":\"FOLDER\","
      L"\"phase\":439,\"message\":\"正常終了 - バックアップが作成されました\",\"error\":0,\"remedy\":\"\","
      L"\"newest\":\"2016-03-05T07:04:09Z\",\"entries\":1,\"counted\":1,\"excluded\":0}\n"
      L"{\"event\":\"progress\",\"done\":0,\"total\":1,\"elapsed_ms\":25,\"state\":372}\n" +
          end);
  Run({L"--json", L"--quiet", L"--task", L"plain"});
  EXPECT_EQ(console.output, end);
  files.Remove(L"C:\\src");
  Run({L"--json", L"--quiet", L"--task", L"plain"});
  EXPECT_TRUE(Has(console.output, L"\"error\":465,\"remedy\":\"対処: "));
  EXPECT_EQ(Notice(), texts.Text(IDS_SCHEDULE_FAILED_RUN));
}

TEST_F(Runner, interrupt_stops_the_run_after_the_current_step) {
  console.interrupted = true;
  EXPECT_EQ(Run({L"--json", L"--task", L"plain"}), qlm::kExitStopped);
  EXPECT_TRUE(console.output.ends_with(L"\"state\":374,\"rows\":1,\"errors\":0}\n")) << console.output;
  EXPECT_EQ(Notice(), L"");
}

TEST_F(Runner, run_that_cannot_start_writes_nothing) {
  EXPECT_EQ(Run({L"--task", L"none"}), qlm::kExitUnusable);
  EXPECT_EQ(console.errors, L"実行するタスクが１つもありません\n");
  EXPECT_EQ(Run({L"--test", L"--task", L"none"}), qlm::kExitDone)
      << "a task may be listed without a destination";
  EXPECT_EQ(Run({}), qlm::kExitUnusable) << "no password";
  EXPECT_EQ(Run({L"--password-stdin"}), qlm::kExitUnusable) << "no line to read";
  EXPECT_EQ(console.errors, texts.Text(IDS_PASSWORD_NEEDED) + L"\n");
  console.input = {L"a b"};
  EXPECT_EQ(Run({L"--password-stdin"}), qlm::kExitUnusable);
  EXPECT_EQ(console.errors, texts.Text(IDS_PASSWORD_BAD_CHARACTER) + L"\n");
  console.input = {L"p\xFFFD"};
  EXPECT_EQ(Run({L"--password-stdin"}), qlm::kExitUnusable);
  EXPECT_EQ(outcome.failure, texts.Text(IDS_PASSWORD_NOT_UTF8));
  EXPECT_EQ(Notice(), texts.Text(IDS_SCHEDULE_NOT_RUN)) << "the history has no such run";
  EXPECT_EQ(Run({L"--settings", L"C:\\missing.config"}), qlm::kExitUnusable);
  EXPECT_TRUE(Has(console.errors, L"C:\\missing.config"));
  EXPECT_EQ(Run({L"--unknown"}), qlm::kExitUnusable);
  EXPECT_EQ(files.Kind(L"D:\\dst"), my::PathKind::None);
  EXPECT_TRUE(process.Starts().empty());
}

TEST_F(Runner, archiver_and_password_come_from_options_or_settings) {
  console.input = {L"p1"};
  std::vector<std::wstring> callsBefore;
  process.OnRun([&](const my::CProcessStart&) { return callsBefore = power.calls, 0; });
  Run({L"--task", L"zip", L"--password-stdin", L"--7z", L"C:\\opt.exe"});
  ASSERT_EQ(process.Starts().size(), 1u);
  EXPECT_EQ(callsBefore, std::vector<std::wstring>{L"KeepAwake"}) << "the computer is kept awake";
  EXPECT_EQ(power.calls, (std::vector<std::wstring>{L"KeepAwake", L"LetSleep"}));
  EXPECT_EQ(process.Starts()[0].program, L"C:\\opt.exe");
  EXPECT_TRUE(process.Starts()[0].arguments.starts_with(L"a -mem=AES256 -ssw -pp1 D:\\dst\\_tmp_all.zip @"));

  const std::wstring settings = L"C:\\Roaming\\Tenkowa\\Quillmoor\\Quillmoor32.config";
  files.AddFile(settings, "not XML", kTime);
  EXPECT_EQ(Run({L"--task", L"zip"}), qlm::kExitUnusable) << "a damaged settings file is an error";
  EXPECT_TRUE(Has(console.errors, settings));
  EXPECT_EQ(Run({L"--task", L"plain"}), qlm::kExitDone) << "unless it is not needed";

  qlm::CSettings stored(1);
  stored.archive.sevenZipPath = L"C:\\set.exe";
  qlm::SaveSettings(files, clock, dom, settings, stored);
  const std::string bytes = files.Files().at(settings);
  files.AddFile(settings, bytes.substr(0, bytes.find("<UI>")) + "</QuillmoorSetting>", kTime);
  console.input = {L"p1"};
  Run({L"--task", L"zip", L"--password-stdin"});
  EXPECT_TRUE(Has(process.Starts().back().arguments, L" -pp1 "));
  EXPECT_EQ(process.Starts().back().program, L"C:\\set.exe") << "later groups are not needed";
  EXPECT_TRUE(console.errors.starts_with(L"警告: 設定ファイルが途中まで"));
  EXPECT_TRUE(Has(console.errors, L"UI\n\n"));
  stored.archive.passwordType = qlm::PasswordType::SAVE;
  stored.archive.password = L"p2";
  qlm::SaveSettings(files, clock, dom, L"C:\\other.config", stored);
  Run({L"--task", L"zip", L"--settings", L"C:\\other.config"});
  EXPECT_TRUE(Has(process.Starts().back().arguments, L" -pp2 "));
}

TEST_F(Runner, filter_that_excludes_everything_shows_its_counts) {
  files.AddFile(L"C:\\all.flt", "- .", kTime);
  std::string document = files.Files().at(L"C:\\doc.qlmr");
  document.replace(document.find("<FilterPath/>"), 13, "<FilterPath>C:\\all.flt</FilterPath>");
  files.AddFile(L"C:\\doc.qlmr", document, kTime);
  EXPECT_EQ(Run({L"--task", L"plain"}), qlm::kExitErrors);
  const my::CMsgArg counts[] = {L"1", L"0", L"0", L"1"};
  EXPECT_TRUE(Has(console.output, L" | " + my::MakeText(texts, IDS_COUNTS, counts)));
}

TEST_F(Runner, unreadable_folder_causes_a_warning) {
  files.AddFolder(L"C:\\src\\locked");
  files.FailAt(test::Op::FIND, 2, my::kErrorAccessDenied);
  EXPECT_EQ(Run({L"--task", L"plain"}), qlm::kExitDone);
  EXPECT_EQ(console.errors,
            L"警告: 読み取れなかったため、バックアップに含まれないフォルダーがあります - C:\\src\\locked\\ "
            L"(system error (0x80070005))\n");
  EXPECT_EQ(Notice(), texts.Text(IDS_SCHEDULE_LACKS_FOLDERS));
  files.FailAt(test::Op::FIND, 2, my::kErrorAccessDenied);
  Run({L"--task", L"plain"});
  EXPECT_EQ(Notice(), L"") << "no backup was created";
}

TEST_F(Runner, history_has_runs_and_last_success_but_no_password) {
  const std::wstring file = L"C:\\Roaming\\Tenkowa\\Quillmoor\\QuillmoorHistory.jsonl";
  EXPECT_EQ(Run({L"--test", L"--task", L"plain"}), qlm::kExitDone);
  EXPECT_EQ(files.Kind(file), my::PathKind::None) << "a test run backs up nothing";
  Run({L"--task", L"plain"});
  process.OnRun([](const my::CProcessStart&) { return 2u; });
  console.input = {L"secret9"};
  EXPECT_EQ(Run({L"--task", L"zip", L"--password-stdin", L"--7z", L"C:\\7z.exe"}), qlm::kExitErrors);
  EXPECT_FALSE(Has(files.Files().at(file), "secret9"));
  EXPECT_EQ(Run({L"--history"}), qlm::kExitDone);
  const std::wstring time = L"2016/03/05 07:04:09";
  EXPECT_TRUE(
      console.output.starts_with(time + L" - " + time +
                                 L" | コマンド | C:\\doc.qlmr | 正常終了 - 作成 0、スキップ 0、エラー "
                                 L"1、中断 0、読み取れなかったフォルダー 0\n    zip | D:\\dst\\all.zip | "));
  EXPECT_TRUE(Has(console.output,
                  L"    plain | D:\\dst\\copy | 作成 | 1 ファイル、1 バイト\n最終成功\n"
                  L"    C:\\doc.qlmr | plain | " +
                      time + L"\n    C:\\doc.qlmr | zip | 成功した実行はありません\n"));
  files.AddFile(file, files.Files().at(file) + "torn");
  EXPECT_EQ(Run({L"--history", L"--json"}), qlm::kExitDone);
  EXPECT_EQ(console.errors, L"警告: 履歴に読み取れない行が 1 行あり、無視しました - " + file + L"\n");
  EXPECT_TRUE(Has(console.output,
                  L"{\"event\":\"task\",\"document\":\"C:\\\\doc.qlmr\",\"task\":\"plain\","
                  L"\"last_success\":\"2016-03-05T07:04:09Z\",\"overdue\":false}\n"));
  EXPECT_TRUE(console.output.ends_with(L"\"runs\":2,\"damaged\":1}\n"));
  EXPECT_EQ(Run({L"--history", L"--test"}), qlm::kExitUnusable);
}

TEST_F(Runner, history_that_cannot_be_written_leaves_the_result) {
  folders.failure = my::CException(IDS_SETTINGS_LOCATION_FAILED, {my::CSystemError::FromWin32(5)});
  EXPECT_EQ(Run({L"--task", L"plain"}), qlm::kExitDone);
  EXPECT_TRUE(console.errors.starts_with(L"警告: この実行を履歴に記録できませんでした - "));
  EXPECT_TRUE(console.output.ends_with(L"正常終了 - 結果 1 件、エラー 0 件\n"));
}

TEST_F(Runner, plan_shows_rows_and_advice_and_creates_nothing) {
  files.AddFile(L"C:\\7z.exe", "");
  EXPECT_EQ(Run({L"--plan", L"--task", L"plain"}), qlm::kExitDone);
  EXPECT_EQ(console.output,
            L"D:\\dst | 警告: "
            L"名前に日付も時刻もないため、最初のバックアップのあとは、変更があっても常にスキップされ"
            L"ます - copy\n"
            L"plain: C:\\src（1 ファイル、1 バイト）\n"
            L"    名前の日時 2016/03/05 07:04:09: a\n"
            L"    除外する場合はフィルターの先頭に: - \"^a$\"\n"
            L"    作成 | D:\\dst\\copy | 空き 1.0 TB\n"
            L"計画 - 作成 1 件、スキップ 0 件、エラー 0 件、実行されない 0 件\n");
  EXPECT_EQ(Run({L"--plan", L"--quiet", L"--7z", L"C:\\7z.exe"}), qlm::kExitDone) << "no password is needed";
  EXPECT_EQ(console.output, L"");
  EXPECT_EQ(Run({L"--plan", L"--json", L"--quiet"}), qlm::kExitErrors) << "no archiver";
  EXPECT_TRUE(Has(console.output,
                  L"\"kind\":\"no_archiver\",\"severity\":\"error\",\"task\":null,\"folder\":\"D:\\\\dst\""));
  EXPECT_TRUE(Has(console.output, L"\"type\":\"AES_256_ZIP\",\"action\":\"error\",\"error\":58563"));
  Run({L"--plan", L"--json"});
  EXPECT_TRUE(Has(console.output, L"\"kind\":\"no_password\",\"severity\":\"warning\""));
  Run({L"--plan", L"--json", L"--password-stdin"});
  EXPECT_FALSE(Has(console.output, L"no_password"));
  EXPECT_TRUE(console.output.ends_with(
      L"{\"event\":\"end\",\"created\":1,\"skipped\":0,\"errors\":1,\"not_reached\":0}\n"));
  EXPECT_EQ(files.Kind(L"D:\\dst"), my::PathKind::None);
  EXPECT_TRUE(process.Starts().empty());
  console.interrupted = true;
  EXPECT_EQ(Run({L"--plan"}), qlm::kExitStopped);
  EXPECT_EQ(Run({L"--plan", L"--test"}), qlm::kExitUnusable);
}

TEST_F(Runner, wrong_options_are_explained_in_the_language_of_the_program) {
  const std::pair<std::vector<std::wstring>, std::wstring> cases[] = {
      {{}, L"ドキュメントを指定してください"},
      {{L"a", L"--wrong", L"b"}, L"引数です: --wrong b"},
      {{L"a", L"--task"}, L"指定してください: --task"},
      {{L"a", L"--7z", L"b", L"--7z=c"}, L"指定してください: --7z"},
      {{L"a", L"--json=b"}, L"指定できません: --json"},
      {{L"a", L"--plan", L"--test"}, L"指定できません: --test, --plan"},
      {{L"--history", L"--quiet"}, L"指定できません: --quiet, --history"},
  };
  for (const auto& [arguments, expected] : cases) {
    const std::wstring text = qlm::ParseOptions(arguments, texts).text;
    EXPECT_TRUE(Has(text, expected + L"\n使い方は"));
  }
}

}  // namespace
