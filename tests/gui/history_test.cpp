#include "gui/gui_app.h"
#include "history/history_file.h"
#include "ui/framework/clipboard.h"
#include "ui/models/task_list_model.h"

namespace {

using namespace qlm;

constexpr uint64_t kDay = uint64_t{24} * 60 * 60 * 10'000'000;

struct HistoryWindow : testing::Test, test::CGuiApp {
  HistoryWindow() {
    scratch.Write(L"src\\file", "x");
    AddTask(L"a", scratch.At(L"src"));
    AddTask(L"b", scratch.At(L"src"));
    AddDst(scratch.At(L"backup"));
    path = scratch.At(L"d.qlmr");
    const CContent content = app->Document().Content();
    app->Document().Reset(content, path);
  }

  void Record(const std::wstring& documentPath, uint64_t daysAgo, std::vector<CHistoryRow> rows) {
    const my::CFileTime at{clock.Now().ticks - daysAgo * kDay};
    AppendHistory(scratch.real, clock, HistoryFile(),
                  {at, at, RunProgram::RUNNER, documentPath, false, std::move(rows)});
  }

  std::wstring HistoryFile() const { return HistoryPath(folders, texts); }

  static CHistoryRow Row(const std::wstring& task, RowOutcome outcome) {
    CHistoryRow row;
    row.taskId = task;
    row.outcome = outcome;
    if (outcome != RowOutcome::FAILED) return row;
    row.error = IDS_TARGET_IS_FILE;
    row.message = L"taken";
    return row;
  }

  // Opens the window, or reads again, and waits until it shows this number of runs.
  HWND Open(int runs) {
    if (const HWND open = test::DialogWith(IDC_HISTORY_RUNS))
      test::PressKey(::GetDlgItem(open, IDC_HISTORY_RUNS), VK_F5);
    else
      Do(ID_HISTORY);
    const HWND dialog = test::DialogWith(IDC_HISTORY_RUNS);
    const HWND list = ::GetDlgItem(dialog, IDC_HISTORY_RUNS);
    EXPECT_TRUE(test::PumpUntil([&] { return ListView_GetItemCount(list) == runs; }));
    return dialog;
  }

  std::wstring path;
};

TEST_F(HistoryWindow, shows_runs_rows_and_tasks) {
  CHistoryRow created = Row(L"b", RowOutcome::CREATED);
  created.destination = scratch.At(L"");
  Record(path, 9, {Row(L"a", RowOutcome::SKIPPED)});
  Record(L"C:\\other.qlmr", 2, {Row(L"x", RowOutcome::FAILED)});
  Record(path, 1, {Row(L"a", RowOutcome::FAILED), created});
  const HWND dialog = Open(2);
  const HWND rows = ::GetDlgItem(dialog, IDC_HISTORY_ROWS);
  EXPECT_EQ(ListView_GetItemCount(rows), 2) << "of the newest run";
  ::SetFocus(rows);
  test::FocusRow(rows, 0);
  EXPECT_TRUE(test::TextOf(dialog, IDC_HISTORY_DETAIL)
                  .starts_with(L"taken\r\n対処: " + texts.Text(IDS_REMEDY_TARGET_TAKEN)));
  test::Click(dialog, IDC_LIST_COPY);
  EXPECT_TRUE(my::CClipboard(L"Quillmoor").Text(dialog).value_or(L"").starts_with(L"a\t\tエラー\t"))
      << "the list that had the focus";
  ListView_SetItemState(rows, -1, 0, LVIS_SELECTED);
  test::FocusRow(rows, 1);
  test::Click(dialog, IDC_HISTORY_OPEN);
  EXPECT_EQ(shell.calls.back(), L"Open " + scratch.At(L""));

  const HWND runs = ::GetDlgItem(dialog, IDC_HISTORY_RUNS);
  ::SetFocus(runs);
  EXPECT_TRUE(test::Has(test::TextOf(dialog, IDC_HISTORY_DETAIL), path)) << "of the run";
  test::FocusRow(runs, 1);
  EXPECT_EQ(ListView_GetItemCount(rows), 1);
  EXPECT_EQ(ListView_GetSelectedCount(rows), 0u) << "rows of another run";
  test::FocusRow(runs, 0);

  test::Click(dialog, IDC_HISTORY_PROBLEMS);
  EXPECT_EQ(ListView_GetItemCount(rows), 1);
  test::Click(dialog, IDC_HISTORY_PROBLEMS);
  test::Click(dialog, IDC_HISTORY_THIS_DOCUMENT);
  EXPECT_EQ(ListView_GetItemCount(runs), 3);
  test::Click(dialog, IDC_HISTORY_BY_TASK);
  EXPECT_FALSE(::IsWindowVisible(rows));
  const HWND tasks = ::GetDlgItem(dialog, IDC_HISTORY_TASKS);
  EXPECT_TRUE(::IsWindowVisible(tasks));
  EXPECT_EQ(ListView_GetItemCount(tasks), 3);
  ::SendMessageW(dialog, WM_CLOSE, 0, 0);
  test::Pump();
  EXPECT_TRUE(::IsWindowVisible(Open(2))) << "again";
  EXPECT_EQ(box.texts, std::vector<std::wstring>());
}

TEST_F(HistoryWindow, follows_runs_and_reports_damage) {
  Record(path, 8, {Row(L"a", RowOutcome::CREATED)});
  const HWND dialog = Open(1);
  EXPECT_TRUE(
      test::PumpUntil([this] { return !Cell(IDC_TASK_LIST, 0, CTaskListModel::LastSuccess).empty(); }));
  EXPECT_EQ(Cell(IDC_TASK_LIST, 1, CTaskListModel::LastSuccess), L"");
  EXPECT_EQ(Cell(IDC_TASK_LIST, 0, CTaskListModel::State), L"") << "it has no destination";
  SetUse(app->Document(), {0}, 0, true);
  EXPECT_EQ(Cell(IDC_TASK_LIST, 0, CTaskListModel::State), texts.Text(IDS_HISTORY_OVERDUE));
  RunToEnd();
  EXPECT_TRUE(
      test::PumpUntil([&] { return ListView_GetItemCount(::GetDlgItem(dialog, IDC_HISTORY_RUNS)) == 2; }));
  const auto file = scratch.files.OpenToAppend(HistoryFile());
  file->Write("torn\n");
  file->Close();
  test::Click(dialog, IDC_HISTORY_REFRESH);
  EXPECT_TRUE(test::PumpUntil(
      [&] { return test::TextOf(dialog, IDC_HISTORY_STATUS).find(L"1 行") != std::wstring::npos; }));
  CSettings stored(0);
  app->Context().window.StoreSettings(stored);
  EXPECT_EQ(stored.mainFrame.tasksColumnWidthes.size(), 5u) << "the file has no place for the new column";
}

}  // namespace
