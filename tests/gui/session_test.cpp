
#include "gui/gui_app.h"

namespace {

using namespace qlm;
using test::CGuiApp;
using test::Click;
using test::Type;

struct Session : testing::Test {
  void AddByDialogs() {
    a.DoWithDialog(ID_DST_ADD, [this](HWND dialog) {
      Type(dialog, IDC_DST_FOLDER, L"");
      Click(dialog, IDOK);
      EXPECT_EQ(a.box.texts.back(), a.texts.Text(IDS_PATH_EMPTY));
      Type(dialog, IDC_DST_FOLDER, a.scratch.At(L"out").c_str());
      Click(dialog, IDOK);
    });
    a.DoWithDialog(ID_TASK_ADD, [this](HWND dialog) {
      Type(dialog, IDC_TASK_ID, L"a/b");
      Type(dialog, IDC_TASK_PATH, a.scratch.At(L"書類").c_str());
      Click(dialog, IDOK);
      EXPECT_EQ(a.box.texts.back(), a.texts.Text(IDS_ID_BAD_CHARACTER));
      Type(dialog, IDC_TASK_ID, L"書類");
      Click(dialog, IDOK);
    });
  }

  CGuiApp a;
};

TEST_F(Session, document_is_built_by_dialogs_saved_run_and_its_results_are_read) {
  a.scratch.files.CreateFolders(a.scratch.At(L"書類"));
  a.scratch.Write(L"書類\\a.txt", "x");
  AddByDialogs();
  ASSERT_EQ(a.app->Document().Tasks().size(), 1u);
  EXPECT_EQ(a.app->Document().Tasks()[0]->dsts.size(), 1u) << "the only destination is the first choice";
  const std::wstring path = a.scratch.At(L"文書.qlmr");
  a.DoWithDialog(ID_SAVE, [&path](HWND dialog) {
    constexpr int kNameCombo = 0x47C;
    ::SetDlgItemTextW(dialog, kNameCombo, path.c_str());
    Click(dialog, IDOK);
  });
  EXPECT_EQ(a.app->Document().Path(), path);
  a.RunToEnd();
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 4), a.texts.Text(IDS_PHASE_CREATED));
  EXPECT_TRUE(test::StatusText(a.StatusBar()).starts_with(L"1 / 1  正常終了"));
  a.Do(ID_RESULTS);
  const HWND results = test::DialogWith(IDC_RESULT_LIST);
  ASSERT_TRUE(results);
  const HWND list = ::GetDlgItem(results, IDC_RESULT_LIST);
  ASSERT_EQ(ListView_GetItemCount(list), 1);
  EXPECT_EQ(test::CellOf(list, 0, 0), L"書類");
  EXPECT_EQ(test::CellOf(list, 0, 4), a.texts.Text(IDS_PHASE_CREATED));
  EXPECT_EQ(a.scratch.files.Kind(test::CellOf(list, 0, 1)), my::PathKind::FOLDER);
}

TEST_F(Session, test_run_shows_what_it_found_and_an_error_shows_the_results) {
  a.scratch.files.CreateFolders(a.scratch.At(L"書類"));
  a.scratch.Write(L"書類\\a.txt", "x");
  AddByDialogs();
  bool shown = false;
  a.DoWithDialog(ID_TASK_TARGETS, [&shown](HWND dialog) {
    shown = ListView_GetItemCount(::GetDlgItem(dialog, IDC_TARGET_LIST)) == 1;
    Click(dialog, IDCANCEL);
  });
  EXPECT_TRUE(shown);
  a.scratch.files.RemoveFolder(a.scratch.At(L"書類"));
  EXPECT_FALSE(test::DialogWith(IDC_RESULT_LIST));
  a.RunToEnd();
  EXPECT_TRUE(test::DialogWith(IDC_RESULT_LIST));
  EXPECT_TRUE(test::StatusText(a.StatusBar(), 2).starts_with(L"エラー 1 件"));
}

}  // namespace
