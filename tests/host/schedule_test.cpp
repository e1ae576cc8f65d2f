#include "app/schedule_commands.h"
#include "schedule/schedules.h"
#include "support/fake_app.h"
#include "support/strings.h"
#include "ui/models/schedule_list_model.h"

namespace {

using namespace qlm;

constexpr my::CCalendar kStart{2026, 11, 23, 21, 5, 0};
const std::wstring kRunner = L"C:\\Program Files\\Quillmoor\\QuillmoorRun.exe";
const std::wstring kDocument = L"C:\\文書 & <仕事>\\日次.qlmr";

class Schedules : public testing::Test, protected test::CEngineDoubles {
 protected:
  Schedules() {
    files.AddFile(kRunner, "x");
    files.AddFile(kDocument, "x");
  }

  CDocumentSchedule Only() {
    const auto all = schedules.All();
    EXPECT_EQ(all.size(), 1U);
    return all.at(0);
  }

  void ReplaceIn(std::wstring& xml, const std::wstring& from, const std::wstring& to) {
    const size_t at = xml.find(from);
    ASSERT_NE(at, xml.npos) << my::Utf8FromWide(from);
    xml.replace(at, from.size(), to);
  }

  test::CPugiDom dom;
  test::CFakeScheduler scheduler;
  CSchedules schedules{{scheduler, dom, files, texts}, kRunner};
};

TEST_F(Schedules, are_read_as_written) {
  const CSchedule all[] = {{ScheduleKind::Once, kStart},
                           {ScheduleKind::Daily, kStart, 0, false, true},
                           {ScheduleKind::Weekly, kStart, 0b0100010, true, false},
                           {ScheduleKind::Logon},
                           {ScheduleKind::Idle, {}, 0, false, false}};
  for (const CSchedule& schedule : all) {
    SCOPED_TRACE(my::Utf8FromWide(ScheduleText(texts, schedule)));
    scheduler.tasks.clear();
    schedules.Add(kDocument, schedule);
    const CDocumentSchedule read = Only();
    EXPECT_EQ(read.read.schedule, schedule);
    EXPECT_EQ(read.read.run, (CScheduledRun{kRunner, kDocument}));
    EXPECT_EQ(read.fault, ScheduleFault::None);
    // A run must not be ended by the system.
    EXPECT_TRUE(test::Has(read.task.xml, L"<ExecutionTimeLimit>PT0S<"));
    EXPECT_TRUE(test::Has(read.task.xml, L"<StopIfGoingOnBatteries>false<"));
    EXPECT_TRUE(test::Has(read.task.xml, L"<StopOnIdleEnd>false<"));
  }
  EXPECT_EQ(ScheduleText(texts, all[2]), L"毎週 月 金 21:05");
}

TEST_F(Schedules, names_are_unique_also_among_those_of_other_users) {
  scheduler.names[L"Quillmoor - 日次"] = 1;
  schedules.Add(kDocument, {ScheduleKind::Logon});
  schedules.Add(L"D:\\other\\日次.qlmr", {ScheduleKind::Idle});
  EXPECT_EQ(SchedulesOf(schedules.All(), L"c:/文書 & <仕事>/日次.QLMR").size(), 1U);
  EXPECT_EQ(schedules.All().size(), 2U);
  for (int i = 1; i < 100; ++i) scheduler.names[L"Quillmoor - 日次 (" + std::to_wstring(i) + L")"] = 1;
  EXPECT_EQ(test::ThrownId([&] { schedules.Add(kDocument, {}); }), IDS_SCHEDULE_EXISTS_ALREADY);
}

// What somebody has changed in the Task Scheduler is shown as it is and kept.
TEST_F(Schedules, change_made_elsewhere_survives_a_mend) {
  schedules.Add(kDocument, {ScheduleKind::Daily, kStart});
  std::wstring& xml = scheduler.tasks.begin()->second.xml;
  ReplaceIn(xml, L"<ScheduleByDay>", L"<RandomDelay>PT5M</RandomDelay><ScheduleByDay>");
  EXPECT_FALSE(Only().read.schedule);
  schedules.Mend(Only(), L"D:\\moved.qlmr");
  EXPECT_EQ(Only().read.run.documentPath, L"D:\\moved.qlmr");
  EXPECT_TRUE(test::Has(Only().task.xml, L"RandomDelay"));
  ReplaceIn(xml, L"--scheduled", L"--other");
  EXPECT_TRUE(schedules.All().empty());
}

TEST_F(Schedules, of_an_uninstalled_copy_are_removed_but_not_those_of_another_copy_or_program) {
  struct CRefusing : test::CFakeScheduler {
    void Remove(const std::wstring& name) override {
      if (refuses && name == L"Quillmoor - 日次") throw my::CException(IDS_SCHEDULE_REMOVE_FAILED);
      CFakeScheduler::Remove(name);
    }
    bool refuses = true;
  } system;
  const CSchedulePorts ports{system, dom, files, texts};
  CSchedules installed{ports, L"c:\\program files\\Quillmoor\\QuillmoorRun.exe"};
  for (const std::wstring& runner : {kRunner, kRunner, std::wstring(L"D:\\copy\\QuillmoorRun.exe")})
    CSchedules(ports, runner).Add(kDocument, {ScheduleKind::Idle});
  system.Add(L"Quillmoor - x",
             L"<Task><Actions><Exec><Command>" + kRunner + L"</Command></Exec></Actions></Task>");
  EXPECT_EQ(test::ThrownId([&] { installed.RemoveOwn(); }), IDS_SCHEDULE_REMOVE_FAILED);
  EXPECT_FALSE(system.tasks.contains(L"Quillmoor - 日次 (2)")) << "a failure must not keep the others";
  system.refuses = false;
  installed.RemoveOwn();
  EXPECT_EQ(system.tasks.size(), 2U);
  EXPECT_EQ(installed.All().at(0).read.run.runnerPath, L"D:\\copy\\QuillmoorRun.exe");
}

TEST_F(Schedules, moved_program_or_document_is_a_fault_but_not_an_absent_drive) {
  schedules.Add(kDocument, {ScheduleKind::Idle});
  files.RemoveFile(kDocument);
  EXPECT_EQ(Only().fault, ScheduleFault::NoDocument);
  files.RemoveFile(kRunner);
  EXPECT_EQ(Only().fault, ScheduleFault::NoRunner);
  files.AddFile(kRunner, "x");
  for (const std::wstring absent : {L"Q:\\usb\\日次.qlmr", L"\\\\server\\share\\日次.qlmr"}) {
    schedules.Mend(Only(), absent);
    EXPECT_EQ(Only().fault, ScheduleFault::None) << my::Utf8FromWide(absent);
  }
}

TEST(Schedule, list_shows_the_last_result_and_what_is_wrong) {
  const test::CRcTexts texts;
  const CSettings settings(0);
  CScheduleListModel model(settings.ui, texts);
  CDocumentSchedule ended{{L"", L"", true, false, kStart, kStart}, {{kRunner, kDocument}, {}}, {}};
  std::vector<CDocumentSchedule> rows(6, ended);
  rows[1].task.lastResult = 1;           // rows with errors
  rows[2].task.lastResult = 0x80070002;  // the program was not found
  rows[3].task.lastRun = {};
  rows[4].task.enabled = false;
  rows[5].fault = ScheduleFault::NoDocument;
  model.Show(rows);
  const std::wstring states[] = {L"正常",   L"エラーあり", L"実行できませんでした (0x80070002)",
                                 L"未実行", L"無効",       L"ドキュメントが見つかりません"};
  for (size_t row = 0; row < rows.size(); ++row)
    EXPECT_EQ(model.Text(row, CScheduleListModel::State), states[row]) << row;
  EXPECT_EQ(model.Text(0, CScheduleListModel::NextRun), L"2026/11/23 21:05");
  EXPECT_EQ(model.Text(0, CScheduleListModel::When), texts.Text(IDS_SCHEDULE_CUSTOM));
}

TEST_F(Schedules, start_offers_to_mend_what_was_moved_and_needs_a_saved_document) {
  test::CFakeApp a;
  a.Start();
  a.Do(ID_SCHEDULES);
  EXPECT_TRUE(test::Has(a.dialogs.boxes.back(), a.Text(IDS_SCHEDULE_SAVE_FIRST)));
  OfferToMendSchedules(a.app->Context());
  EXPECT_EQ(a.dialogs.schedulesOpened, L"");
  schedules.Add(L"C:\\gone.qlmr", {ScheduleKind::Idle});
  a.scheduler.tasks = scheduler.tasks;
  a.dialogs.buttons = {true};
  OfferToMendSchedules(a.app->Context());
  EXPECT_EQ(a.dialogs.schedulesOpened, L"all ");
}

TEST(Schedule, single_run_in_the_past_and_a_week_without_days_are_refused) {
  const auto thrown = [](const CSchedule& schedule) {
    return test::ThrownId([&] { CheckSchedule(schedule, kStart); });
  };
  EXPECT_EQ(thrown({ScheduleKind::Once, kStart}), IDS_SCHEDULE_PAST);
  EXPECT_EQ(thrown({ScheduleKind::Once, {2026, 11, 23, 21, 6, 0}}), 0U);
  EXPECT_EQ(thrown({ScheduleKind::Daily, {2020, 1, 1, 0, 0, 0}}), 0U);
  EXPECT_EQ(thrown({ScheduleKind::Weekly, kStart}), IDS_SCHEDULE_NO_WEEKDAY);
}

}  // namespace
