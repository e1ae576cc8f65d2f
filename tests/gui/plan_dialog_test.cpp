#include "ui/dialogs/plan_dialog.h"

#include "document/document_edits.h"
#include "gui/dialog_app.h"
#include "gui/gui_app.h"
#include "ui/framework/clipboard.h"

namespace {

using namespace qlm;
using test::CellOf;
using test::Click;
using test::PressKey;

struct PlanDialog : testing::Test, test::CDialogAppOn<test::CMemoryFileSystem> {
  PlanDialog() {
    files.AddFile(L"C:\\src\\old.txt", "1", {131'016'350'490'000'000});
    files.AddFile(L"C:\\src\\new.txt", "12", {131'026'350'490'000'000});
    files.AddFile(L"D:\\taken\\T", "");
    files.AddFolder(L"D:\\had\\T");
    files.AddFolder(L"D:\\made\\_tmp_T_2015");
    InsertDst(document, -1, {L"D:\\made", DstType::FOLDER, L"<ID>_<Y>"});
    for (const wchar_t* folder : {L"D:\\had", L"D:\\taken", L"Q:\\gone"})
      InsertDst(document, -1, {folder, DstType::FOLDER, L"<ID>"});
    const CDsts& dsts = document.Dsts();
    InsertTask(document, -1, {L"T", L"C:\\src", L"", {dsts.begin(), dsts.end()}});
    InsertTask(document, -1, {L"U", L"C:\\src", L"", {dsts[3]}});
    app.Document().AddListener([this](DocChangeEventFlags what) { dialog.OnDocumentChanged(what); });
    dialog.Start(MakePlanRequest(Context(), {}), {});
    dialog.CreateModeless(nullptr, loop);
    ::SetFocus(Matrix());
  }

  // Lets the plan end and be shown.
  void Plan() {
    threads.Work();
    ::SendMessageW(dialog.Hwnd(), WM_TIMER, 1, 0);
  }

  HWND Matrix() const { return dialog.Item(IDC_PLAN_MATRIX); }
  HWND Findings() const { return dialog.Item(IDC_PLAN_ADVICE); }
  testing::AssertionResult DetailHas(const wchar_t* part) const {
    return test::Has(dialog.ItemText(IDC_PLAN_DETAIL), part);
  }

  CDocument& document = app.Document();
  CColumnsDlgSetting setting;
  CPlanDialog dialog{Context(), setting};
};

TEST_F(PlanDialog, arrow_keys_move_between_cells_and_show_why) {
  EXPECT_EQ(dialog.ItemText(IDC_PLAN_STATE), L"計画しています（0 / 2）");
  EXPECT_TRUE(::IsWindowEnabled(dialog.Item(IDC_PLAN_STOP)));
  Plan();
  EXPECT_EQ(CellOf(Matrix(), 0, 1) + CellOf(Matrix(), 0, 2) + CellOf(Matrix(), 0, 3) + CellOf(Matrix(), 0, 4),
            L"作成スキップ名前の衝突未到達");
  EXPECT_EQ(CellOf(Matrix(), 1, 4), L"転送先に届かない");
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_PLAN_STOP)));
  EXPECT_TRUE(DetailHas(L"new.txt"));
  PressKey(Matrix(), VK_RIGHT);
  EXPECT_TRUE(DetailHas(L"D:\\made\\T_2016"));
  for (int i = 0; i < 9; ++i) PressKey(Matrix(), VK_RIGHT);
  PressKey(Matrix(), VK_DOWN);
  EXPECT_TRUE(DetailHas(L"U → Q:\\gone"));
  Click(dialog.Hwnd(), IDC_PLAN_SHOW_NEWEST);
  ASSERT_FALSE(shell.calls.empty());
  EXPECT_TRUE(test::Has(shell.calls.back(), L"C:\\src\\new.txt"));
}

TEST_F(PlanDialog, finding_leads_to_its_cell_and_a_leftover_to_the_recycle_bin) {
  Plan();
  const int count = ListView_GetItemCount(Findings());
  ASSERT_GT(count, 2);
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_PLAN_RECYCLE)));
  ::SetFocus(Findings());
  int row = 0;
  while (row < count && CellOf(Findings(), row, 2).find(L"_tmp_T_2015") == std::wstring::npos) ++row;
  test::FocusRow(Findings(), row);
  EXPECT_TRUE(DetailHas(L"T → D:\\made"));
  Click(dialog.Hwnd(), IDC_LIST_COPY);
  EXPECT_TRUE(test::Has(my::CClipboard(L"Quillmoor").Text(dialog.Hwnd()).value_or(L""), L"_tmp_T_2015"));
  dialogs.buttons = {true};
  Click(dialog.Hwnd(), IDC_PLAN_RECYCLE);
  ASSERT_FALSE(shell.calls.empty());
  EXPECT_EQ(shell.calls.back(), L"Recycle D:\\made\\_tmp_T_2015");
  EXPECT_EQ(ListView_GetItemCount(Findings()), count - 1);
}

TEST_F(PlanDialog, excluded_file_is_planned_again_and_a_change_makes_the_plan_old) {
  Plan();
  dialogs.paths = {L"C:\\T.flt"};
  Click(dialog.Hwnd(), IDC_PLAN_EXCLUDE);
  EXPECT_EQ(dialog.ItemText(IDC_PLAN_STATE), L"計画しています（0 / 2）");
  Plan();
  EXPECT_TRUE(DetailHas(L"old.txt"));
  EXPECT_EQ(app.Document().Tasks()[0]->filterPath, L"C:\\T.flt");
  RemoveDsts(app.Document(), {1});
  EXPECT_EQ(dialog.ItemText(IDC_PLAN_STATE), texts.Text(IDS_PLAN_OUTDATED));
  PressKey(Matrix(), VK_F5);
  Plan();
  EXPECT_EQ(CellOf(Matrix(), 0, 2), L"名前の衝突") << "without the column of the removed destination";
  Click(dialog.Hwnd(), IDC_PLAN_AGAIN);
  Click(dialog.Hwnd(), IDC_PLAN_STOP);
  Plan();
  EXPECT_EQ(dialog.ItemText(IDC_PLAN_STATE), L"中止しました（0 / 2）");
}

TEST(PlanCommand, keys_run_and_plan_the_selected_tasks) {
  test::CGuiApp a;
  a.scratch.Write(L"src\\a.txt", "a");
  a.AddDst(a.scratch.At(L"made"));
  for (const wchar_t* id : {L"A", L"B"}) a.AddTask(id, a.scratch.At(L"src"));
  SetUse(a.app->Document(), {0, 1}, 0, true);
  a.Select(IDC_TASK_LIST, {1});
  EXPECT_TRUE(test::PressUntil(a.loop, a.frame->Hwnd(), {VK_SHIFT, VK_F9},
                               [] { return test::DialogWith(IDC_PLAN_MATRIX) != nullptr; }));
  const HWND plan = test::DialogWith(IDC_PLAN_MATRIX);
  const HWND matrix = ::GetDlgItem(plan, IDC_PLAN_MATRIX);
  test::PumpUntil([plan] { return !::IsWindowEnabled(::GetDlgItem(plan, IDC_PLAN_STOP)); });
  EXPECT_EQ(CellOf(matrix, 0, 0) + CellOf(matrix, 0, 1), L"B作成");
  EXPECT_EQ(ListView_GetSelectedCount(matrix), 1u) << "the cell that has the focus";
  a.DoWithDialog([matrix] { PressKey(matrix, VK_RETURN); },
                 [](HWND targets) {
                   EXPECT_TRUE(::GetDlgItem(targets, IDC_TARGET_LIST));
                   ::SendMessageW(targets, WM_COMMAND, IDCANCEL, 0);
                 });
  ::SendMessageW(plan, WM_CLOSE, 0, 0);
  EXPECT_TRUE(test::PressUntil(a.loop, a.frame->Hwnd(), {VK_SHIFT, VK_F5},
                               [&a] { return a.app->Run().RowCount() != 0 && !a.app->Run().IsActive(); }));
  EXPECT_EQ(a.app->Run().RowCount(), 1u);
  a.Quit();
}

}  // namespace
