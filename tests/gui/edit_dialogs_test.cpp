// The task dialog and the destination dialog, with a file system in memory.

#include "control_ids.h"
#include "gui/dialog_app.h"
#include "ui/dialogs/dst_dialog.h"
#include "ui/dialogs/task_dialog.h"
#include "ui/framework/dpi.h"

namespace {

using namespace qlm;

struct EditDialogs : testing::Test, test::CDialogAppOn<test::CMemoryFileSystem> {
  EditDialogs() {
    files.AddFolder(L"D:\\docs");
    for (const wchar_t* folder : {L"C:\\a", L"D:\\docs\\b", L"E:\\"}) InsertDst(document, -1, {folder});
    InsertTask(document, -1, {L"Docs", L"D:\\docs", L"f.flt", {document.Dsts()[2], document.Dsts()[0]}});
    InsertTask(document, -1, {L"Mail", L"D:\\docs", L"", {}});
  }

  static void Click(const my::CDialog& dialog, int id) { test::Click(dialog.Hwnd(), id); }
  static void Choose(const my::CDialog& dialog, DstType type) {
    test::Choose(dialog.Hwnd(), IDC_DST_TYPE, static_cast<int>(type));
  }
  // Inserts the token from the menu next to the pattern.
  static void InsertToken(const my::CDialog& dialog) {
    ::SendMessageW(dialog.Hwnd(), WM_COMMAND, IDC_DST_TOKEN_FIRST, 0);
  }
  static bool HasFocus(const my::CDialog& dialog, int id) { return ::GetFocus() == dialog.Item(id); }

  // Returns the message with which OK is refused, and the control with the focus then.
  std::pair<std::wstring, int> Refused(const my::CDialog& dialog) {
    dialogs.boxes.clear();
    ::SetFocus(dialog.Item(IDCANCEL));
    Click(dialog, IDOK);
    EXPECT_TRUE(dialog.Hwnd());
    const std::wstring box = dialogs.boxes.empty() ? L"" : dialogs.boxes.back();
    return {box.substr(box.find(L": ") + 2), ::GetDlgCtrlID(::GetFocus())};
  }
  std::pair<std::wstring, int> Refusal(uint32_t id, int control) const { return {texts.Text(id), control}; }

  CTaskDialog::CConfirm ReplaceFirst() {
    return [this](const CTask& task) { ReplaceTask(document, 0, task); };
  }

  CAppContext& context = app.Context();
  CDocument& document = app.Document();
};

TEST_F(EditDialogs, invalid_task_is_refused_with_the_focus_on_the_wrong_control) {
  dialogs.filterFailure = IDS_PATTERN_EMPTY;
  CTaskDialog dialog(context, *document.Tasks()[0], ReplaceFirst());
  dialog.CreateModeless(nullptr, loop);
  dialog.SetItemText(IDC_TASK_ID, L"Mail");
  EXPECT_EQ(Refused(dialog), Refusal(IDS_ID_DUPLICATE, IDC_TASK_ID));
  dialog.SetItemText(IDC_TASK_ID, L"a/b");
  EXPECT_EQ(Refused(dialog), Refusal(IDS_ID_BAD_CHARACTER, IDC_TASK_ID));
  dialog.SetItemText(IDC_TASK_ID, L"");
  EXPECT_EQ(Refused(dialog), Refusal(IDS_ID_EMPTY, IDC_TASK_ID));
  dialog.SetItemText(IDC_TASK_PATH, L"");
  EXPECT_EQ(Refused(dialog), Refusal(IDS_PATH_EMPTY, IDC_TASK_PATH));

  Click(dialog, IDC_TASK_CHECK_FILTER);
  EXPECT_EQ(dialogs.filters.back(), L"f.flt|");
  EXPECT_TRUE(HasFocus(dialog, IDC_TASK_FILTER));
  dialog.SetItemText(IDC_TASK_FILTER, L"");
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_TASK_CHECK_FILTER)));
  dialogs.paths = {L"C:\\g.flt"};
  Click(dialog, IDC_TASK_BROWSE_FILTER);
  EXPECT_EQ(dialogs.questions.back().kinds[1].pattern, L"*.txt");

  ::SetFocus(dialog.Item(IDC_TASK_PATH));
  dialog.SetItemText(IDC_TASK_PATH, L"D:\\docs\\New\\");
  ::SetFocus(dialog.Item(IDC_TASK_FILTER));
  EXPECT_EQ(dialog.ItemText(IDC_TASK_ID), L"New");
  Click(dialog, IDOK);
  EXPECT_FALSE(dialog.Hwnd());
  EXPECT_EQ(*document.Tasks()[0],
            (CTask{L"New", L"D:\\docs\\New\\", L"C:\\g.flt", {document.Dsts()[2], document.Dsts()[0]}}));
}

TEST_F(EditDialogs, destinations_of_a_task_are_selected_and_ordered_by_keyboard) {
  CTaskDialog dialog(context, *document.Tasks()[0], ReplaceFirst());
  dialog.CreateModeless(nullptr, loop);
  const HWND list = dialog.Item(IDC_TASK_DSTS);
  EXPECT_EQ(ListView_GetItemCount(list), 3);
  EXPECT_NE(ListView_GetItemState(list, 0, LVIS_STATEIMAGEMASK), 0u) << "the box";
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_TASK_UP)));
  EXPECT_EQ(dialog.ItemText(IDC_TASK_WARNING), L"");
  test::FocusRow(list, 2);
  Click(dialog, IDC_TASK_OPEN_DST);
  EXPECT_EQ(dialogs.boxes.size(), 1u) << "the folder is not there yet";
  files.AddFolder(L"D:\\docs\\b");
  Click(dialog, IDC_TASK_OPEN_DST);
  EXPECT_EQ(shell.calls, std::vector<std::wstring>{L"Open D:\\docs\\b"});
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_TASK_UP)));
  ::SendMessageW(list, WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_TASK_WARNING), L"D:\\docs\\b"));
  ::SendMessageW(list, WM_SYSKEYDOWN, VK_UP, 1 << 29);
  ::SetFocus(dialog.Item(IDC_TASK_UP));
  Click(dialog, IDC_TASK_UP);
  EXPECT_TRUE(HasFocus(dialog, IDC_TASK_DSTS));
  test::FocusRow(list, 2);
  ::SendMessageW(list, WM_KEYDOWN, VK_SPACE, 0);
  ListView_SetColumnWidth(list, 1, my::Scale(77, dialog.Dpi()));
  Click(dialog, IDOK);
  EXPECT_EQ(document.Tasks()[0]->dsts, (CTaskDsts{document.Dsts()[1], document.Dsts()[2]}));
  EXPECT_EQ(context.settings.taskDlg.columnWidthes[1], 77);
}

TEST_F(EditDialogs, pattern_extension_follows_the_type_and_the_name_is_previewed) {
  window.tasks.selected = {1};
  const CDst old = *document.Dsts()[0];
  CDstDialog dialog(context, old, [this](const CDst& dst) { ReplaceDst(document, 0, dst); });
  dialog.CreateModeless(nullptr, loop);
  files.AddFile(L"C:\\7z.exe", "MZ");
  context.settings.archive.sevenZipPath = L"C:\\7z.exe";
  dialog.SetItemText(IDC_DST_PATTERN, L"a.b_<ID>_");
  Choose(dialog, DstType::PASSWORD_ZIP);
  EXPECT_EQ(dialog.ItemText(IDC_DST_PATTERN), L"a.zip");
  EXPECT_NE(dialog.ItemText(IDC_DST_NOTE), L"");
  ::SendMessageW(dialog.Item(IDC_DST_PATTERN), EM_SETSEL, 0, 1);
  InsertToken(dialog);
  EXPECT_EQ(dialog.ItemText(IDC_DST_PATTERN), L"<ID>.zip");
  EXPECT_EQ(dialog.ItemText(IDC_DST_PREVIEW), L"Mail.zip");
  dialog.SetItemText(IDC_DST_FOLDER, L"C:\\con\\x");
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_DST_PREVIEW), L"「con」"));
  const auto warned = [&] { return dialog.ItemText(IDC_DST_NOTE).find(L"my docs") != std::wstring::npos; };
  EXPECT_FALSE(warned());
  dialog.SetItemText(IDC_DST_FOLDER, L"C:\\my docs");
  EXPECT_TRUE(warned());
  Choose(dialog, DstType::FOLDER);
  EXPECT_FALSE(warned());

  ::SendMessageW(dialog.Item(IDC_DST_PATTERN), EM_SETSEL, 0, -1);
  InsertToken(dialog);
  EXPECT_EQ(dialog.ItemText(IDC_DST_PATTERN), L"<ID><ID>");
  dialog.SetItemText(IDC_DST_PATTERN, L"");
  Choose(dialog, DstType::ZIP);
  EXPECT_EQ(Refused(dialog), Refusal(IDS_PATTERN_EMPTY, IDC_DST_PATTERN));
  dialog.SetItemText(IDC_DST_FOLDER, L"");
  EXPECT_EQ(Refused(dialog), Refusal(IDS_PATH_EMPTY, IDC_DST_FOLDER));
  Choose(dialog, DstType::FOLDER);
  dialog.SetItemText(IDC_DST_FOLDER, L"E:\\");
  dialog.SetItemText(IDC_DST_PATTERN, old.pattern);
  EXPECT_EQ(Refused(dialog), Refusal(IDS_DST_DUPLICATE, IDC_DST_PATTERN));
  dialog.SetItemText(IDC_DST_PATTERN, L"x.zip");
  Click(dialog, IDOK);
  EXPECT_EQ(*document.Dsts()[0], (CDst{L"E:\\", DstType::FOLDER, L"x"}));
  EXPECT_EQ(document.Tasks()[0]->dsts[1], document.Dsts()[0]);
}

TEST_F(EditDialogs, missing_archiver_is_reported_for_archives_and_can_be_set) {
  CDstDialog dialog(context, {}, [](const CDst&) {});
  dialog.CreateModeless(nullptr, loop);
  const auto offered = [&] { return ::IsWindowVisible(dialog.Item(IDC_DST_SETTINGS)) != FALSE; };
  EXPECT_FALSE(offered());
  Choose(dialog, DstType::ZIP);
  EXPECT_TRUE(offered());
  EXPECT_TRUE(test::Has(dialog.ItemText(IDC_DST_NOTE), texts.Text(IDS_DST_NO_ARCHIVER)));
  ::SetFocus(dialog.Item(IDC_DST_SETTINGS));
  context.settings.archive.sevenZipPath = L"C:\\7z.exe";
  files.AddFile(L"C:\\7z.exe", "MZ");
  Click(dialog, IDC_DST_SETTINGS);
  EXPECT_EQ(dialogs.settingsPages, std::vector<bool>{false});
  EXPECT_FALSE(offered());
  EXPECT_TRUE(HasFocus(dialog, IDC_DST_TYPE));
}

}  // namespace
