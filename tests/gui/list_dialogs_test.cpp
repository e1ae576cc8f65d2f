#include "control_ids.h"
#include "gui/dialog_app.h"
#include "ui/dialogs/filter_dialog.h"
#include "ui/dialogs/result_dialog.h"
#include "ui/dialogs/target_dialog.h"
#include "ui/framework/clipboard.h"
#include "ui/framework/dpi.h"
#include "ui/models/table_text.h"

namespace {

using namespace qlm;
using test::Click;
using test::PressKey;
using test::Type;

constexpr int64_t kNoon = 133'500'000'000'000'000;

bool IsAtEnd(HWND list) {
  return ListView_GetTopIndex(list) + ListView_GetCountPerPage(list) >= ListView_GetItemCount(list);
}

void PressWithControl(HWND control, WPARAM key) {
  BYTE keys[256]{};
  keys[VK_CONTROL] = 0x80;
  ::SetKeyboardState(keys);
  PressKey(control, key);
  keys[VK_CONTROL] = 0;
  ::SetKeyboardState(keys);
}

// The program with a file system in memory.
struct ListDialogs : testing::Test, test::CDialogAppOn<test::CMemoryFileSystem> {
  // Three entries, the last of them excluded, and one unlisted folder.
  CResultPtr MakeResult() {
    auto filter = boost::make_shared<CFilter>();
    filter->Parse({L"- [.]bak$"}, texts);
    auto targets = boost::make_shared<CTargets>(filter);
    const size_t docs = targets->Add({L"docs", {}, 0, my::kAttributeFolder});
    targets->Add({L"a.txt", {kNoon}, 1234, 0}, docs);
    targets->Add({L"A.bak", {kNoon * 2}, 9, 0}, docs, filter->Items()[0].get());
    targets->AddUnlisted(L"secret", my::CSystemError::FromWin32(my::kErrorAccessDenied));
    const CDst dst{L"C:\\backup", DstType::FOLDER, L"<ID>"};
    const CTask task{L"work", L"C:\\src", L"", {boost::make_shared<CDst>(dst)}};
    const auto result = boost::make_shared<CResult>();
    result->phase = Phase::Created;
    result->task = boost::make_shared<CTask>(task);
    result->targets = targets;
    result->newestWriteTime = {kNoon};
    result->destinationPath = L"C:\\backup\\work_1";
    return result;
  }

  static int Selected(HWND list) { return ListView_GetNextItem(list, -1, LVNI_SELECTED); }
  std::wstring LastCall() const { return shell.calls.empty() ? L"" : shell.calls.back(); }

  CAppContext& context = app.Context();
  CResultListModel rows{app.Settings().ui, texts, clock};
};

TEST_F(ListDialogs, filter_check_shows_the_deciding_line_and_opens_an_editor) {
  files.AddFile(L"C:\\work.flt", "# rules\r\n- [.]bak$\r\n+ ^docs\r\nx\r\n");
  CFilterDialog dialog(context, L"C:\\work.flt", L"C:\\src");
  dialog.CreateModeless(nullptr, loop);
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_STATUS), L"4 行、エラー 1 件");
  Type(dialog.Hwnd(), IDC_FILTER_PATH, L"docs/a.bak");
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_DECISION), L"2 行目の規則により除外されます");
  EXPECT_EQ(Selected(dialog.Item(IDC_FILTER_LINES)), 1);
  Type(dialog.Hwnd(), IDC_FILTER_PATH, L"c:\\SRC\\docs\\a.txt");
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_DECISION), L"3 行目の規則により対象になります");
  Type(dialog.Hwnd(), IDC_FILTER_PATH, L"else");
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_DECISION), texts.Text(IDS_FILTER_NO_MATCH));
  EXPECT_EQ(Selected(dialog.Item(IDC_FILTER_LINES)), -1);

  files.AddFile(L"C:\\work.flt", "- else");
  PressKey(dialog.Item(IDC_FILTER_PATH), VK_F5);
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_DECISION), L"1 行目の規則により除外されます");
  files.Remove(L"C:\\work.flt");
  Click(dialog.Hwnd(), IDC_FILTER_RELOAD);
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_FILTER_STATUS), L"work.flt"));

  shell.failure = my::CException(IDS_PATH_EMPTY);
  Click(dialog.Hwnd(), IDC_FILTER_EDIT);
  EXPECT_EQ(LastCall(), L"Open C:\\work.flt");
  EXPECT_TRUE(Said(IDS_PATH_EMPTY));
  shell.failure = my::CException(IDS_SHELL_OPEN_FAILED,
                                 {my::CSystemError::FromWin32(my::kErrorNoAssociation), L"C:\\work.flt"});
  Click(dialog.Hwnd(), IDC_FILTER_EDIT);
  EXPECT_EQ(LastCall(), L"Run notepad.exe \"C:\\work.flt\"");

  files.AddFile(L"C:\\my rules.txt", "+abc def\n- \"a b \"\n");
  dialogs.paths = {L"C:\\my rules.txt"};
  Click(dialog.Hwnd(), IDC_FILTER_OPEN);
  EXPECT_EQ(dialogs.questions.back().kinds.at(0).pattern + dialogs.questions.back().kinds.at(1).pattern,
            L"*.flt*.txt");
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_FILE), L"C:\\my rules.txt");
  EXPECT_EQ(dialog.ItemText(IDC_FILTER_STATUS), L"2 行、エラー 0 件");
  const HWND lines = dialog.Item(IDC_FILTER_LINES);
  EXPECT_EQ(test::CellOf(lines, 0, 2) + test::CellOf(lines, 1, 2), L"defa b ");
}

TEST_F(ListDialogs, enter_tests_the_typed_path_without_loading_the_filter) {
  files.AddFile(L"C:\\work.flt", "- bak");
  CFilterDialog dialog(context, L"C:\\work.flt");
  dialog.CreateModeless(nullptr, loop);
  Type(dialog.Hwnd(), IDC_FILTER_PATH, L"a.bak");
  files.AddFile(L"C:\\work.flt", "+ bak");
  const HWND lines = dialog.Item(IDC_FILTER_LINES);
  ListView_SetItemState(lines, -1, 0, LVIS_SELECTED);
  EXPECT_TRUE(test::PressUntil(loop, dialog.Hwnd(), {VK_RETURN}, [&] { return Selected(lines) == 0; }));
  EXPECT_EQ(test::CellOf(lines, 0, 1), L"-");
}

TEST_F(ListDialogs, targets_can_be_searched_opened_and_copied) {
  files.AddFile(L"C:\\src\\docs\\a.txt", "a");
  files.AddFile(L"C:\\backup\\work_1\\docs\\a.txt", "a");
  CTargetDialog dialog(context, MakeResult());
  dialog.CreateModeless(nullptr, loop);
  const HWND list = dialog.Item(IDC_TARGET_LIST);
  Click(dialog.Hwnd(), IDC_TARGET_SHOW_SOURCE);
  EXPECT_TRUE(Said(IDS_NO_ITEM_SELECTED));
  EXPECT_EQ(::GetFocus(), list);
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_TARGET_NEWEST), L"docs\\a.txt"));
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_TARGET_UNLISTED), L"1 件あります: secret"));

  Type(dialog.Hwnd(), IDC_TARGET_SEARCH, L"a.b");
  EXPECT_EQ(Selected(list), 2);
  Type(dialog.Hwnd(), IDC_TARGET_SEARCH, L"DOCS");
  EXPECT_EQ(Selected(list), 2);  // still matches
  PressKey(dialog.Item(IDC_TARGET_SEARCH), VK_F3);
  EXPECT_EQ(Selected(list), 0);  // wraps around
  Type(dialog.Hwnd(), IDC_TARGET_SEARCH, L"nowhere");
  EXPECT_EQ(dialog.ItemText(IDC_TARGET_FOUND), texts.Text(IDS_TARGET_NOT_FOUND));

  Click(dialog.Hwnd(), IDC_TARGET_GO_NEWEST);
  PressWithControl(list, L'C');
  const std::wstring copied = my::CClipboard(L"Quillmoor").Text(dialog.Hwnd()).value_or(L"");
  EXPECT_TRUE(copied.starts_with(L"docs\\a.txt\t2024/"));
  EXPECT_TRUE(test::Has(copied, L"\t1,234\t"));
  PressKey(list, VK_RETURN);
  EXPECT_EQ(LastCall(), L"Run EXPLORER.EXE /n,/select,\"C:\\src\\docs\\a.txt\"");
  Click(dialog.Hwnd(), IDC_TARGET_SHOW_BACKUP);
  EXPECT_EQ(LastCall(), L"Run EXPLORER.EXE /n,/select,\"C:\\backup\\work_1\\docs\\a.txt\"");
}

// Closes the target dialog above the results.
VOID CALLBACK CloseTargets(HWND results, UINT, UINT_PTR timer, DWORD) {
  const HWND targets = ::GetLastActivePopup(results);
  if (!::GetDlgItem(targets, IDC_TARGET_LIST)) return;
  ::KillTimer(results, timer);
  EXPECT_FALSE(::IsWindowEnabled(::GetWindow(results, GW_OWNER)));
  ::PostMessageW(targets, WM_COMMAND, IDCANCEL, 0);
}

TEST_F(ListDialogs, results_follow_a_run_and_can_be_opened_and_saved) {
  my::CWindow owner;
  my::CWindowParams shown;
  shown.style |= WS_VISIBLE;
  owner.Create(test::FrameClass(), shown);
  CResultDialog dialog(context, rows);
  dialog.CreateModeless(owner.Hwnd(), loop);
  const HWND list = dialog.Item(IDC_RESULT_LIST);
  const CResultPtr row = MakeResult();
  rows.ShowResults(0, CResults(10'000, row));
  dialog.RowsChanged();
  EXPECT_TRUE(IsAtEnd(list));
  const auto add = [&] {
    rows.ShowResults(rows.RowCount(), {row});
    dialog.RowsChanged();
    ::UpdateWindow(list);
  };
  add();
  EXPECT_TRUE(IsAtEnd(list));
  ListView_EnsureVisible(list, 5, FALSE);
  const int top = ListView_GetTopIndex(list);
  add();
  EXPECT_EQ(ListView_GetTopIndex(list), top);

  files.AddFolder(L"C:\\backup\\work_1");
  test::FocusRow(list, 0);
  PressWithControl(list, L'O');
  EXPECT_EQ(LastCall(), L"Open C:\\backup\\work_1");
  dialogs.paths = {L"C:\\out.csv"};
  Click(dialog.Hwnd(), IDC_RESULT_SAVE);
  EXPECT_EQ(files.Files()[L"C:\\out.csv"], CsvText(rows));
  ::SetTimer(dialog.Hwnd(), 1, 20, CloseTargets);
  PressKey(list, VK_RETURN);
  EXPECT_TRUE(::IsWindowEnabled(owner.Hwnd()));
}

// Clicks the title of a column as the header control reports it.
void ClickTitle(HWND list, int column) {
  NMLISTVIEW click{};
  click.hdr = {list, static_cast<UINT_PTR>(::GetDlgCtrlID(list)), LVN_COLUMNCLICK};
  click.iItem = -1;
  click.iSubItem = column;
  ::SendMessageW(::GetParent(list), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

int ArrowOf(HWND list, int column) {
  HDITEMW item{};
  item.mask = HDI_FORMAT;
  Header_GetItem(ListView_GetHeader(list), column, &item);
  return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
}

TEST_F(ListDialogs, whole_text_of_the_focused_result_is_shown) {
  const auto failed = boost::make_shared<CResult>(*MakeResult());
  failed->phase = Phase::Listed;
  failed->error = {IDS_TARGET_IS_FILE, 0, L"taken"};
  rows.ShowResults(0, {MakeResult(), failed});
  CResultDialog dialog(context, rows);
  dialog.CreateModeless(nullptr, loop);
  EXPECT_EQ(dialog.ItemText(IDC_RESULT_DETAIL), rows.Detail(1)) << "of the first error";
  Click(dialog.Hwnd(), IDC_RESULT_EXPLAIN);
  EXPECT_TRUE(LastCall().ends_with(L"\\messages.html"));
  EXPECT_TRUE(test::Has(rows.Detail(1), texts.Text(IDS_REMEDY_TARGET_TAKEN)));
  const HWND detail = dialog.Item(IDC_RESULT_DETAIL);
  ::SetFocus(detail);
  PressWithControl(detail, L'A');
  ::SendMessageW(detail, EM_SETSEL, 3, 5);
  dialog.RowsChanged(1);
  EXPECT_EQ(::SendMessageW(detail, EM_GETSEL, 0, 0), MAKELONG(3, 5)) << "the text has not changed";
  test::FocusRow(dialog.Item(IDC_RESULT_LIST), 0);
  EXPECT_EQ(dialog.ItemText(IDC_RESULT_DETAIL), rows.Detail(0));
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_RESULT_EXPLAIN))) << "no error";
  wchar_t text[1024] = L"label";
  NMLVGETINFOTIPW tip{
      {dialog.Item(IDC_RESULT_LIST), IDC_RESULT_LIST, LVN_GETINFOTIPW}, 0, text, 1024, 1, 0, 0};
  ::SendMessageW(dialog.Hwnd(), WM_NOTIFY, IDC_RESULT_LIST, reinterpret_cast<LPARAM>(&tip));
  EXPECT_EQ(text, rows.Tip(1));
}

TEST_F(ListDialogs, results_are_sorted_and_filtered_while_rows_arrive) {
  const auto add = [&](const wchar_t* id, bool fails) {
    const auto row = boost::make_shared<CResult>(*MakeResult());
    const auto task = boost::make_shared<CTask>(*row->task);
    task->id = id;
    row->task = task;
    row->targets = boost::make_shared<CTargets>();
    if (fails) row->error = {IDS_TARGET_IS_FILE, 0, L"taken"};
    rows.ShowResults(rows.RowCount(), {row});
  };
  for (const wchar_t* id : {L"c", L"=b", L"d"}) add(id, *id == L'd');
  CResultDialog dialog(context, rows);
  dialog.CreateModeless(nullptr, loop);
  const HWND list = dialog.Item(IDC_RESULT_LIST);
  const auto ids = [list] {
    std::wstring all;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) all += test::CellOf(list, row, 0);
    return all;
  };
  const LONG width = test::Size(dialog.Hwnd()).cx;
  ClickTitle(list, 0);
  EXPECT_EQ(ids(), L"=bcd");
  EXPECT_EQ(ArrowOf(list, 0), HDF_SORTUP);
  EXPECT_EQ(Selected(list), 2) << "the first error stays selected";
  add(L"a", false);
  dialog.RowsChanged(3);
  EXPECT_EQ(ids(), L"=bacd");
  EXPECT_EQ(Selected(list), 3);
  EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_FOCUSED), 3);
  test::FocusRow(list, 0);
  PressWithControl(list, L'C');
  EXPECT_TRUE(my::CClipboard(L"Quillmoor").Text(dialog.Hwnd()).value_or(L"").starts_with(L"'=b\t"))
      << "as text, not as a formula";
  ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
  PressWithControl(list, L'1');
  EXPECT_EQ(ids(), L"dca=b") << "descending by the keyboard";
  EXPECT_EQ(ArrowOf(list, 0), HDF_SORTDOWN);
  ClickTitle(list, 0);
  EXPECT_EQ(ids(), L"c=bda") << "the order of the run again";
  EXPECT_EQ(ArrowOf(list, 0), 0);

  Click(dialog.Hwnd(), IDC_RESULT_ERRORS);
  EXPECT_EQ(ids(), L"d");
  EXPECT_EQ(Selected(list), -1);
  EXPECT_EQ(dialog.ItemText(IDC_RESULT_SHOWN), L"4 件中 1 件を表示");
  EXPECT_EQ(dialog.ItemText(IDC_RESULT_DETAIL), rows.Detail(2)) << "the only row left has the focus";
  Click(dialog.Hwnd(), IDC_RESULT_ERRORS);
  PressWithControl(list, L'F');
  EXPECT_EQ(::GetFocus(), dialog.Item(IDC_RESULT_SEARCH));
  Type(dialog.Hwnd(), IDC_RESULT_SEARCH, L"=B");
  EXPECT_EQ(ids(), L"=b");
  EXPECT_EQ(test::Size(dialog.Hwnd()).cx, width) << "no text has made the window wider";
  EXPECT_TRUE(test::PressUntil(loop, dialog.Hwnd(), {VK_RETURN}, [&] { return ::GetFocus() == list; }));
  files.AddFolder(L"C:\\backup\\work_1");
  test::FocusRow(list, 0);
  PressWithControl(list, L'O');
  EXPECT_EQ(LastCall(), L"Open C:\\backup\\work_1");
}

}  // namespace
