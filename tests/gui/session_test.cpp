#include "gui/gui_app.h"

namespace {

using namespace qlm;
using test::CGuiApp;
using test::Click;
using test::Type;

TEST(Session, document_is_built_with_dialogs_saved_run_and_its_results_shown) {
  CGuiApp a;
  a.scratch.Write(L"書類\\a.txt", "x");
  a.DoWithDialog(ID_DST_ADD, [&a](HWND dialog) {
    Type(dialog, IDC_DST_FOLDER, a.scratch.At(L"out").c_str());
    Click(dialog, IDOK);
  });
  a.DoWithDialog(ID_TASK_ADD, [&a](HWND dialog) {
    Type(dialog, IDC_TASK_PATH, a.scratch.At(L"書類").c_str());
    Type(dialog, IDC_TASK_ID, L"書類");
    Click(dialog, IDOK);
  });
  ASSERT_EQ(a.app->Document().Tasks().size(), 1u);
  EXPECT_EQ(a.app->Document().Tasks()[0]->dsts.size(), 1u) << "the only destination is preselected";
  const std::wstring path = a.scratch.At(L"文書.qlmr");
  a.DoWithDialog(ID_SAVE, [&path](HWND dialog) {
    constexpr int kNameCombo = 0x47C;
    ::SetDlgItemTextW(dialog, kNameCombo, path.c_str());
    Click(dialog, IDOK);
  });
  EXPECT_EQ(a.app->Document().Path(), path);
  bool shown = false;
  a.DoWithDialog(ID_TASK_TARGETS, [&shown](HWND dialog) {
    shown = ListView_GetItemCount(::GetDlgItem(dialog, IDC_TARGET_LIST)) == 1;
    Click(dialog, IDCANCEL);
  });
  EXPECT_TRUE(shown);
  a.RunToEnd();
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 5), a.texts.Text(IDS_PHASE_CREATED));
  EXPECT_TRUE(test::StatusText(a.StatusBar()).starts_with(L"1 / 1  正常終了"));
  a.Do(ID_RESULTS);
  const HWND results = test::DialogWith(IDC_RESULT_LIST);
  ASSERT_TRUE(results);
  const HWND list = ::GetDlgItem(results, IDC_RESULT_LIST);
  ASSERT_EQ(ListView_GetItemCount(list), 1);
  EXPECT_EQ(test::CellOf(list, 0, 0), L"書類");
  EXPECT_EQ(test::CellOf(list, 0, 8), a.texts.Text(IDS_PHASE_CREATED));
  EXPECT_EQ(a.scratch.files.Kind(test::CellOf(list, 0, 1)), my::PathKind::Folder);
  ::SendMessageW(results, WM_CLOSE, 0, 0);
  a.scratch.files.RemoveFolder(a.scratch.At(L"書類"));
  a.RunToEnd();
  EXPECT_TRUE(test::DialogWith(IDC_RESULT_LIST)) << "after an error";
  EXPECT_TRUE(test::StatusText(a.StatusBar(), 2).starts_with(L"エラー 1 件"));
}

TEST(Leaks, dialogs_leak_no_gdi_or_user_objects) {
  CGuiApp a;
  a.scratch.Write(L"a.flt", "- x\n");
  a.scratch.Write(L"s\\file", "x");
  a.app->Settings().archive.sevenZipPath = a.scratch.At(L"a.flt");  // any file
  a.AddBackup(L"t", a.scratch.At(L"s"), a.scratch.At(L"out"), DstType::AES_256_ZIP);
  SetTaskFilter(a.app->Document(), 0, a.scratch.At(L"a.flt"));
  a.Select(IDC_DST_LIST, {0});
  a.Select(IDC_TASK_LIST, {0});
  // The first mark of a row creates the icons.
  test::PumpUntil([end = ::GetTickCount64() + 1000] { return ::GetTickCount64() > end; });
  for (const int id : {ID_TASK_EDIT, ID_DST_EDIT, ID_FILTER_CHECK, ID_TASK_TARGETS, ID_SETTINGS, ID_DESIGN,
                       ID_ABOUT, ID_RUN, ID_REPLACE, ID_RESULTS}) {
    const auto open = [&a, id] {
      if (id == ID_REPLACE || id == ID_RESULTS) {  // modeless
        a.Do(id);
        const HWND dialog = test::DialogWith(id == ID_REPLACE ? IDC_REPLACE_SRC : IDC_RESULT_LIST);
        return static_cast<void>(::SendMessageW(dialog, WM_CLOSE, 0, 0));
      }
      a.DoWithDialog(id, [](HWND dialog) { ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
    };
    for (int i = 0; i < 3; ++i) open();  // warm-up: objects that the system keeps
    const DWORD gdi = test::GdiObjects();
    const DWORD user = test::UserObjects();
    for (int i = 0; i < 12; ++i) open();
    EXPECT_EQ(test::GdiObjects(), gdi) << id;
    EXPECT_EQ(test::UserObjects(), user) << id;
  }
}

}  // namespace
