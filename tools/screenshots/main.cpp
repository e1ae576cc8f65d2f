// Takes pictures of the windows with sample data: qlm_screenshots FOLDER [NAME...]
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>

#include "command_ids.h"
#include "control_ids.h"
#include "document/document_edits.h"
#include "gui/gui_app.h"
#include "screenshots/shots.h"
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
  CGuiApp a;
  ShootAtAllDpis(a.frame->Hwnd(), L"main_empty");
  CSampleApp b;
  b.Select(IDC_TASK_LIST, {0, 1});
  Shoot(b.frame->Hwnd(), L"main_overdue");
  b.Do(ID_RUN_POWER_OFF);
  Shoot(b.frame->Hwnd(), L"main_running");
  test::PumpUntil([&b] { return !b.app->Run().IsActive(); });
  test::Pump();
  ShootAtAllDpis(test::DialogWith(IDC_RESULT_LIST), L"results");
  ::SendMessageW(test::DialogWith(IDC_RESULT_LIST), WM_CLOSE, 0, 0);
  ShootMenu(b.frame->Hwnd(), L'e', L"menu");
  ShootAtAllDpis(b.frame->Hwnd(), L"main_document");
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
  ShootModal(a, ID_FILTER_CHECK, L"filter",
             [](HWND dialog) { ::SetDlgItemTextW(dialog, IDC_FILTER_PATH, L"見積書\\下書き.tmp"); });
  ShootModal(a, ID_TASK_TARGETS, L"targets");
  ShootModal(a, ID_ABOUT, L"about");
  ShootModal(a, ID_SETTINGS, L"settings");
  ShootModal(a, ID_DESIGN, L"design_page");
  ShootReplace(a);
  CDocument& document = a.app->Document();
  SetUse(document, {0}, 2, true);
  ShootModal(a, ID_RUN, L"password");
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
  Begin(argv[1], {argv + 2, argv + argc});
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_STANDARD_CLASSES | ICC_LINK_CLASS |
                                                           ICC_TAB_CLASSES};
  ::InitCommonControlsEx(&controls);
  const my::CGdiplus gdiplus;
  AssumeMenusBlend(false);  // Wine ignores the transparency of menu bitmaps
  ShootMain();
  ShootHistory();
  ShootDialogs();
  ShootDesign();
  ShootSizes();
  return testing::Test::HasFailure();
}
