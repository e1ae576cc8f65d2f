#include "history/history_file.h"
#include "support/commands_fixture.h"

namespace {

using namespace qlm;
using namespace test;

constexpr RunState kStates[] = {RunState::NotRun, RunState::Running, RunState::Stopping, RunState::Stopped,
                                RunState::Ended};

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
  EXPECT_TRUE(Has(a.TakeBoxes(), L"スレッドの開始に失敗しました"));
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
      EXPECT_TRUE(Has(a.TakeBoxes(), a.Text(IDS_NO_TASKS_CHECK_DST)));
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
  a.RunToEnd();
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
  a.RunToEnd(ID_TASK_TARGETS);
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
    a.RunToEnd();
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
  EXPECT_TRUE(Has(a.process.Starts().back().arguments, L"-pxyz "));

  a.hash.failure = my::CException(IDS_HASH_DATA_FAILED, {my::CSystemError::FromWin32(5)});
  const size_t archives = a.process.Starts().size();
  EXPECT_EQ(runs({L"abc"}), 1);
  EXPECT_TRUE(Has(a.TakeBoxes(), L"エラー: ハッシュデータの追加に失敗しました"));
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
  a.RunToEnd();
  EXPECT_TRUE(a.State() == RunState::Ended && records() == 0 && a.window.timer);
  a.EndRun();
  EXPECT_TRUE(records() == 1 && !a.window.timer);
  a.power.calls.clear();
  a.power.onSessionEnd = [&] { EXPECT_EQ(records(), 2); };
  a.RunToEnd(ID_RUN_POWER_OFF);
  EXPECT_FALSE(a.power.calls.empty());
  a.RunToEnd();
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
    EXPECT_TRUE(
        Has(a.TakeBoxes(), kErrors[type] + std::wstring(L"操作に失敗しました - system error (0x80070005)")));
    EXPECT_EQ(a.power.livePrivileges, 0);
  }
  ui.powerOffType = static_cast<PowerOffType>(4);
  a.Do(ID_POWER_OFF);
  EXPECT_TRUE(Has(a.TakeBoxes(), L"Unkonwn PowerOff type: 4"));

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

}  // namespace
