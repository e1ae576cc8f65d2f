// The end of the session and of the program.

#include "gui/gui_app.h"
#include "support/fake_windows.h"
#include "ui/dialogs/message_box.h"
#include "ui/framework/window_placement.h"

namespace {

using namespace qlm;

struct Closing : testing::Test {
  bool MayEnd() const { return ::SendMessageW(a.frame->Hwnd(), WM_QUERYENDSESSION, 0, 0) != 0; }
  void EndSession(bool ends) const { ::SendMessageW(a.frame->Hwnd(), WM_ENDSESSION, ends, 0); }
  HWND OpenResults() {
    a.Do(ID_RESULTS);
    return test::DialogWith(IDC_RESULT_LIST);
  }

  test::CManualThreads manual;
  test::CGuiApp a;
};

TEST_F(Closing, end_of_session_or_program_stores_placements_of_open_windows) {
  const HWND results = OpenResults();
  ::MoveWindow(results, 30, 40, 1000, 600, FALSE);
  ListView_SetColumnWidth(::GetDlgItem(results, IDC_RESULT_LIST), 0, 123);
  a.Do(ID_REPLACE);
  ::MoveWindow(test::DialogWith(IDC_REPLACE_SRC), 50, 60, 800, 600, FALSE);
  const my::CRect normal = my::WindowBounds(a.frame->Hwnd());
  a.Do(ID_FULL_SCREEN);
  EXPECT_TRUE(MayEnd());
  a.AddTask(L"a", L"C:\\a");
  EXPECT_TRUE(!MayEnd() && a.box.texts.empty()) << "no message box while the system waits";
  EndSession(true);
  EndSession(true);  // repeated: the first call must not have changed the window
  a.Start();
  const CSettings& settings = a.app->Settings();
  EXPECT_EQ(settings.resultDlg.rect, (my::CRect{30, 40, 1030, 640}));
  EXPECT_EQ(settings.resultDlg.columnWidthes.at(0), 123);
  EXPECT_EQ(settings.replaceDlg.rect, (my::CRect{50, 60, 850, 660}));
  EXPECT_TRUE(settings.mainFrame.fullScreen);
  EXPECT_EQ(settings.mainFrame.normalBounds, normal);
  const HWND again = OpenResults();
  EXPECT_EQ(ListView_GetColumnWidth(::GetDlgItem(again, IDC_RESULT_LIST), 0), 123);
  ::MoveWindow(again, 35, 45, 1010, 610, FALSE);
  a.Quit();
  a.Start();
  EXPECT_EQ(settings.resultDlg.rect, (my::CRect{35, 45, 1045, 655}));
}

TEST_F(Closing, window_paints_and_refuses_commands_while_the_worker_ends) {
  a.worker = &manual;
  a.Start();
  a.scratch.Write(L"file.txt", "x");
  a.AddBackup(L"書類", a.scratch.path, a.scratch.At(L"out"));
  a.Do(ID_RUN);
  const HWND results = OpenResults();
  const HWND frame = a.frame->Hwnd();
  a.Quit();
  ASSERT_TRUE(::IsWindow(frame));
  const HWND waiting = test::DialogWith(IDC_CLOSING_TEXT);
  ASSERT_TRUE(waiting);
  EXPECT_FALSE(::IsWindowEnabled(frame) || ::IsWindowEnabled(results));
  ::SendMessageW(waiting, WM_CLOSE, 0, 0);
  a.Do(ID_NEW);
  a.Do(ID_TASK_DUPLICATE);
  EXPECT_EQ(a.app->Document().Tasks().size(), 1u);
  ::InvalidateRect(frame, nullptr, TRUE);
  test::Pump();
  EXPECT_FALSE(::GetUpdateRect(frame, nullptr, FALSE));
  EXPECT_TRUE(::IsWindow(waiting));
  EXPECT_EQ(a.scratch.files.Kind(a.scratch.At(L"out")), my::PathKind::None);
  manual.Work();
  EXPECT_TRUE(test::PumpUntil([&] { return !::IsWindow(frame); }));
}

TEST_F(Closing, message_box_over_the_results_disables_the_main_window) {
  static HWND frame = nullptr;
  static bool wasEnabled = true;
  frame = a.frame->Hwnd();
  const HWND results = OpenResults();
  ::SetActiveWindow(results);
  const auto answer = [](HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = ::GetActiveWindow();
    if (box == frame || !::GetDlgItem(box, IDCANCEL) || ::GetDlgItem(box, IDC_RESULT_LIST)) return;
    wasEnabled = ::IsWindowEnabled(frame);
    ::SendMessageW(frame, WM_CLOSE, 0, 0);  // sent by the task manager
    ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  };
  const UINT_PTR timer = ::SetTimer(nullptr, 0, 20, answer);
  EXPECT_EQ(my::CMessageBox().Show(L"text", L"caption", my::BoxStyle::Question), my::BoxButton::Cancel);
  ::KillTimer(nullptr, timer);
  EXPECT_FALSE(wasEnabled);
  EXPECT_TRUE(::IsWindow(frame));
  EXPECT_TRUE(::IsWindowEnabled(frame) && ::IsWindowEnabled(results));
}

}  // namespace
