// Takes pictures of the windows with sample data: qlm_screenshots FOLDER [--english] [NAME...]
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>

#include "app/schedule_commands.h"
#include "command_ids.h"
#include "control_ids.h"
#include "document/document_edits.h"
#include "gui/gui_app.h"
#include "platform/win32/ui_language.h"
#include "screenshots/shots.h"
#include "support/fake_windows.h"
#include "ui/dialogs/schedule_edit_dialog.h"
#include "ui/framework/gdiplus.h"
#include "ui/look/tool_images.h"

namespace {

using namespace qlm;
using namespace shots;
using test::CGuiApp;

void ShootModal(
    CGuiApp& a, int command, const std::wstring& name,
    const std::function<void(HWND)>& prepare = [](HWND) {}) {
  if (!Wanted(name)) return;
  CSettings& settings = a.app->Settings();
  settings.taskDlg = settings.filterDlg = settings.targetDlg = {};
  settings.dstDlg = {};  // the last picture left it at 200 %
  a.DoWithDialog(command, [&](HWND dialog) {
    prepare(dialog);
    ShootAtAllDpis(dialog, name);
    ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  });
}

void ShootMain() {
  if (!Wanted(L"main")) return;
  {
    CGuiApp a;
    ShootAtAllDpis(a.frame->Hwnd(), L"main_empty");
  }
  CSampleApp b;
  b.Select(IDC_TASK_LIST, {0, 1});
  Shoot(b.frame->Hwnd(), L"main_overdue");
  b.Do(ID_RUN_POWER_OFF);
  Shoot(b.frame->Hwnd(), L"main_running");
  test::PumpUntil([&b] { return !b.app->Run().IsActive(); });
  b.Do(ID_RESULTS);
  const HWND results = test::DialogWith(IDC_RESULT_LIST);
  constexpr int kBySize = IDC_SORT_FIRST + 1 + CResultListModel::Bytes;
  ::SendMessageW(results, WM_COMMAND, kBySize, 0);
  ::SetDlgItemTextW(results, IDC_RESULT_SEARCH, Sample(L"バックアップ").c_str());
  Shoot(results, L"results_sorted");
  ::SetDlgItemTextW(results, IDC_RESULT_SEARCH, L"");
  ::SendMessageW(results, WM_COMMAND, IDC_SORT_FIRST, 0);
  test::FocusRow(::GetDlgItem(results, IDC_RESULT_LIST), 2);
  ShootAtAllDpis(results, L"results");
  ::SendMessageW(test::DialogWith(IDC_RESULT_LIST), WM_CLOSE, 0, 0);
  ShootMenu(b.frame->Hwnd(), L'e', L"menu");
  ShootAtAllDpis(b.frame->Hwnd(), L"main_document");
}

// Copies slowly, and calls `copied` on the thread of the windows.
struct CSlowFiles : my::CWin32FileSystem {
  void Copy(const std::wstring& from, const std::wstring& to, const my::CCopyProgress& progress,
            my::LinkCopy link) override {
    CWin32FileSystem::Copy(from, to, progress, link);
    ::Sleep(150);
    copied();
  }

  std::function<void()> copied;
};

// Takes pictures of the main window at all DPIs, and of a small one with usual and with the largest texts.
void ShootFrame(HWND frame, const std::wstring& name) {
  RECT bounds = test::Bounds(frame);
  ShootAtAllDpis(frame, name);
  ::SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&bounds));
  test::CTextSize textSize;
  for (const int percent : {100, 225}) {
    textSize.Set(percent);
    ::SendMessageW(frame, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    test::Resize(frame, 560, 400);
    Shoot(frame, name + L"_560_text_" + std::to_wstring(percent));
  }
  textSize.Set(100);
  ::SendMessageW(frame, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  ::MoveWindow(frame, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, TRUE);
}

// A run while it copies, and its verdict.
void ShootRun() {
  if (!Wanted(L"running")) return;
  test::CManualThreads worker;
  worker.immediate = true;
  CSlowFiles slow;
  CSampleApp a;
  a.worker = &worker;
  a.engineFiles = &slow;
  a.Restart();
  const HWND frame = a.frame->Hwnd();
  for (int i = 10; i < 70; ++i) a.WritePhoto(L"旅行\\IMG_20250" + std::to_wstring(i) + L".jpg");
  int count = 0;
  slow.copied = [&] {
    a.app->OnTimer();
    test::Pump();
    if (++count == 50) ShootFrame(frame, L"running");
  };
  a.Do(ID_RUN);
  worker.Work();
  a.app->OnTimer();
  test::Pump();
  ::SendMessageW(test::DialogWith(IDC_RESULT_LIST), WM_CLOSE, 0, 0);
  ShootFrame(frame, L"verdict");
}

void ShootReplace(CGuiApp& a) {
  if (!Wanted(L"replace")) return;
  a.app->Settings().replaceDlg.replace = {
      ReplaceRow::ALL, kReplaceTaskPath | kReplaceTaskId, L"([", L"D:", true, true};
  a.Do(ID_REPLACE);
  const HWND dialog = test::DialogWith(IDC_REPLACE_SRC);
  ShootAtAllDpis(dialog, L"replace");
  ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

void ShootDialogs() {
  CSampleApp a;
  ShootModal(a, ID_TASK_EDIT, L"task");
  for (const int row : {0, 2}) {
    a.Select(IDC_DST_LIST, {row});
    ShootModal(a, ID_DST_EDIT, row == 0 ? L"destination" : L"destination_aes");
  }
  a.app->Settings().archive.sevenZipPath = L"D:\\moved\\7z.exe";
  ShootModal(a, ID_DST_EDIT, L"destination_no_archiver");
  a.UseArchiver();
  a.Select(IDC_TASK_LIST, {0});
  ShootModal(a, ID_FILTER_CHECK, L"filter", [](HWND dialog) {
    ::SetDlgItemTextW(dialog, IDC_FILTER_PATH, Sample(L"見積書\\下書き.tmp").c_str());
  });
  ShootModal(a, ID_TASK_TARGETS, L"targets");
  ShootModal(a, ID_ABOUT, L"about");
  ShootModal(a, ID_SETTINGS, L"settings");
  ShootModal(a, ID_DESIGN, L"design_page");
  ShootReplace(a);
  CDocument& document = a.app->Document();
  SetUse(document, {0}, 2, true);
  ShootModal(a, ID_RUN, L"password");
}

// A plan with all kinds of cells, and the marks of the lists.
void ShootPlan() {
  if (!Wanted(L"plan") && !Wanted(L"advice")) return;
  CSampleApp a;
  my::IFileSystem& files = a.scratch.files;
  for (const wchar_t* folder :
       {L"E:\\保管\\書類", L"E:\\書庫\\写真.zip", L"E:\\バックアップ\\_tmp_書類_2025_04_01_12_00"})
    files.CreateFolders(Sample(folder));
  CContent content;
  const auto dst = [&](const std::wstring& folder, DstType type, const std::wstring& pattern) {
    content.dsts.Append(boost::make_shared<CDst>(CDst{Sample(folder), type, pattern}));
    return content.dsts[content.dsts.size() - 1];
  };
  const auto dated = dst(L"E:\\バックアップ", DstType::FOLDER, L"<ID>_<Y>_<M>_<D>_<h>_<m>");
  const auto zip = dst(L"E:\\書庫", DstType::ZIP, L"<ID>.zip");
  const auto usb = dst(L"Q:\\外付けディスク", DstType::FOLDER, L"<ID>_<Y>_<M>_<D>_<h>_<m>");
  const auto kept = dst(L"E:\\保管", DstType::FOLDER, L"<ID>");
  const auto add = [&](const std::wstring& id, const std::wstring& path, CTaskDsts dsts,
                       const std::wstring& filter = {}) {
    content.tasks.Append(
        boost::make_shared<CTask>(CTask{Sample(id), Sample(path), Sample(filter), std::move(dsts)}));
  };
  add(L"書類", L"D:\\書類", {dated, kept}, L"D:\\設定\\書類.flt");
  add(L"写真", L"D:\\写真", {dated, zip, usb});
  add(L"設定", L"D:\\設定", {zip, usb, kept});
  add(L"会計データ", L"D:\\会計\\2025", {dated});
  a.app->Document().Reset(content, Sample(L"D:\\設定\\毎日のバックアップ.qlmr"));
  a.Do(ID_PLAN);
  const HWND plan = test::DialogWith(IDC_PLAN_MATRIX);
  test::PumpUntil([plan] { return !::IsWindowEnabled(::GetDlgItem(plan, IDC_PLAN_STOP)); });
  for (const WPARAM key : {VK_DOWN, VK_RIGHT, VK_RIGHT})
    test::PressKey(::GetDlgItem(plan, IDC_PLAN_MATRIX), key);
  if (Wanted(L"plan")) ShootAtAllDpis(plan, L"plan");
  ::SendMessageW(plan, WM_CLOSE, 0, 0);
  const ULONGLONG end = ::GetTickCount64() + 2000;
  test::PumpUntil([end] { return ::GetTickCount64() > end; });
  if (Wanted(L"advice")) ShootAtAllDpis(a.frame->Hwnd(), L"advice");
}

void ShootHistory() {
  if (!Wanted(L"history")) return;
  CSampleApp a;
  a.Do(ID_HISTORY);
  const HWND dialog = test::DialogWith(IDC_HISTORY_RUNS);
  const HWND runs = ::GetDlgItem(dialog, IDC_HISTORY_RUNS);
  const HWND rows = ::GetDlgItem(dialog, IDC_HISTORY_ROWS);
  test::PumpUntil([runs] { return ListView_GetItemCount(runs) != 0; });
  ::SetFocus(rows);
  test::FocusRow(rows, 2);
  ShootAtAllDpis(dialog, L"history");
  test::Click(dialog, IDC_HISTORY_BY_TASK);
  Shoot(dialog, L"history_tasks");
}

void ShootSchedules() {
  if (!Wanted(L"schedules")) return;
  CSampleApp a;
  const std::wstring document = a.app->Document().Path();
  CSchedules schedules = MakeSchedules(a.app->Context().ports);
  const CSchedule weekly{ScheduleKind::Weekly, {2026, 4, 1, 21, 30, 0}, 0b0111110};
  schedules.Add(document, weekly);
  schedules.Add(document, {ScheduleKind::Logon});
  schedules.Add(L"C:\\moved.qlmr", {ScheduleKind::Daily, {2026, 4, 1, 7, 0, 0}});
  my::CScheduledTask& task = a.scheduler.tasks.begin()->second;
  task.nextRun = my::CCalendar{2026, 4, 2, 21, 30, 0};
  task.lastRun = my::CCalendar{2026, 4, 1, 21, 30, 0};
  ShootModal(a, ID_SCHEDULES, L"schedules", [](HWND dialog) { test::Click(dialog, IDC_SCHEDULE_ALL); });
  CScheduleEditDialog edit(a.app->Context(), weekly, [](const CSchedule&) {});
  edit.CreateModeless(a.frame->Hwnd(), a.loop);
  ShootAtAllDpis(edit.Hwnd(), L"schedule_edit");
}

// Small and large windows, and the largest text size of the system.
void ShootSizes() {
  if (!Wanted(L"sizes")) return;
  test::CTextSize textSize;
  CSampleApp a;
  const HWND frame = a.frame->Hwnd();
  a.RunToEnd();
  ::SendMessageW(test::DialogWith(IDC_RESULT_LIST), WM_CLOSE, 0, 0);
  for (const auto& [width, height] : {std::pair(560, 400), std::pair(1024, 768), std::pair(2560, 1440)}) {
    ::SetWindowPos(frame, nullptr, 0, 0, width, height, SWP_NOZORDER);
    Shoot(frame, L"main_" + std::to_wstring(width));
  }
  textSize.Set(225);
  ::SendMessageW(frame, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  ::SetWindowPos(frame, nullptr, 0, 0, 1366, 768, SWP_NOZORDER);
  Shoot(frame, L"main_text_225");
  for (const auto& [command, name] : {std::pair(ID_TASK_EDIT, L"task"), std::pair(ID_SETTINGS, L"settings"),
                                      std::pair(ID_TASK_TARGETS, L"targets")})
    a.DoWithDialog(command, [name = std::wstring(name)](HWND dialog) {
      Shoot(dialog, name + L"_text_225");
      ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc < 2) return 2;
  const bool isEnglish = argc > 2 && std::wstring(argv[2]) == L"--english";
  if (isEnglish) my::SetUiLanguage(my::UiLanguage::English);
  Begin(argv[1], {argv + (isEnglish ? 3 : 2), argv + argc});
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_STANDARD_CLASSES | ICC_LINK_CLASS |
                                                           ICC_TAB_CLASSES};
  ::InitCommonControlsEx(&controls);
  const my::CGdiplus gdiplus;
  AssumeMenusBlend(false);  // Wine ignores the transparency of menu bitmaps
  ShootMain();
  ShootHistory();
  ShootSchedules();
  ShootRun();
  ShootDialogs();
  ShootPlan();
  ShootDesign();
  ShootSizes();
  return testing::Test::HasFailure();
}
