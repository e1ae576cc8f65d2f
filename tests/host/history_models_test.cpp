#include "ui/models/history_models.h"
#include "app/history_loader.h"
#include "settings/settings.h"
#include "support/fake_app.h"
#include "ui/models/last_success.h"
#include "ui/models/row_view.h"
#include "ui/models/task_list_model.h"

namespace {

using namespace qlm;

using test::Line;

CHistoryRun MakeRun(const std::wstring& document, uint64_t daysAgo, std::vector<CHistoryRow> rows) {
  const my::CFileTime end{test::kTime.ticks - daysAgo * test::kDay};
  return {{end.ticks - 10'000'000ull * 75}, end, RunProgram::RUNNER, document, false, std::move(rows)};
}

CHistoryRow MakeRow(const std::wstring& task, RowOutcome outcome) {
  CHistoryRow row;
  row.taskId = task;
  row.source = L"C:\\src";
  row.outcome = outcome;
  return row;
}

struct HistoryModels : testing::Test, test::CFakeApp {
  const CUISetting ui{};
  const CHistoryTexts with{ui, texts, clock};
};

TEST_F(HistoryModels, runs_and_rows_show_outcomes_with_remedy) {
  CHistoryRow failed = MakeRow(L"a", RowOutcome::FAILED);
  failed.error = IDS_COPY_FILE_FAILED;
  failed.detail = 0x80070070;
  failed.message = L"コピーに失敗";
  failed.bytes = 2048;
  const CHistoryRun bad = MakeRun(L"C:\\d\\x.qlmr", 0, {failed, MakeRow(L"b", RowOutcome::CREATED)});
  const CHistoryRun good = MakeRun(L"", 1, {MakeRow(L"b", RowOutcome::SKIPPED)});
  CHistoryRunsModel runs(with);
  runs.Show({&bad, &good});
  EXPECT_EQ(Line(runs, 0), L"2016/03/05 07:02:54|1:15|x.qlmr|コマンド|エラー|1|0|1|0|");
  EXPECT_EQ(Line(runs, 1), L"2016/03/04 07:02:54|1:15|無題|コマンド|正常終了|0|1|0|0|");
  CRowView problems(runs);
  problems.SetFilter({true});
  EXPECT_EQ(problems.RowCount(), 1u);
  problems.SetFilter({});
  problems.SetOrder({CHistoryRunsModel::Start});
  EXPECT_EQ(problems.SourceRow(0), 1u) << "by time, not by text";

  CHistoryRowsModel rows(with);
  rows.Show(&bad);
  EXPECT_EQ(Line(rows, 0), L"a||エラー|0|2,048|コピーに失敗|");
  EXPECT_EQ(rows.Detail(0), L"コピーに失敗\r\n対処: " + texts.Text(IDS_REMEDY_DISK_FULL) +
                                L"\r\n転送元: C:\\src\r\n対象: 0 ファイル（2.0 KB）、除外 0 件");
}

TEST_F(HistoryModels, task_list_shows_the_last_success_and_marks_overdue_tasks) {
  using enum RowOutcome;
  CDocument tasks;
  const CDstPtr dst = test::MakeDst(L"D:\\b");
  CContent content;
  content.dsts.Append(dst);
  for (const wchar_t* id : {L"fresh", L"old", L"never", L"new", L"unused"})
    content.tasks.Append(
        test::MakeTask(id, id == std::wstring_view(L"unused") ? CTaskDsts() : CTaskDsts{dst}));
  tasks.Reset(content, L"C:\\X.qlmr");
  CLastSuccess lastSuccess(tasks, texts, clock);
  CTaskListModel model(tasks, ui, texts);
  model.SetLastSuccess(lastSuccess);
  EXPECT_EQ(model.Text(0, CTaskListModel::LastSuccess), L"") << "not read yet";
  lastSuccess.Use(
      TaskHistories({MakeRun(L"c:\\x.QLMR", 1, {MakeRow(L"fresh", CREATED)}),
                     MakeRun(L"c:\\x.qlmr", 8, {MakeRow(L"old", SKIPPED), MakeRow(L"unused", CREATED)}),
                     MakeRun(L"c:\\x.qlmr", 2, {MakeRow(L"never", FAILED), MakeRow(L"old", FAILED)}),
                     MakeRun(L"C:\\other", 1, {MakeRow(L"new", CREATED)})}));
  const auto shown = [&](size_t row) {
    return model.Text(row, CTaskListModel::LastSuccess) + L"|" + model.Text(row, CTaskListModel::State);
  };
  EXPECT_EQ(shown(0), L"2016/03/04 07:04:09|");
  EXPECT_EQ(shown(1), L"2016/02/26 07:04:09|7 日以上成功していません");
  EXPECT_EQ(model.Look(1).icon, static_cast<int>(ResultState::Incomplete));
  EXPECT_EQ(model.Tip(1), texts.Text(IDS_HISTORY_OVERDUE));
  EXPECT_EQ(shown(2), L"なし|");
  EXPECT_EQ(shown(3), L"|") << "of another document";
  EXPECT_EQ(shown(4), L"2016/02/26 07:04:09|") << "without destinations it is not run";
  EXPECT_EQ(model.Look(4).icon, -1);
  tasks.Reset(content, L"");
  EXPECT_EQ(shown(0), L"|") << "an untitled document has no history";
}

TEST_F(HistoryModels, loader_reads_again_after_a_run_and_reports_failures) {
  const CAppContext& context = Start().Context();
  const std::wstring path = HistoryPath(folders, texts);
  int posted = 0;
  CHistoryLoader loader(context.ports, [&posted] { ++posted; });
  loader.Load();
  EXPECT_EQ(loader.Take(), nullptr) << "the thread is still reading";
  threads.Work();
  EXPECT_EQ(posted, 1);
  AppendHistory(files, clock, path, MakeRun(L"C:\\x", 0, {MakeRow(L"a", RowOutcome::CREATED)}));
  loader.Load();
  EXPECT_TRUE(loader.Take()->history.runs.empty()) << "read before the run ended";
  threads.Work();
  const auto loaded = loader.Take();
  EXPECT_EQ(loaded->history.runs.size(), 1u);
  EXPECT_EQ(loaded->tasks.size(), 1u);
  EXPECT_EQ(loader.Take(), nullptr);
  files.FailAt(test::Op::READ, 1);
  loader.Load();
  threads.Work();
  EXPECT_NE(loader.Take()->failure, L"");
  threads.fail = true;
  loader.Load();
  EXPECT_NE(loader.Take()->failure, L"") << "no thread";
}

}  // namespace
