#include <set>

#include "gui/gui_app.h"
#include "support/fake_windows.h"

namespace {

using namespace qlm;

struct CWatchedFiles : my::CWin32FileSystem {
  void Copy(const std::wstring& from, const std::wstring& to, const my::CCopyProgress& progress,
            my::LinkCopy link) override {
    CWin32FileSystem::Copy(from, to, progress, link);
    if (copied) copied();
  }

  std::function<void()> copied;
};

// Runs the worker on the thread of the windows, so that a test can look at them while a file is copied.
struct RunPanel : testing::Test {
  RunPanel() {
    worker.immediate = true;
    a.worker = &worker;
    a.engineFiles = &watched;
    a.Start();
    a.scratch.Write(L"src\\1.txt", std::string(3000, 'x'));
    a.scratch.Write(L"src\\2.txt", std::string(1000, 'x'));
    a.AddBackup(L"docs", a.scratch.At(L"src"), a.scratch.At(L"out"));
  }

  HWND Frame() const { return a.frame->Hwnd(); }
  HWND Panel() const { return ::GetDlgItem(Frame(), IDC_RUN_PANEL); }
  std::wstring Text(int id) const { return test::TextOf(Panel(), id); }
  LRESULT Percent() const { return ::SendDlgItemMessageW(Panel(), IDC_RUN_PANEL_PROGRESS, PBM_GETPOS, 0, 0); }

  void RunToEnd() {
    a.Do(ID_RUN);
    worker.Work();
    a.app->OnTimer();
    test::Pump();
  }

  test::CManualThreads worker;
  CWatchedFiles watched;
  test::CGuiApp a;
};

TEST_F(RunPanel, follows_the_run_and_ends_with_the_verdict) {
  std::set<std::wstring> titles;
  watched.copied = [&] {
    a.app->OnTimer();
    titles.insert(test::TextOf(Frame()).substr(0, 5));
    EXPECT_TRUE(::IsWindowVisible(Panel()));
    EXPECT_TRUE(Text(IDC_RUN_PANEL_ROW).starts_with(L"コピー中")) << "in the first copy";
    EXPECT_TRUE(test::Has(Text(IDC_RUN_PANEL_ROW), L" / 2 ファイル"));
    EXPECT_EQ(Text(IDC_RUN_PANEL_FILE), L"docs: 1.txt");
  };
  EXPECT_FALSE(::IsWindowVisible(Panel()));
  RunToEnd();
  EXPECT_EQ(titles.size(), 2u) << "a percentage per file";
  EXPECT_TRUE(titles.begin()->starts_with(L"0% -"));
  EXPECT_EQ(Percent(), 100);
  EXPECT_EQ(Text(IDC_RUN_PANEL_RUN), L"完了: 作成 1、スキップ 0、エラー 0");
  EXPECT_EQ(Text(IDC_RUN_PANEL_ROW).substr(0, 15), L"2 ファイル   3.9 KB");
  EXPECT_FALSE(test::Has(test::TextOf(Frame()), L"%"));
  a.Select(IDC_TASK_LIST, {0});
  a.Do(ID_TASK_TARGETS);
  EXPECT_FALSE(::IsWindowVisible(Panel())) << "a test run has no verdict";
  worker.Work();
}

TEST_F(RunPanel, is_closed_by_its_button_or_the_next_document_and_gives_back_focus_and_room) {
  const HWND lists = ::GetDlgItem(Frame(), IDC_SPLITTER);
  const LONG height = test::Size(lists).cy;
  RunToEnd();
  EXPECT_EQ(test::Size(lists).cy + test::Size(Panel()).cy, height);
  const HWND button = ::GetDlgItem(Panel(), IDC_RUN_PANEL_CLOSE);
  ::SetFocus(button);
  test::Click(Panel(), IDC_RUN_PANEL_CLOSE);
  EXPECT_FALSE(::IsWindowVisible(Panel()));
  EXPECT_EQ(test::Size(lists).cy, height);
  EXPECT_EQ(::GetFocus(), a.List(IDC_TASK_LIST));
  RunToEnd();
  EXPECT_TRUE(::IsWindowVisible(Panel()));
  a.app->Document().Reset({}, L"");
  EXPECT_FALSE(::IsWindowVisible(Panel()));
}

TEST_F(RunPanel, results_of_a_failed_run_do_not_cover_an_open_dialog) {
  a.AddTask(L"gone", a.scratch.At(L"gone"));
  SetUse(a.app->Document(), {1}, 0, true);
  a.DoWithDialog(ID_ABOUT, [&](HWND about) {
    RunToEnd();
    EXPECT_FALSE(test::DialogWith(IDC_RESULT_LIST));
    EXPECT_EQ(Text(IDC_RUN_PANEL_RUN), L"完了: 作成 1、スキップ 0、エラー 1");
    ::SendMessageW(about, WM_COMMAND, IDCANCEL, 0);
  });
  test::Click(Panel(), ID_RESULTS);
  EXPECT_TRUE(test::DialogWith(IDC_RESULT_LIST));
}

TEST_F(RunPanel, its_texts_fit_into_small_windows_and_with_large_texts) {
  test::CTextSize textSize;
  RunToEnd();
  for (const int percent : {100, 225}) {
    textSize.Set(percent);
    ::SendMessageW(Frame(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    test::Resize(Frame(), 560, 400);
    RECT client{};
    ::GetClientRect(Panel(), &client);
    for (HWND child = ::GetWindow(Panel(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
      RECT place = test::Bounds(child);
      ::MapWindowPoints(nullptr, Panel(), reinterpret_cast<POINT*>(&place), 2);
      EXPECT_TRUE(place.left >= 0 && place.right <= client.right && place.bottom <= client.bottom) << percent;
    }
    EXPECT_GE(test::Size(::GetDlgItem(Panel(), ID_RESULTS)).cx, 60 * percent / 100);
    EXPECT_GE(test::Size(::GetDlgItem(Frame(), IDC_SPLITTER)).cy, 60) << percent;
  }
}

}  // namespace
