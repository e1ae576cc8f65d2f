#include "command_ids.h"
#include "document/document_edits.h"
#include "platform/file_system.h"
#include "replace/replace_rule.h"
#include "settings/settings.h"
#include "support/engine_doubles.h"
#include "support/placement.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/closing_text.h"
#include "ui/models/command_text.h"
#include "ui/models/dst_list_model.h"
#include "ui/models/filter_check_model.h"
#include "ui/models/result_list_model.h"
#include "ui/models/row_view.h"
#include "ui/models/table_text.h"
#include "ui/models/target_list_model.h"
#include "ui/models/task_list_model.h"

namespace {

using namespace qlm;
using my::ListCheck;
using test::kTime;
using test::Line;

// The remark about two folders that could not be listed.
const std::wstring kUnlisted = L"（読み取れなかったフォルダー 2 件: C:\\a\\x (system error (0x80070005))）";

class ListModels : public testing::Test {
 protected:
  ListModels() {
    for (const wchar_t* folder : {L"a", L"b", L"c"}) InsertDst(document, -1, {folder});
    const CDsts& dsts = document.Dsts();
    InsertTask(document, -1, {L"A", L"C:\\a", L"f", {dsts[2], dsts[0]}});
    InsertTask(document, -1, {L"B", L"C:\\b", L"", {dsts[2]}});
  }

  // Creates a row of the task; with an error if there is a text for it.
  CResultPtr Row(const CTaskPtr& task, Phase phase, const wchar_t* error = L"") const {
    CResult row;
    row.task = task;
    row.phase = phase;
    row.newestWriteTime = kTime;
    row.destinationPath = L"D:\\x,y";
    if (*error) row.error = {IDS_INTERNAL_ERROR, 0, error};
    return boost::make_shared<CResult>(row);
  }

  test::CRcTexts texts;
  test::CFakeClock clock;
  CUISetting setting;
  CDocument document;
};

TEST_F(ListModels, closing_text_names_the_archive_of_the_last_row) {
  const CTasks& tasks = document.Tasks();
  EXPECT_EQ(ClosingText(texts, {}), texts.Text(IDS_WAIT_RUN));
  const CResultPtr copying = Row(tasks[0], Phase::Copying);
  EXPECT_EQ(ClosingText(texts, {Row(tasks[1], Phase::Archiving), copying}),
            L"「A」の処理が中断されるのを待っています");
  EXPECT_EQ(ClosingText(texts, {copying, Row(tasks[1], Phase::Archiving)}),
            L"「B」の圧縮が終わるのを待っています");
}

TEST_F(ListModels, task_shows_destinations_preview_and_worst_state) {
  CTaskListModel model(document, setting, texts);
  EXPECT_EQ(Line(model, 0), L"A|C:\\a|f|3, 1|||");
  RemoveDsts(document, {0});
  model.Refresh();
  const CTaskPtr task = document.Tasks()[0];
  model.ShowResults({Row(task, Phase::Skipped), Row(task, Phase::Created)});
  EXPECT_EQ(model.Look(0).color, setting.stateColors[0]) << "created";
  auto partial = boost::make_shared<CResult>(*Row(task, Phase::Skipped));
  auto targets = boost::make_shared<CTargets>();
  targets->AddUnlisted(L"x", my::CSystemError::FromWin32(5));
  targets->AddUnlisted(L"y", my::CSystemError::FromWin32(5));
  partial->targets = targets;
  model.ShowResults({Row(task, Phase::Created), partial});
  EXPECT_NE(model.Look(0).color, setting.stateColors[0]) << "not shown as a success";
  EXPECT_EQ(model.Text(0, CTaskListModel::State), texts.Text(IDS_PHASE_SKIPPED) + kUnlisted);
  CResultListModel results(setting, texts, clock);
  results.ShowResults(0, {partial, partial});
  EXPECT_EQ(results.Text(1, CResultListModel::Message), texts.Text(IDS_PHASE_SKIPPED) + kUnlisted);
  EXPECT_EQ(results.UnlistedCount(), 2U) << "rows of one job share their list";
  model.ShowResults({Row(task, Phase::Copying, L"disk\r\nfull"), Row(task, Phase::Copying)});
  EXPECT_EQ(model.Look(0).color, setting.stateColors[3]) << "failed";
  EXPECT_TRUE(model.Look(0).alarm);
  EXPECT_EQ(model.Look(0).icon, static_cast<int>(ResultState::Failed));
  EXPECT_EQ(model.Tip(0),
            L"コピー処理中にエラーが発生しました: disk full\n対処: " + texts.Text(IDS_REMEDY_INTERNAL));
  EXPECT_FALSE(model.Look(0).grey);
  EXPECT_FALSE(model.Look(1).color);
  EXPECT_EQ(model.Look(1).icon, -1) << "has not run";
  EXPECT_EQ(Line(model, 0), L"A|C:\\a|f|2||コピー処理中にエラーが発生しました: disk full|");
  const CReplaceRule rule({ReplaceRow::ALL, kReplaceTaskPath, L"C:", L"D:"});
  task->replaceRule = &rule;
  EXPECT_EQ(model.Text(0, CTaskListModel::Path), L"D:\\a");
}

TEST_F(ListModels, check_boxes_show_the_use_by_the_selected_tasks) {
  CDstListModel model(document, texts);
  model.Refresh({0, 1});
  EXPECT_EQ(model.Check(0), ListCheck::Mixed);
  EXPECT_EQ(model.Check(1), ListCheck::Unchecked);
  EXPECT_EQ(model.Check(2), ListCheck::Checked);
  EXPECT_EQ(model.CheckRemark(0), texts.Text(IDS_USED_BY_SOME));
  EXPECT_EQ(model.CheckRemark(2), L"") << "screen readers know this state";
  InsertDst(document, -1, {L"new", DstType::AES_256_ZIP, L"<ID>.zip"});
  EXPECT_EQ(model.Check(3), ListCheck::Unchecked) << "before the refresh";
  EXPECT_EQ(Line(model, 3), L"4|new|パスワード付き zip（AES-256）|<ID>.zip|");
}

TEST_F(ListModels, command_texts_follow_list_run_and_history) {
  const auto text = [&](uint32_t id, ListKind list = ListKind::Tasks, bool running = false) {
    const CCommandText found = CommandText(texts, id, {document, list, running});
    return found.explanation + L"|" + found.name;
  };
  EXPECT_EQ(text(ID_RUN, ListKind::Tasks, true), L"実行中のバックアップを中断します|中断");
  EXPECT_EQ(text(ID_MRU_LAST), text(ID_MRU_FIRST));
  EXPECT_EQ(text(ID_ITEM_UP), text(ID_TASK_UP));
  EXPECT_EQ(text(ID_ITEM_DOWN, ListKind::Dsts), text(ID_DST_DOWN));
  EXPECT_EQ(text(ID_ADD_FILE), L"ファイルを追加|ファイルを追加") << "no name of its own";
  EXPECT_EQ(text(ID_REDO), L"元に戻した編集をやり直します|やり直し");
  document.Undo();
  EXPECT_EQ(text(ID_REDO), L"やり直し: タスクの追加|やり直し: タスクの追加");
  EXPECT_EQ(RedoLabel(texts, document), L"やり直し: タスクの追加(&Y)");
  document.Reset({}, L"");
  EXPECT_EQ(UndoLabel(texts, document), L"元に戻す(&U)");
}

TEST_F(ListModels, results_replace_their_rows_and_are_exported_as_csv) {
  clock.SetOffsetMinutes(9 * 60);
  CResultListModel model(setting, texts, clock);
  const auto noDst = test::MakeTask(L"=1+1");
  model.ShowResults(0, {Row(document.Tasks()[1], Phase::Copying)});
  model.ShowResults(1, {Row(noDst, Phase::Skipped)});
  EXPECT_EQ(model.Look(0).color, setting.stateColors[1]);
  EXPECT_EQ(model.Look(1).color, setting.stateColors[2]);
  model.ShowResults(0, {Row(document.Tasks()[1], Phase::Copying, L"\"why\"")});
  CRowView view(model);
  view.SetOrder({CResultListModel::Id});
  EXPECT_EQ(
      CsvText(view),
      "\xEF\xBB\xBFID,転送先パス,種類,元ファイルの最新日時,ファイル数,サイズ,時間,速度,メッセージ\r\n"
      "'=1+1,\"D:\\x,y\",,2016/03/05 16:04:09,0,0,,,正常終了 - 更新されていないためスキップされました\r\n"
      "B,\"D:\\x,y\",フォルダー,2016/03/05 16:04:09,0,0,,,"
      "\"コピー処理中にエラーが発生しました: \"\"why\"\"\"\r\n");
  EXPECT_TRUE(TabbedText(view, {0}).starts_with(L"'=1+1\tD:\\x,y\t"));
}

TEST_F(ListModels, row_view_sorts_filters_and_follows_the_run) {
  CResultListModel model(setting, texts, clock);
  CRowView view(model);
  const auto add = [&](const wchar_t* id, uint64_t bytes, const wchar_t* error = L"") {
    auto targets = boost::make_shared<CTargets>();
    targets->Add({L"f", kTime, bytes, 0});
    auto row = boost::make_shared<CResult>(*Row(test::MakeTask(id), Phase::Created, error));
    row->targets = targets;
    row->transferMs = 500;
    model.ShowResults(model.RowCount(), {row});
    view.Update(model.RowCount() - 1);
  };
  const auto shown = [&] { return test::ColumnText(view, CResultListModel::Id); };
  add(L"c", 9);
  add(L"B", 1000, L"bad");
  add(L"a", 9);
  CRowOrder order = NextOrder({}, CResultListModel::Bytes);
  view.SetOrder(order);
  EXPECT_EQ(shown(), L"caB") << "as numbers, equal rows in the order of the run";
  add(L"d", 100);
  EXPECT_EQ(shown(), L"cadB");
  EXPECT_EQ(view.ShownRows()[3], 2u);
  order = NextOrder(order, CResultListModel::Bytes);
  view.SetOrder(order);
  EXPECT_EQ(shown(), L"Bdca") << "equal rows keep the order of the run";
  view.SetOrder(NextOrder(order, CResultListModel::Id));
  EXPECT_EQ(shown(), L"aBcd");
  EXPECT_EQ(NextOrder(order, CResultListModel::Bytes), CRowOrder{}) << "third click";
  view.SetFilter({true, L""});
  EXPECT_EQ(shown(), L"B");
  add(L"e", 1, L"bad");
  EXPECT_EQ(shown(), L"Be");
  view.SetFilter({false, L"1,0"});
  EXPECT_EQ(shown(), L"B") << "searched in every cell";
  view.SetFilter({});
  view.SetOrder({});
  EXPECT_EQ(shown(), L"cBade");
  EXPECT_EQ(model.Text(3, CResultListModel::Speed), L"200 バイト/秒");
  EXPECT_EQ(model.TotalsText(), L"作成 3 件の合計: 3 ファイル、118 バイト、時間 0:01、速度 78 バイト/秒");
  model.Clear();
  view.Update(0);
  EXPECT_EQ(shown(), L"");
}

TEST_F(ListModels, detail_of_a_result_has_message_remedy_and_unlisted_folders) {
  CResultListModel model(setting, texts, clock);
  auto row = boost::make_shared<CResult>(*Row(document.Tasks()[0], Phase::Copying, L"full - disk\n\nD:\\x"));
  auto targets = boost::make_shared<CTargets>();
  for (int i = 0; i < 1001; ++i) targets->AddUnlisted(L"x\\", my::CSystemError::FromWin32(5));
  row->targets = targets;
  model.ShowResults(0, {row});
  const std::wstring detail = model.Detail(0);
  EXPECT_TRUE(detail.starts_with(L"コピー処理中にエラーが発生しました: full - disk\r\nD:\\x\r\n対処: " +
                                 texts.Text(IDS_REMEDY_INTERNAL) +
                                 L"\r\n転送元: C:\\a\r\n転送先: D:\\x,y\r\n"))
      << my::Utf8FromWide(detail);
  EXPECT_TRUE(test::Has(detail, L"読み取れなかったフォルダー 1,001 件:\r\n  C:\\a\\x\\ (system error"));
  EXPECT_TRUE(detail.ends_with(L"\r\n  ほか 1 件"));
}

TEST_F(ListModels, target_shows_the_deciding_filter_line) {
  const auto filter = boost::make_shared<CFilter>();
  filter->Parse({L"# x", L"- \\.bak$"}, texts);
  const auto targets = boost::make_shared<CTargets>(filter);
  const my::CFileTime later{kTime.ticks + 1};
  const size_t docs = targets->Add({L"Docs", later, 0, my::kAttributeFolder | 0x2});
  targets->Add({L"a.bak", later, 1'234'567, 0x421}, docs, filter->Items()[0].get());
  targets->Add({L"b", kTime, 123, 0x421}, docs);
  const CTargetListModel model(targets, texts, clock);
  EXPECT_EQ(Line(model, 0), L"Docs\\|2016/03/05 07:04:09||HD|+ （フィルターにマッチしません）|");
  EXPECT_EQ(Line(model, 1), L"Docs\\a.bak|2016/03/05 07:04:09|1,234,567|RAL|2: - \\.bak$|");
  EXPECT_EQ(model.Text(2, CTargetListModel::Size), L"123");
  EXPECT_TRUE(model.Look(1).grey && !model.Look(2).grey);
  EXPECT_EQ(model.NewestRow(), 2u) << "neither a folder nor what is excluded";
  EXPECT_EQ(model.CountsText(), L"項目 3 件、フォルダー 1 件、対象 1 件、除外 1 件");
  EXPECT_EQ(model.Find(L"dOCS\\", 2), 2u);
  EXPECT_EQ(model.Find(L".BAK", 2), 1u) << "wraps around";
  EXPECT_EQ(model.Find(L"nowhere", 0), std::nullopt);
}

TEST_F(ListModels, filter_line_shows_its_error_and_what_it_decides) {
  CFilterCheckModel model(setting, texts);
  model.Show({L"# all", L"* x", L"-  docs/.*\\.tmp$", L"- a$ ", L"+ (?i)\\.TMP$", L""});
  EXPECT_EQ(Line(model, 0), L"1||# all||");
  EXPECT_EQ(Line(model, 1), L"2|*|x|フィルターの先頭文字 (*) が不正です|");
  EXPECT_EQ(Line(model, 2), L"3|-|docs/.*\\.tmp$||");
  EXPECT_EQ(model.Text(3, CFilterCheckModel::Expression), L"a$ ") << "the space is significant";
  EXPECT_EQ(model.Look(1).color, setting.stateColors[3]);
  EXPECT_EQ(model.Tip(1), L"対処: " + texts.Text(IDS_REMEDY_FILTER_SIGN));
  EXPECT_EQ(model.Tip(0) + model.Tip(2), L"");
  EXPECT_TRUE(model.Look(5).grey);
  EXPECT_EQ(model.Decide(L"docs/a.tmp").row, 2u);
  EXPECT_TRUE(model.Decide(L"docs/a.tmp").excluded);
  EXPECT_EQ(model.Decide(L"a.tmp").text, L"5: + (?i)\\.TMP$");
  EXPECT_EQ(model.Decide(L"docs\\").row, std::nullopt);
}

TEST(Placement, window_is_moved_onto_the_nearest_screen) {
  const my::CRect left{0, 0, 1000, 800};
  const my::CRect right{1000, -200, 2000, 600};
  const std::vector<my::CRect> screens = {left, right};
  const my::CRect inside{10, 20, 300, 400};
  EXPECT_EQ(my::PullBack(inside, screens), inside);
  EXPECT_EQ(my::PullBack({900, 700, 1100, 900}, {left}), (my::CRect{800, 600, 1000, 800}));
  EXPECT_EQ(my::PullBack({950, 100, 1250, 300}, screens), (my::CRect{1000, 100, 1300, 300}));
  EXPECT_EQ(my::PullBack({2500, -900, 2700, -800}, screens), (my::CRect{1800, -200, 2000, -100}));
  EXPECT_EQ(my::PullBack({-500, -500, 5000, 100}, {left}), (my::CRect{0, 0, 1000, 600}));
  // as in an edited settings file
  EXPECT_EQ(my::PullBack({INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN}, {left}),
            (my::CRect{1000, 800, 1000, 800}));
  EXPECT_EQ(my::PullBack({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, screens), left);
  EXPECT_EQ(my::PullBack(inside, {}), inside);
  // A window snapped to the left half of the screen, and one that only resembles it.
  const my::CBorder border{7, 0, 7, 7};
  EXPECT_EQ(my::PullBack({-7, 0, 507, 807}, {left}, border), (my::CRect{-7, 0, 507, 807}));
  EXPECT_EQ(my::PullBack({-8, -1, 506, 500}, {left}, border), (my::CRect{0, 0, 514, 501}));
  EXPECT_EQ(my::CentreOn({0, 0, 200, 100}, {100, 100, 500, 300}), (my::CRect{200, 150, 400, 250}));
}

TEST(ListModel, search_by_typing_wraps_around) {
  struct CNames : my::IListModel {
    std::vector<std::wstring> names{L"Beta", L"alpha", L"Alto", L"al"};
    size_t RowCount() const override { return names.size(); }
    size_t ColumnCount() const override { return 1; }
    my::CListColumn Column(size_t) const override { return {}; }
    std::wstring Text(size_t row, size_t) const override { return names[row]; }
  } model;
  EXPECT_EQ(my::FindRow(model, L"AL", 0), 1u);
  EXPECT_EQ(my::FindRow(model, L"al", 3), 3u);
  EXPECT_EQ(my::FindRow(model, L"alp", 2), 1u);
  EXPECT_EQ(my::FindRow(model, L"b", 9), 0u);
  EXPECT_FALSE(my::FindRow(model, L"betas", 0));
  model.names.clear();
  EXPECT_FALSE(my::FindRow(model, L"", 0));
}

}  // namespace
