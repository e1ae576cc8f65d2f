#include "app/command_line.h"
#include "app/diagnostics.h"
#include "command_ids.h"
#include "history/history_file.h"
#include "support/fake_app.h"
#include "support/thrown.h"

namespace {

using namespace qlm;
using namespace test;

constexpr RunState kStates[] = {RunState::NotRun, RunState::Running, RunState::Stopping, RunState::Stopped,
                                RunState::Ended};

class Commands : public testing::Test {
 protected:
  Commands() {
    content.dsts.Append(MakeDst(L"D:\\b"));
    content.dsts.Append(MakeDst(L"D:\\z", DstType::AES_256_ZIP, L"<ID>.zip"));
    content.tasks.Append(MakeTask(L"plain", {content.dsts[0]}));
    content.tasks.Append(MakeTask(L"secret", {content.dsts[1]}));
    content.tasks.Append(MakeTask(L"idle"));
  }

  // Starts the program with a saved document, and a run in this state.
  void StartIn(RunState state, bool modified = false) {
    a.dialogs.buttons.clear();
    a.files.Remove(kSettingsFile);
    a.files.Remove(L"D:\\");
    a.files.AddFolder(L"D:\\");
    a.Start();
    a.app->Settings().archive = {L"C:\\7-Zip\\7z.exe", PasswordType::SAVE, true, L"pw", ""};
    a.app->Document().Reset(content, L"C:\\doc.qlmr");
    if (modified) a.Fill(content);
    if (state == RunState::NotRun) return;
    a.Do(ID_RUN);
    if (state == RunState::Stopping || state == RunState::Stopped) a.Do(ID_RUN);
    if (state == RunState::Stopped || state == RunState::Ended) a.EndRun();
    ASSERT_EQ(a.State(), state);
  }

  CFakeApp a;
  CContent content;
};

// 464 during a run, 470 while the replace tool is open.
TEST_F(Commands, each_command_is_refused_in_the_states_that_forbid_it) {
  struct CCase {
    uint32_t id;
    bool duringRun;      // allowed during a run
    bool duringReplace;  // allowed while the replace dialog is open
  };
  const CCase kCases[] = {
      {ID_RUN, true, false},         {ID_RUN_POWER_OFF, false, false}, {ID_POWER_OFF, true, true},
      {ID_NEW, false, false},        {ID_OPEN, false, false},          {ID_ADD_FILE, false, false},
      {ID_SAVE, false, false},       {ID_SAVE_AS, false, false},       {ID_REPLACE, false, true},
      {ID_SETTINGS, true, true},     {ID_DESIGN, true, true},          {ID_TASK_TARGETS, false, false},
      {ID_EXPLORER_SRC, true, true}, {ID_EXPLORER_DST, true, true},    {ID_HOME_PAGE, true, true},
      {ID_USAGE_PAGE, true, true},   {ID_MRU_FIRST, false, false},     {ID_RUN_SELECTED, false, false},
      {ID_PLAN, false, false},       {ID_PLAN_SELECTED, false, false}};
  for (const RunState state : kStates) {
    for (const bool modified : {false, true}) {
      for (const bool replacing : {false, true}) {
        StartIn(state, modified);
        a.app->Settings().ui.mruPathes.Add(L"C:\\recent.qlmr");
        a.window.tasks.focused = a.window.dsts.focused = 0;
        a.window.tasks.selected = {0};
        const bool active = a.app->Run().IsActive();
        if (replacing) a.app->Replace().Show();
        for (const CCase& c : kCases) {
          const bool enabled = (!active || c.duringRun) && (!replacing || c.duringReplace);
          EXPECT_EQ(a.app->IsEnabled(c.id), enabled)
              << c.id << " in " << NameOf(state) << (replacing ? " replacing" : "");
          if (enabled) continue;
          a.TakeBoxes();
          a.Do(c.id);  // refused for the same reason, with a message box
          const bool starts = c.id == ID_RUN || c.id == ID_RUN_POWER_OFF || c.id == ID_RUN_SELECTED;
          const bool runFirst = active && !starts && !c.duringRun;
          const uint32_t reason =
              runFirst || !replacing ? IDS_REFUSED_DURING_RUN : IDS_REFUSED_DURING_REPLACE;
          EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(reason) + L"\n") << c.id << " in " << NameOf(state);
        }
        EXPECT_EQ(a.State(), state) << "checking does not start or stop a run";
        EXPECT_EQ(a.app->Document().IsModified(), modified);
        EXPECT_EQ(a.app->Document().Tasks().size(), 3u);
      }
    }
  }
}

TEST_F(Commands, run_command_toggles_and_creates_a_job_per_task_with_destinations) {
  StartIn(RunState::NotRun);
  const CBackupThread& run = a.app->Run();
  EXPECT_EQ(run.StatusText(), L"");
  a.Do(ID_RUN);
  EXPECT_EQ(a.State(), RunState::Running);
  EXPECT_EQ(run.Progress().range, 2u);
  EXPECT_TRUE(a.window.timer);
  a.EndRun();
  EXPECT_EQ(run.Progress().position, 2u);
  EXPECT_EQ(a.State(), RunState::Ended);
  EXPECT_FALSE(a.window.timer);
  ASSERT_EQ(a.window.results.size(), 2u) << "the idle task has no row";
  EXPECT_EQ(a.window.results[1]->phase, Phase::Created);
  EXPECT_EQ(a.process.Starts().back().arguments.find(L"a -mem=AES256 -ssw -ppw "), 0u);
  EXPECT_EQ(a.process.Starts().back().program, L"C:\\7-Zip\\7z.exe");
  EXPECT_EQ(a.window.states, 2);
  a.Do(ID_RUN);
  EXPECT_TRUE(a.window.results.empty() && a.app->Run().RowCount() == 0) << "rows of the run before";
  const int statuses = a.window.statuses;
  a.app->OnTimer();
  EXPECT_EQ(a.window.statuses, statuses + 1);
  a.Do(ID_RUN);
  EXPECT_EQ(a.State(), RunState::Stopping);
  a.Do(ID_RUN);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_ALREADY_STOPPING) + L"\n");
  a.EndRun();
  EXPECT_EQ(a.State(), RunState::Stopped);

  a.threads.fail = true;
  a.Do(ID_RUN);
  EXPECT_NE(a.TakeBoxes().find(L"スレッドの開始に失敗しました"), std::wstring::npos);
  EXPECT_EQ(a.State(), RunState::Stopped);
  a.threads.fail = false;
  content.tasks = {};
  content.tasks.Append(MakeTask(L"idle"));
  a.Fill(content);
  const auto refusal = [this](uint32_t next) {
    return L"エラー: " + a.Text(IDS_NO_TASKS) + L"\n\n" + a.Text(next) + L"\n";
  };
  a.Do(ID_RUN);
  EXPECT_EQ(a.TakeBoxes(), refusal(IDS_NO_TASKS_CHECK_DST));
  a.Fill({});
  a.Do(ID_RUN);
  EXPECT_EQ(a.TakeBoxes(), refusal(IDS_NEXT_ADD_TASK));
}

TEST_F(Commands, selected_tasks_run_alone_and_only_their_destinations_ask_for_a_password) {
  StartIn(RunState::NotRun);
  a.app->Settings().archive.password.clear();
  a.Do(ID_RUN_SELECTED);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_SELECT_TASKS) + L"\n");
  EXPECT_EQ(a.window.tasks.focusCount, 1);
  for (size_t row = 0; row < content.tasks.size(); ++row) {
    const CTask& task = *content.tasks[row];
    a.window.tasks.selected = {row};
    a.dialogs.passwords = {L"pw"};
    const int asked = a.dialogs.passwordDialogs;
    a.Do(ID_RUN_SELECTED);
    if (task.dsts.empty()) {
      EXPECT_NE(a.TakeBoxes().find(a.Text(IDS_NO_TASKS_CHECK_DST)), std::wstring::npos);
      continue;
    }
    EXPECT_EQ(a.dialogs.passwordDialogs - asked, AnyDst({content.tasks[row]}, NeedsPassword));
    a.app->Settings().archive.password.clear();
    a.EndRun();
    ASSERT_EQ(a.window.results.size(), task.dsts.size());
    EXPECT_EQ(a.window.results[0]->task->id, task.id);
  }
}

TEST_F(Commands, ended_run_is_recorded_and_a_failure_of_it_is_shown_beside_the_result) {
  StartIn(RunState::NotRun);
  const std::wstring file = HistoryPath(a.folders, a.texts);
  a.Do(ID_RUN);
  EXPECT_EQ(a.files.Kind(file), my::PathKind::None);
  a.EndRun();
  const CHistory history = LoadHistory(a.files, a.clock, file);
  ASSERT_EQ(history.runs.size(), 1u);
  EXPECT_EQ(history.runs[0].program, RunProgram::WINDOW);
  EXPECT_EQ(history.runs[0].document, L"C:\\doc.qlmr");
  EXPECT_EQ(CountRows(history.runs[0]).created, 2u);
  a.folders.failure = my::CException(IDS_SETTINGS_LOCATION_FAILED, {my::CSystemError::FromWin32(5)});
  a.Do(ID_RUN);
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_EQ(a.State(), RunState::Stopped);
  EXPECT_NE(a.app->HistoryFailure(), L"");
  EXPECT_EQ(a.TakeBoxes(), L"") << "a box would keep the computer from being switched off";
  a.Do(ID_RUN);
  EXPECT_EQ(a.app->HistoryFailure(), L"");
  a.EndRun();
  a.folders.failure.reset();
}

TEST_F(Commands, missing_archiver_is_reported_before_the_password_is_asked_for) {
  StartIn(RunState::NotRun);
  CArchiveSetting& archive = a.app->Settings().archive;
  archive.password.clear();
  for (const wchar_t* path : {L"", L"C:\\7-Zip\\moved.exe"}) {
    archive.sevenZipPath = path;
    a.Do(ID_RUN);
    EXPECT_EQ(a.TakeBoxes(), L"確認: " + a.Text(IDS_ASK_NO_ARCHIVER) + L"\n");
    EXPECT_TRUE(a.dialogs.passwordDialogs == 0 && a.State() == RunState::NotRun) << "cancelled";
  }
  a.dialogs.buttons = {true};
  a.dialogs.passwords = {L"pw"};
  a.Do(ID_RUN);
  EXPECT_EQ(a.dialogs.passwordDsts, (CTaskDsts{content.dsts[1]})) << "only those with a password";
  a.EndRun();
}

TEST_F(Commands, test_run_lists_the_focused_task_and_asks_for_no_password) {
  StartIn(RunState::NotRun);
  a.app->Settings().archive.password.clear();
  a.Do(ID_TASK_TARGETS);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_NO_ITEM_SELECTED) + L"\n");
  EXPECT_EQ(a.window.tasks.focusCount, 1);
  a.window.tasks.focused = 1;
  a.Do(ID_TASK_TARGETS);
  a.EndRun();
  ASSERT_EQ(a.window.results.size(), 1u);
  EXPECT_TRUE(a.app->Run().IsListOnly() && a.app->Run().Total() == 1);
  EXPECT_EQ(a.window.results[0]->phase, Phase::Listed);
  EXPECT_EQ(a.window.results[0]->destinationPath, L"D:\\z\\secret.zip");
  EXPECT_EQ(a.dialogs.passwordDialogs, 0);
  EXPECT_EQ(a.files.Kind(L"D:\\z"), my::PathKind::None);
}

TEST_F(Commands, password_type_decides_when_to_ask) {
  const auto runs = [this](std::deque<std::wstring> typed) {
    a.dialogs.passwords = std::move(typed);
    const int before = a.dialogs.passwordDialogs;
    a.files.Remove(L"D:\\z");
    a.Do(ID_RUN);
    a.EndRun();
    return a.dialogs.passwordDialogs - before;
  };
  const auto stored = [this] { return a.app->Settings().archive.password; };
  StartIn(RunState::NotRun);
  EXPECT_EQ(runs({}), 0) << "a stored password";
  a.app->Settings().archive = {L"C:\\7-Zip\\7z.exe", PasswordType::EXEC_ONCE, true, L"", ""};
  EXPECT_EQ(runs({}), 1) << "cancelled";
  EXPECT_EQ(a.State(), RunState::Ended) << "from the previous run";
  EXPECT_EQ(runs({L"", L"a b", L"a\"b", L"abc"}), 1);
  EXPECT_EQ(a.dialogs.refusals, (std::vector<uint32_t>{IDS_PASSWORD_EMPTY, IDS_PASSWORD_BAD_CHARACTER,
                                                       IDS_PASSWORD_BAD_CHARACTER}));
  EXPECT_EQ(a.app->Settings().archive.passwordHash.substr(0, 4), "\x90\x01\x50\x98");
  EXPECT_EQ(runs({}), 0) << "kept for the session";
  EXPECT_EQ(a.TakeBoxes(), L"") << "the first password is not compared";

  a.app->Settings().archive.passwordType = PasswordType::EXEC;
  my::Wipe(a.app->Settings().archive.password);
  a.dialogs.buttons = {false, true};
  EXPECT_EQ(runs({L"ébc", L"xyz"}), 1) << "a different password, cancelled, then another one";
  const std::wstring differs = L"確認: " + a.Text(IDS_ASK_PASSWORD_DIFFERS) + L"\n";
  EXPECT_EQ(a.TakeBoxes(), differs + differs);
  EXPECT_EQ(stored(), L"");
  EXPECT_EQ(runs({L"xyz"}), 1);
  EXPECT_EQ(a.TakeBoxes(), L"");
  EXPECT_NE(a.process.Starts().back().arguments.find(L"-pxyz "), std::wstring::npos);

  a.hash.failure = my::CException(IDS_HASH_DATA_FAILED, {my::CSystemError::FromWin32(5)});
  const size_t archives = a.process.Starts().size();
  EXPECT_EQ(runs({L"abc"}), 1);
  EXPECT_NE(a.TakeBoxes().find(L"エラー: ハッシュデータの追加に失敗しました"), std::wstring::npos);
  EXPECT_EQ(a.process.Starts().size(), archives) << "the run is not started";
  a.app->Settings().archive.password = L"from a hand-made file";
  EXPECT_EQ(runs({}), 0);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_PASSWORD_BAD_CHARACTER) + L"\n");
  content.tasks.Remove(1);
  a.Fill(content);
  EXPECT_EQ(runs({}), 0) << "no destination needs it";
  EXPECT_EQ(a.TakeBoxes(), L"");
}

TEST_F(Commands, power_off_follows_only_a_requested_run_without_errors) {
  const auto powersOff = [this](uint32_t id, bool stop = false) {
    a.power.calls.clear();
    a.Do(id);
    if (stop) a.Do(ID_RUN);
    a.EndRun();
    return !a.power.calls.empty();
  };
  StartIn(RunState::NotRun);
  EXPECT_FALSE(powersOff(ID_RUN));
  EXPECT_FALSE(powersOff(ID_RUN_POWER_OFF, true));
  EXPECT_TRUE(powersOff(ID_RUN_POWER_OFF));
  EXPECT_FALSE(powersOff(ID_RUN)) << "the request ends with its run";
  a.Do(ID_RUN_POWER_OFF);
  EXPECT_TRUE(a.app->IsEnabled(ID_KEEP_POWER));
  a.power.calls.clear();
  a.Do(ID_KEEP_POWER);
  EXPECT_FALSE(a.app->IsEnabled(ID_KEEP_POWER));
  a.EndRun();
  EXPECT_TRUE(a.State() == RunState::Ended && a.power.calls.empty()) << "taken back during the run";
  a.Fill(content);
  EXPECT_FALSE(powersOff(ID_RUN_POWER_OFF)) << "unsaved edits are not lost without a question";
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + a.Text(IDS_ASK_DISCARD) + L"\n");
  a.app->Document().Reset(content, L"C:\\doc.qlmr");
  a.files.Remove(L"C:\\src");
  EXPECT_FALSE(powersOff(ID_RUN_POWER_OFF)) << "an error";
  EXPECT_EQ(a.State(), RunState::Ended);
}

TEST_F(Commands, late_record_blocks_no_window_but_comes_before_power_off_and_exit) {
  const auto records = [this] {
    const auto files = a.files.Files();
    const auto found = files.find(L"C:\\Roaming\\Tenkowa\\Quillmoor\\QuillmoorHistory.jsonl");
    return found == files.end() ? 0 : std::count(found->second.begin(), found->second.end(), '\n');
  };
  StartIn(RunState::NotRun);
  a.threads.hang = true;  // another program writes the history
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_TRUE(a.State() == RunState::Ended && records() == 0 && a.window.timer);
  a.EndRun();
  EXPECT_TRUE(records() == 1 && !a.window.timer);
  a.power.calls.clear();
  a.power.onSessionEnd = [&] { EXPECT_EQ(records(), 2); };
  a.Do(ID_RUN_POWER_OFF);
  a.EndRun();
  EXPECT_FALSE(a.power.calls.empty());
  a.Do(ID_RUN);
  a.EndRun();
  a.app.reset();
  EXPECT_EQ(records(), 3);
}

TEST_F(Commands, power_off_passes_the_flags_of_the_settings) {
  StartIn(RunState::NotRun);
  CUISetting& ui = a.app->Settings().ui;
  const std::wstring message = L"ShutDown \"コンピューターの電源を切ります\" 0 ";
  const struct {
    PowerOffType type;
    bool hybrid, updates;
    std::wstring call;
  } kCases[] = {{PowerOffType::LOGOFF, true, true, L"EndSession 0x00000010 0x00000000"},
                {PowerOffType::SLEEP, true, true, L"SetSuspendState 0 0 0"},
                {PowerOffType::HIBERNATE, true, true, L"SetSuspendState 1 0 0"},
                {PowerOffType::POWEROFF, true, true, message + L"0x00000248 0x80040000"},
                {PowerOffType::POWEROFF, false, true, message + L"0x00000048 0x80040000"},
                {PowerOffType::POWEROFF, false, false, message + L"0x00000008 0x80040000"}};
  for (const auto& c : kCases) {
    ui.powerOffType = c.type;
    ui.hybridShutdown = c.hybrid;
    ui.installUpdates = c.updates;
    a.power.calls.clear();
    a.Do(ID_POWER_OFF);
    EXPECT_EQ(a.power.calls, (std::vector<std::wstring>{L"EnablePrivilege SeShutdownPrivilege", c.call}));
    EXPECT_EQ(a.power.livePrivileges, 0);
  }
  a.power.actionCode = 5;
  const wchar_t* const kErrors[] = {L"サインアウトする", L"スリープする", L"休止状態にする", L"電源を切る"};
  for (int type = 0; type < 4; ++type) {
    ui.powerOffType = static_cast<PowerOffType>(type);
    a.Do(ID_POWER_OFF);
    EXPECT_NE(
        a.TakeBoxes().find(kErrors[type] + std::wstring(L"操作に失敗しました - system error (0x80070005)")),
        std::wstring::npos);
    EXPECT_EQ(a.power.livePrivileges, 0);
  }
  ui.powerOffType = static_cast<PowerOffType>(4);
  a.Do(ID_POWER_OFF);
  EXPECT_NE(a.TakeBoxes().find(L"Unkonwn PowerOff type: 4"), std::wstring::npos);

  StartIn(RunState::Running);
  a.power.calls.clear();
  a.Do(ID_POWER_OFF);
  EXPECT_TRUE(a.power.calls.empty());
  EXPECT_EQ(a.State(), RunState::Running) << "cancelled";
  a.dialogs.buttons = {true};
  a.dialogs.onBox = [this](const std::wstring&) { a.EndRun(); };  // while the question is open
  a.Do(ID_POWER_OFF);
  EXPECT_EQ(a.power.calls.size(), 2u);
  a.dialogs.onBox = nullptr;
}

TEST_F(Commands, documents_are_opened_saved_and_remembered) {
  StartIn(RunState::NotRun, true);
  CDocument& document = a.app->Document();
  const auto& recent = a.app->Settings().ui.mruPathes.Items();
  a.dialogs.paths = {L"C:\\one.qlmr"};
  a.Do(ID_SAVE_AS);
  EXPECT_EQ(a.shell.recent, L"C:\\one.qlmr");
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(a.dialogs.questions.back().dialog, FileDialog::SaveFile);
  EXPECT_EQ(a.dialogs.questions.back().defaultExtension, L"qlmr");
  a.Do(ID_NEW);
  EXPECT_TRUE(document.Tasks().empty() && document.Dsts().empty() && document.Path().empty());
  a.Do(ID_OPEN);
  EXPECT_EQ(a.dialogs.questions.back().initialPath, L"C:\\one.qlmr") << "of a new document: the latest";
  EXPECT_EQ(a.dialogs.questions.back().dialog, FileDialog::OpenFile);
  EXPECT_EQ(a.dialogs.questions.back().kinds.at(0).pattern, L"*.qlmr");
  EXPECT_EQ(a.dialogs.questions.back().kinds.at(1).pattern, L"*.xml");
  a.dialogs.paths = {L"C:\\one.qlmr"};
  a.Do(ID_OPEN);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  a.Do(ID_NEW);
  a.Fill(content);
  a.Do(ID_SAVE);
  EXPECT_EQ(document.Path(), L"") << "cancelled";
  a.dialogs.paths = {L"two.qlmr"};  // relative to the current folder
  a.Do(ID_SAVE);
  a.Fill(content);
  const size_t asked = a.dialogs.questions.size();
  a.Do(ID_SAVE);
  EXPECT_EQ(a.dialogs.questions.size(), asked) << "a document with a path is not asked for one";
  EXPECT_EQ(a.TakeBoxes(), L"");

  a.Fill({});
  a.Do(ID_MRU_FIRST + 1);  // cancelled by the user
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + a.Text(IDS_ASK_DISCARD) + L"\n");
  EXPECT_EQ(document.Path(), L"C:\\two.qlmr");
  a.dialogs.buttons = {true};
  a.Do(ID_MRU_FIRST + 1);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_EQ(recent, (std::vector<std::wstring>{L"C:\\one.qlmr", L"C:\\two.qlmr"}));
  a.TakeBoxes();

  a.files.AddFile(L"C:\\bad.qlmr", "<Quill");
  a.dialogs.paths = {L"C:\\bad.qlmr"};
  a.Do(ID_OPEN);
  EXPECT_NE(a.TakeBoxes().find(L"C:\\bad.qlmr"), std::wstring::npos);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_EQ(document.Tasks().size(), 3u);
  EXPECT_EQ(recent.size(), 2u);
  a.files.FailAt(Op::MOVE_OVER, 1);
  a.Fill({});
  a.Do(ID_SAVE);
  EXPECT_NE(a.TakeBoxes().find(L"system error (0x80070070)"), std::wstring::npos);
  EXPECT_TRUE(document.IsModified());

  a.Fill(content);
  a.dialogs.paths = {L"C:\\one.qlmr", L"C:\\one.qlmr"};
  a.Do(ID_ADD_FILE);
  EXPECT_EQ(document.Tasks().size(), 3u) << "the same document adds nothing";
  a.Fill({});
  a.Do(ID_ADD_FILE);
  EXPECT_EQ(document.Tasks().size(), 3u);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_TRUE(document.IsModified());
  CContent rest = content;
  rest.tasks.Remove(0);
  for (const size_t at : {2, 0, 1}) {  // the end if nothing is selected
    a.Fill(rest);
    a.dialogs.paths = {L"C:\\one.qlmr"};
    a.Do(ID_ADD_FILE);
    EXPECT_EQ(document.Tasks()[at]->id, L"plain");
    a.window.tasks.selected = at == 2 ? std::vector<size_t>{0, 1} : std::vector<size_t>{1};
  }
  a.Do(ID_MRU_FIRST + 2);
  EXPECT_NE(a.TakeBoxes().find(L"Mru index is out of range: 2"), std::wstring::npos);
  for (int i = 0; i < 30; ++i) {
    a.dialogs.paths = {L"C:\\n" + std::to_wstring(i) + L".qlmr"};
    a.Do(ID_SAVE_AS);
  }
  EXPECT_EQ(recent.size(), 20u);
}

TEST_F(Commands, file_manager_shows_the_focused_item_or_its_nearest_folder) {
  StartIn(RunState::NotRun);
  a.Do(ID_EXPLORER_DST);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_NO_ITEM_SELECTED) + L"\n");
  EXPECT_EQ(a.window.dsts.focusCount, 1);
  a.window.tasks.focused = a.window.dsts.focused = 0;
  a.files.AddFolder(L"D:\\b");
  for (const uint32_t id : {ID_EXPLORER_SRC, ID_EXPLORER_DST, ID_HOME_PAGE, ID_USAGE_PAGE}) a.Do(id);
  EXPECT_EQ(a.shell.calls,
            (std::vector<std::wstring>{L"Run EXPLORER.EXE /n,/select,\"C:\\src\"", L"Open D:\\b",
                                       L"Open https://example.com/quillmoor",
                                       L"Open " + a.folders.ProgramFolder() + L"\\manual\\ja\\index.html"}));
  a.shell.calls.clear();
  a.files.Remove(L"D:\\b");
  a.Do(ID_EXPLORER_DST);
  EXPECT_TRUE(a.shell.calls.empty()) << "cancelled";
  a.dialogs.buttons = {true, true};
  a.Do(ID_EXPLORER_DST);
  EXPECT_EQ(a.shell.calls, std::vector<std::wstring>{L"Open D:\\"});
  for (const std::wstring gone : {L"Q:\\x\\y", L"\\\\gone\\x"}) {
    content.dsts.Replace(0, MakeDst(gone));
    a.app->Document().Reset(content, L"");
    a.TakeBoxes();
    a.dialogs.buttons = {true};
    a.Do(ID_EXPLORER_DST);
    EXPECT_NE(a.TakeBoxes().find(L"(0x80070003)\n\n" + gone), std::wstring::npos)
        << "not the root of a drive";
  }

  a.threads.hang = true;  // like a share on a computer that is switched off
  a.shell.calls.clear();
  a.Do(ID_EXPLORER_DST);
  EXPECT_NE(a.TakeBoxes().find(L"もう一度実行してください\n\n\\\\gone\\x\n"), std::wstring::npos);
  a.threads.hang = false;
  a.Do(ID_EXPLORER_SRC);
  a.threads.Work();  // the abandoned lookup ends
  EXPECT_EQ(a.shell.calls, std::vector<std::wstring>{L"Run EXPLORER.EXE /n,/select,\"C:\\src\""});

  CAppContext& context = a.app->Context();
  EXPECT_EQ(ThrownId([&] { CCommandExplorer(context, L"", true).Execute(false); }), IDS_ID_LIST_EMPTY);
  a.shell.path = L"C:\\src\\a.txt";
  CCommandExplorer(context, my::CShellIdList(4), true).Execute(true);
  EXPECT_EQ(a.shell.calls.back(), L"Run EXPLORER.EXE /n,/select,\"C:\\src\\a.txt\"");

  a.window.tasks.focused = 2;
  a.Do(ID_TASK_TARGETS);
  a.EndRun();
  const CResult& row = *a.window.results[0];
  EXPECT_EQ(SourceOfTarget(row, *row.targets, 0), L"C:\\src\\a.txt");
  EXPECT_EQ(ThrownId([&] { BackupOfTarget(row, *row.targets, 0); }), IDS_NO_DESTINATION);
  EXPECT_EQ(ThrownId([&] { DestinationOf(a.window.results, 0); }), IDS_NO_DESTINATION);
}

TEST_F(Commands, settings_and_replace_open_their_dialogs) {
  StartIn(RunState::NotRun);
  a.Do(ID_SETTINGS);
  a.Do(ID_DESIGN);
  EXPECT_EQ(a.dialogs.settingsPages, (std::vector<bool>{false, true}));
  a.Do(ID_REPLACE);
  EXPECT_EQ(a.dialogs.replacesOpened, 1);
  a.Do(ID_REPLACE);
  EXPECT_EQ(a.dialogs.replaceFocuses, 1);
  a.dialogs.refuseToCancel = true;
  EXPECT_FALSE(a.app->OnClose()) << "the replace dialog stays, and so does the window";
  a.dialogs.refuseToCancel = false;
  EXPECT_TRUE(a.app->OnClose());
}

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
  EXPECT_NE(a.TakeBoxes().find(L"フォルダーの作成に失敗しました"), std::wstring::npos);
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
    a.dialogs.paths = {path};
    a.Do(ID_SAVE_AS);
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
  EXPECT_EQ(a.Start(L"q.exe \"--check-filter=a b.flt\"").Document().Path(), L"C:\\last.qlmr");
  EXPECT_TRUE(a.dialogs.filters.empty()) << "the window is not complete yet";
  ASSERT_EQ(a.window.posted.size(), 1u);
  a.Do(a.window.posted[0]);
  EXPECT_EQ(a.dialogs.filters, std::vector<std::wstring>{L"C:\\a b.flt|"});
  a.files.AddFile(L"C:\\last2.qlmr", a.files.Files().at(L"C:\\last.qlmr"));
  a.files.Remove(L"C:\\last.qlmr");
  EXPECT_TRUE(a.Start().Document().Path().empty());
  EXPECT_NE(a.TakeBoxes().find(L"C:\\last.qlmr"), std::wstring::npos);
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
  a.Do(ID_RUN);
  a.EndRun();
  const std::wstring text = DiagnosticsText(a.app->Context(), L"Windows", L"");
  EXPECT_NE(text.find(std::to_wstring(a.app->Run().Rows().at(0)->error.code)), text.npos);
  for (const wchar_t* const name : {L"plain", L"src", L"doc", L"D:", L"pw"})
    EXPECT_EQ(text.find(name), text.npos);
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
  EXPECT_NE(boxes.find(L"設定ファイル: " + kSettingsFile + L"\nXML"), std::wstring::npos) << "named once";
  EXPECT_NE(boxes.find(L"有無を確認できませんでした"), std::wstring::npos);
  EXPECT_NE(boxes.find(L"新しいバージョン用の設定ファイル"), std::wstring::npos);
  a.folders.failure = my::CException(IDS_PATH_EMPTY);
  a.Start();
  const my::CMsgArg reason = a.Text(IDS_PATH_EMPTY);
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + my::MakeText(a.texts, IDS_ASK_SETTINGS_ERROR, {&reason, 1}) + L"\n");
}

}  // namespace
