#include "gui/gui_app.h"

namespace {

using test::CGuiApp;

TEST(Leaks, dialogs_leak_no_gdi_or_user_objects) {
  CGuiApp a;
  a.scratch.Write(L"a.flt", "- x\n");
  a.scratch.files.CreateFolders(a.scratch.At(L"s"));
  a.scratch.Write(L"s\\file", "x");
  a.AddDst(a.scratch.At(L"out"), qlm::DstType::AES_256_ZIP);
  a.AddTask(L"t", a.scratch.At(L"s"));
  SetUse(a.app->Document(), {0}, 0, true);
  SetTaskFilter(a.app->Document(), 0, a.scratch.At(L"a.flt"));
  a.Select(IDC_DST_LIST, {0});
  a.Select(IDC_TASK_LIST, {0});
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
