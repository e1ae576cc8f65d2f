#include <gtest/gtest.h>

#include "command_ids.h"
#include "control_ids.h"
#include "gui/gui_app.h"
#include "text_ids.h"

namespace {

using namespace qlm;
using test::CGuiApp;

void Press(HWND dialog, int id) {
  ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}

void Type(HWND dialog, int id, const std::wstring& text) {
  ::SetDlgItemTextW(dialog, id, text.c_str());
}

struct Session : testing::Test {
  void AddByDialogs() {
    a.DoWithDialog(ID_DST_ADD, [this](HWND dialog) {
      Type(dialog, IDC_DST_FOLDER, L"");
      Press(dialog, IDOK);
      EXPECT_EQ(a.box.texts.back(), a.texts.Text(IDS_PATH_EMPTY));
      Type(dialog, IDC_DST_FOLDER, a.scratch.At(L"out"));
      Press(dialog, IDOK);
    });
    a.DoWithDialog(ID_TASK_ADD, [this](HWND dialog) {
      Type(dialog, IDC_TASK_ID, L"a/b");
      Type(dialog, IDC_TASK_PATH, a.scratch.At(L"書類"));
      Press(dialog, IDOK);
      EXPECT_EQ(a.box.texts.back(), a.texts.Text(IDS_ID_BAD_CHARACTER));
      Type(dialog, IDC_TASK_ID, L"書類");
      Press(dialog, IDOK);
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
    Type(dialog, kNameCombo, path);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(a.app->Document().Path(), path);
  a.RunToEnd();
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
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(shown);
  a.scratch.files.RemoveFolder(a.scratch.At(L"書類"));
  EXPECT_FALSE(test::DialogWith(IDC_RESULT_LIST));
  a.RunToEnd();
  EXPECT_TRUE(test::DialogWith(IDC_RESULT_LIST));
  wchar_t status[200] = L"";
  ::SendMessageW(::GetDlgItem(a.frame->Hwnd(), IDC_STATUS_BAR), SB_GETTEXTW, 2,
                 reinterpret_cast<LPARAM>(status));
  EXPECT_EQ(std::wstring(status).find(L"エラー 1 件"), 0U) << status;
}

TEST_F(Session, replace_preview_is_seen_in_the_lists_and_follows_the_selection) {
  a.AddTask(L"alpha", L"C:\\x");
  a.AddTask(L"beta", L"C:\\x");
  a.Select(IDC_TASK_LIST, {0});
  a.Do(ID_REPLACE);
  const HWND dialog = test::DialogWith(IDC_REPLACE_SRC);
  ASSERT_TRUE(dialog);
  for (const int id : {IDC_REPLACE_ROW_SELECTED, IDC_REPLACE_TASK_ID})
    ::SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
  const auto type = [dialog](int id, const wchar_t* text) {
    Type(dialog, id, text);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_EDITCHANGE),
                   reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
    test::Pump();
  };
  type(IDC_REPLACE_SRC, L"a");
  type(IDC_REPLACE_DST, L"A");
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 0), L"AlphA");
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 1, 0), L"beta");
  a.Select(IDC_TASK_LIST, {1});
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 0), L"alpha");
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 1, 0), L"betA");
  Press(dialog, IDCANCEL);
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 1, 0), L"beta");
  a.Do(ID_REPLACE);
  Press(test::DialogWith(IDC_REPLACE_SRC), IDOK);
  EXPECT_EQ(a.app->Document().Tasks()[1]->id, L"betA");
  EXPECT_FALSE(test::DialogWith(IDC_REPLACE_SRC));
}

}  // namespace
