// qlm_window_bench: times the windows with large documents, in milliseconds, best of several rounds.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <functional>

#include "command_ids.h"
#include "control_ids.h"
#include "gui/dialog_app.h"
#include "gui/gui_app.h"
#include "harness.h"
#include "support/memory_file_system.h"
#include "ui/dialogs/result_dialog.h"
#include "ui/dialogs/target_dialog.h"

namespace {

using namespace qlm;

double BestMs(int rounds, const std::function<void()>& work) {
  double best = 1e9;
  for (int i = 0; i < rounds; ++i) best = std::min(best, bench::TimeMs(work));
  return best;
}

TEST(Windows, large_document) {
  test::CGuiApp a;
  CContent content;
  for (int i = 0; i < 99; ++i) {
    content.dsts.Append(boost::make_shared<CDst>(CDst{L"C:\\" + std::to_wstring(i), DstType::FOLDER, L"p"}));
  }
  const CTaskDsts all(content.dsts.begin(), content.dsts.end());
  for (int i = 0; i < 1000; ++i)
    content.tasks.Append(boost::make_shared<CTask>(CTask{std::to_wstring(i), L"C:\\s", L"", all}));
  const auto measure = [&](const char* what, const std::function<void()>& action) {
    const auto shown = [&] {
      action();
      test::Pump();
      ::UpdateWindow(a.frame->Hwnd());
    };
    bench::PrintFigure(what, BestMs(5, shown), "ms", 100);
  };
  measure("open", [&] { a.app->Document().Reset(content, L"C:\\big.qlmr"); });
  a.Select(IDC_TASK_LIST, {0});  // it then has the focus
  measure("select all", [&] { a.Do(ID_SELECT_ALL); });
  measure("scroll", [&] { ::SendMessageW(a.List(IDC_TASK_LIST), WM_VSCROLL, SB_PAGEDOWN, 0); });
  int row = 0;
  measure("click a box", [&] {
    ListView_SetItemState(a.List(IDC_DST_LIST), row, LVIS_FOCUSED, LVIS_FOCUSED);
    row = (row + 1) % 99;
    ::SendMessageW(a.List(IDC_DST_LIST), WM_KEYDOWN, VK_SPACE, 0);
    ::SendMessageW(a.List(IDC_DST_LIST), WM_CHAR, L' ', 0);
  });
  EXPECT_TRUE(a.app->Document().CanUndo()) << "the boxes were really clicked";
}

TEST(Windows, repainting) {
  const my::CGdiplus gdiplus;
  test::CGuiApp a;
  const HWND frame = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1920, 1080,
                                       nullptr, nullptr, nullptr, nullptr);
  for (int i = 0; i < 1000; ++i) a.AddTask(std::to_wstring(i), L"C:\\folder\\" + std::to_wstring(i));
  CMainView view(a.app->Document(), a.app->Settings().ui, a.texts);
  view.CreateIn(frame);
  view.Show();
  ::MoveWindow(view.Hwnd(), 0, 0, 1920, 1080, FALSE);
  CMainFrameSetting setting;
  setting.tasksFixSize = 800;
  view.ApplySettings(setting);
  view.OnDocumentChanged(DocChangeEventFlags::RESET);
  const auto measure = [&](BrushType brush, BkImgType image) {
    CDesignSetting design;
    design.bkBrushType = brush;
    design.bkImgType = image;
    view.ShowDesign(design);
    return BestMs(30, [&] {
      ::RedrawWindow(view.Hwnd(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    });
  };
  const double plain = measure(BrushType::OS_DEFAULT, BkImgType::NONE);
  const double drawn = measure(BrushType::CHECK, BkImgType::OK);
  bench::PrintFigure("repaint", drawn, "ms", 16);
  bench::PrintFigure("repaint / plain list view", drawn / plain, "", 2);
  ::DestroyWindow(frame);
}

TEST(Windows, long_lists) {
  test::CDialogAppOn<test::CMemoryFileSystem> a;
  const auto result = boost::make_shared<CResult>();
  const auto targets = boost::make_shared<CTargets>();
  const size_t folder = targets->Add({L"more", {}, 0, my::kAttributeFolder});
  for (int i = 0; i < 100'000; ++i) targets->Add({std::to_wstring(i) + L".txt", {}, 0, 0}, folder);
  result->task = boost::make_shared<CTask>();
  result->targets = targets;
  CTargetDialog large(a.Context(), result);
  const double opened = BestMs(3, [&] {
    if (large.Hwnd()) large.Close(IDCANCEL);
    large.CreateModeless(nullptr, a.loop);
    test::Pump();
  });
  bench::PrintFigure("open 100000 targets", opened, "ms", 1000);
  CResultListModel rows(a.Settings().ui, a.texts, a.clock);
  rows.ShowResults(0, CResults(10'000, result));
  CResultDialog dialog(a.Context(), rows);
  dialog.CreateModeless(nullptr, a.loop);
  const double added = BestMs(5, [&] {
    rows.ShowResults(rows.RowCount(), {result});
    dialog.RowsChanged();
    ::UpdateWindow(dialog.Hwnd());
  });
  bench::PrintFigure("one result more than 10000", added, "ms", 100);
}

}  // namespace
