#include "app/advice_watch.h"
#include "app/plan_actions.h"
#include "document/document_edits.h"
#include "engine/remedy.h"
#include "support/fake_app.h"
#include "ui/models/advice_marks.h"
#include "ui/models/plan_advice_model.h"
#include "ui/models/plan_matrix_model.h"

namespace {

using namespace qlm;
using namespace test;

class PlanWindow : public testing::Test {
 protected:
  PlanWindow() {
    a.Start();
    a.files.AddFile(L"C:\\src\\sub\\new.txt", "12345", {kTime.ticks + 60});
    for (const auto& [folder, pattern] : {std::pair(L"D:\\made", L"<ID>_<Y>"), std::pair(L"D:\\had", L"<ID>"),
                                          std::pair(L"D:\\taken", L"<ID>"), std::pair(L"Q:\\gone", L"<ID>")})
      content.dsts.Append(MakeDst(folder, DstType::FOLDER, pattern));
    a.files.AddFolder(L"D:\\had\\all");
    a.files.AddFile(L"D:\\taken\\T", "");
    content.tasks.Append(MakeTask(L"all", {content.dsts[1], content.dsts[0], content.dsts[3]}));
    content.tasks.Append(MakeTask(L"T", {content.dsts[2], content.dsts[1]}));
    content.tasks.Append(MakeTask(L"idle"));
    a.Fill(content);
  }

  // Plans with a command, up to the end.
  void Plan(uint32_t command = ID_PLAN) {
    a.Do(command);
    ASSERT_EQ(a.TakeBoxes(), L"");
    const CPlanRequest request = a.dialogs.plans.back();
    matrix.Begin(request.scope);
    advice.Begin(request.scope.content);
    CPlanWorker worker(a.app->Context().ports.engine, a.threads, request);
    a.threads.Work();
    CPlanNews news = worker.Take();
    EXPECT_TRUE(news.ended && !news.error) << NameOf(news.error.code);
    EXPECT_TRUE(worker.Take().ended && worker.Take().tasks.empty()) << "the same news again";
    matrix.Add(std::move(news.tasks));
    advice.Add(news.findings);
  }

  std::wstring Row(size_t row) const { return Line(matrix, row); }

  const CTask& Planned(size_t row) { return *matrix.Task(row).task; }

  // Excludes the newest file of the first task.
  bool Exclude() { return ExcludeFile(a.app->Context(), Planned(0), matrix.Task(0).newest->RelativePath()); }

  CFakeApp a;
  CContent content;
  CPlanMatrixModel matrix{a.settings->ui, a.texts, a.clock};
  CPlanAdviceModel advice{a.settings->ui, a.texts};
};

TEST_F(PlanWindow, matrix_has_the_order_of_the_lists_and_explains_each_cell) {
  Plan();
  ASSERT_EQ(matrix.RowCount(), 3u);
  EXPECT_EQ(matrix.Column(1).title + matrix.Column(4).title, L"1: D:\\made4: Q:\\gone");
  EXPECT_EQ(Row(0), L"all|作成|スキップ||転送先に届かない|");
  EXPECT_EQ(Row(1), L"T||未到達|名前の衝突||");
  EXPECT_EQ(Row(2), L"idle|||||");
  EXPECT_EQ(matrix.CountsText(), L"作成 1 件、スキップ 1 件、エラー 2 件、未到達 1 件");
  const std::wstring made = matrix.Detail(0, 1);
  for (const wchar_t* part :
       {L"all → D:\\made", L"予定: 作成", L"D:\\made\\all_2016", L"2 ファイル", L"sub\\new.txt"})
    EXPECT_TRUE(Has(made, part));
  const std::wstring gone = matrix.Detail(0, 4);
  EXPECT_TRUE(Has(gone, RemedyLine(a.texts, matrix.Cell(0, 4)->error)));
  EXPECT_EQ(matrix.SpokenCell(1, 3), L"T → D:\\taken: 名前の衝突");
  EXPECT_EQ(matrix.RowOf(0, 1)->destinationPath, L"D:\\made\\all_2016");
  EXPECT_TRUE(matrix.CellLook(1, 3).alarm && !matrix.CellLook(0, 1).alarm && matrix.CellLook(1, 2).grey);
  ASSERT_NE(advice.RowCount(), 0u);
  EXPECT_EQ(advice.Text(0, 1), L"all → D:\\had") << "its backup lacks the files";

  a.window.tasks.selected = {1};
  Plan(ID_PLAN_SELECTED);
  EXPECT_EQ(Row(0), L"T|未到達|名前の衝突|");
  EXPECT_EQ(matrix.Column(1).title, L"2: D:\\had");
}

TEST_F(PlanWindow, planning_stops_and_needs_a_task_with_a_destination) {
  a.Do(ID_PLAN);
  CPlanWorker worker(a.app->Context().ports.engine, a.threads, a.dialogs.plans.back());
  worker.Stop();
  a.threads.Work();
  EXPECT_EQ(worker.Take().error.code, IDS_STOPPED);
  a.window.tasks.selected = {2};
  a.Do(ID_PLAN_SELECTED);
  EXPECT_TRUE(Has(a.TakeBoxes(), a.Text(IDS_NO_TASKS)));
  EXPECT_EQ(a.dialogs.plans.size(), 1u);
}

TEST_F(PlanWindow, excluded_file_is_the_first_rule_of_a_new_or_existing_filter) {
  Plan();
  EXPECT_FALSE(Exclude()) << "cancelled";
  a.dialogs.paths = {L"C:\\new.flt"};
  EXPECT_TRUE(Exclude());
  EXPECT_EQ(a.files.Files().at(L"C:\\new.flt"), "\xEF\xBB\xBF- \"^sub/new\\.txt$\"\r\n");
  EXPECT_EQ(a.document->UndoNameId(), IDS_EDIT_SET_FILTER);
  EXPECT_EQ(ThrownId([&] { Exclude(); }), IDS_PLAN_OUTDATED) << "the task has another filter now";
  Plan();
  EXPECT_EQ(matrix.Task(0).newest->RelativePath(), L"a.txt");

  const auto next = [&](std::string bytes) {
    a.files.AddFile(L"C:\\new.flt", std::move(bytes));
    EXPECT_TRUE(Exclude());
    return a.files.Files().at(L"C:\\new.flt");
  };
  EXPECT_EQ(next("# \x8E\x9A\n+ x\n"), "- \"^a\\.txt$\"\n# \x8E\x9A\n+ x\n");
  const std::string wide = next(std::string("\xFF\xFE#\0\r\0\n\0", 8));
  EXPECT_EQ(wide.substr(0, 6), std::string("\xFF\xFE-\0 \0", 6));
  EXPECT_EQ(wide.substr(wide.size() - 10), std::string("\r\0\n\0#\0\r\0\n\0", 10));
  a.files.AddFile(L"C:\\new.flt", "# no mark\r\n");
  EXPECT_EQ(ThrownId([&] { ExcludeFile(a.app->Context(), Planned(0), L"日記.txt"); }),
            IDS_FILTER_NOT_ENCODABLE);
  EXPECT_EQ(a.files.Files().at(L"C:\\new.flt"), "# no mark\r\n");

  SetTaskFilter(*a.document, 1, L"c:/new.flt");
  EXPECT_FALSE(Exclude()) << "another task has this filter";
  EXPECT_TRUE(Has(a.TakeBoxes(), L"（T）"));
}

TEST_F(PlanWindow, leftover_goes_to_the_recycle_bin_only_if_it_is_still_the_same) {
  const std::wstring path = L"D:\\made\\_tmp_all_2015";
  a.files.AddFile(path + L"\\half", "1234");
  Plan();
  size_t row = 0;
  while (row < advice.RowCount() && advice.Finding(row).kind != AdviceKind::Leftover) ++row;
  ASSERT_LT(row, advice.RowCount());
  const CAdvice leftover = advice.Finding(row);
  CAppContext& context = a.app->Context();
  EXPECT_FALSE(RecycleLeftover(context, leftover)) << "cancelled";
  EXPECT_TRUE(Has(a.TakeBoxes(), L"（4 バイト）"));
  a.dialogs.buttons = {true, true, true};
  EXPECT_TRUE(RecycleLeftover(context, leftover));
  EXPECT_EQ(a.shell.calls, std::vector{L"Recycle " + path});
  a.files.AddFile(path + L"\\more", "1");
  EXPECT_EQ(ThrownId([&] { RecycleLeftover(context, leftover); }), IDS_RECYCLE_CHANGED);
  a.files.Remove(path);
  EXPECT_EQ(ThrownId([&] { RecycleLeftover(context, leftover); }), IDS_RECYCLE_CHANGED);
  EXPECT_EQ(a.shell.calls.size(), 1u);
}

TEST_F(PlanWindow, marks_follow_the_items_of_the_document) {
  CAdviceWatch watch(a.app->Context());
  watch.Restart();
  EXPECT_FALSE(watch.Tick());
  watch.Restart();  // before the first search has ended
  a.threads.Work();
  EXPECT_FALSE(watch.Tick()) << "the findings are of an older document";
  a.threads.Work();
  EXPECT_TRUE(watch.Tick());
  EXPECT_FALSE(watch.IsPending());
  const CAdviceMarks marks(a.texts, watch.Content(), watch.Findings());
  MoveDsts(*a.document, {1}, 0);
  const CAdviceMark* mark = marks.Find(a.document->Dsts()[0]);
  ASSERT_TRUE(mark) << "a name without a date";
  EXPECT_EQ(mark->text.substr(0, 4), L"警告: ");
  EXPECT_EQ(IconOf(mark), static_cast<int>(ResultState::Incomplete));
  EXPECT_EQ(IconOf(marks.Find(a.document->Tasks()[2])), -1);

  a.Do(ID_RUN);
  watch.Restart();
  EXPECT_FALSE(watch.Tick());
  EXPECT_TRUE(watch.IsPending()) << "the backups that are being made would be found";
  a.EndRun();
  watch.Tick();
  a.threads.Work();
  EXPECT_TRUE(watch.Tick());
}

}  // namespace
