#include <shlobj.h>

#include <set>

#include "gui/gui_app.h"
#include "support/fake_windows.h"
#include "support/strings.h"
#include "ui/framework/local_menu.h"
#include "ui/framework/shortcuts.h"
#include "ui/framework/window_placement.h"
#include "wine/test_language.h"

namespace {

using namespace qlm;
using test::CGuiApp;

// Visits the items of a menu and its popups. The ids of popups are negative.
void VisitItems(HMENU menu, const std::function<void(HMENU popup, int id, const std::wstring& text)>& visit) {
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    if (const HMENU popup = ::GetSubMenu(menu, i)) VisitItems(popup, visit);
    wchar_t text[256]{};
    ::GetMenuStringW(menu, static_cast<UINT>(i), text, 256, MF_BYPOSITION);
    visit(menu, static_cast<int>(::GetMenuItemID(menu, i)), text);
  }
}

// The ids of menus, keys and buttons, except commands that open modal dialogs or end the program.
std::set<int> CommandIds(HWND frame) {
  std::set<int> ids;
  const auto collect = [&ids](HMENU, int id, const std::wstring&) {
    if (id > 0) ids.insert(id);
  };
  VisitItems(::GetMenu(frame), collect);
  for (const int menuId : {IDR_TASK_MENU, IDR_DST_MENU}) {
    const my::CMenu menu(my::LoadLocalMenu(static_cast<UINT>(menuId)));
    VisitItems(menu.Get(), collect);
  }
  const my::CAccelerators keys(
      ::LoadAcceleratorsW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAIN_KEYS)));
  std::vector<ACCEL> table(static_cast<size_t>(::CopyAcceleratorTableW(keys.Get(), nullptr, 0)));
  ::CopyAcceleratorTableW(keys.Get(), table.data(), static_cast<int>(table.size()));
  for (const ACCEL& key : table) ids.insert(key.cmd);
  return ids;
}

TEST(MainFrame, every_menu_item_and_key_has_a_command_and_an_explanation) {
  CGuiApp a;
  const std::set<int> ids = CommandIds(a.frame->Hwnd());
  EXPECT_GE(ids.size(), 45u);
  const std::set<int> modal = {ID_OPEN,   ID_ADD_FILE,  ID_SAVE,        ID_SAVE_AS, ID_SETTINGS,
                               ID_DESIGN, ID_TASK_ADD,  ID_ITEM_ADD,    ID_DST_ADD, ID_ABOUT,
                               ID_QUIT,   ID_POWER_OFF, ID_FILTER_CHECK};
  for (const int id : ids) {
    ::SendMessageW(a.frame->Hwnd(), WM_MENUSELECT, MAKEWPARAM(id, 0), 0);
    EXPECT_NE(test::StatusText(a.StatusBar()), L"") << id;
    if (modal.contains(id)) continue;
    a.box.texts.clear();
    a.Do(id);
    for (const std::wstring& text : a.box.texts) EXPECT_FALSE(test::Has(text, L"Unknown command")) << id;
  }
}

TEST(MainFrame, commands_are_explained_in_status_bar_tips_and_menu) {
  CGuiApp a;
  const auto status = [&a](WORD id, WORD flags) {
    ::SendMessageW(a.frame->Hwnd(), WM_MENUSELECT, MAKEWPARAM(id, flags), 0);
    return test::StatusText(a.StatusBar());
  };
  const auto tip = [&a](int id) {
    wchar_t text[100]{};
    NMTBGETINFOTIPW info{{nullptr, IDC_TOOLBAR, TBN_GETINFOTIPW}, text, 100, id, 0};
    ::SendMessageW(a.frame->Hwnd(), WM_NOTIFY, IDC_TOOLBAR, reinterpret_cast<LPARAM>(&info));
    return std::wstring(text);
  };
  EXPECT_EQ(status(ID_REPLACE, 0), L"指定のテキストを置換します");
  EXPECT_EQ(status(ID_POWER_OFF, 0), L"コンピューターの電源を切ります");
  EXPECT_EQ(status(0, 0xFFFF), L"") << "the menu has gone";
  EXPECT_EQ(tip(ID_SAVE) + tip(ID_SETTINGS), L"上書き保存 (Ctrl+S)設定");
  a.AddDst(L"C:\\x");
  EXPECT_EQ(tip(ID_UNDO), L"元に戻す: 転送先の追加 (Ctrl+Z)");
  const HMENU edit = ::GetSubMenu(::GetMenu(a.frame->Hwnd()), 1);
  ::SendMessageW(a.frame->Hwnd(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(edit), 1);
  wchar_t label[100]{};
  ::GetMenuStringW(edit, ID_UNDO, label, 100, MF_BYCOMMAND);
  EXPECT_EQ(std::wstring(label), L"元に戻す: 転送先の追加(&U)\tCtrl+Z");
}

TEST(MainFrame, menu_items_show_their_shortcuts) {
  const HINSTANCE instance = ::GetModuleHandleW(nullptr);
  const my::CAccelerators table(::LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDR_MAIN_KEYS)));
  for (const int menuId :
       {IDR_MAIN_MENU, IDR_TASK_MENU, IDR_DST_MENU, IDM_FILTER, IDM_TARGETS, IDM_RESULTS}) {
    const my::CMenu menu(my::LoadLocalMenu(static_cast<UINT>(menuId)));
    std::set<std::pair<HMENU, wchar_t>> taken;
    VisitItems(menu.Get(), [&](HMENU popup, int id, const std::wstring& text) {
      if (text.empty() || id == ID_MRU_FIRST) return;  // a separator; replaced when shown
      const size_t mark = text.find(L'&');
      EXPECT_TRUE(mark != text.npos && taken.insert({popup, text[mark + 1]}).second) << text;
      const bool ofList = id >= ID_TASK_EDITS && id <= ID_DST_DOWN;
      const std::wstring keys = my::ShortcutText(table.Get(), ofList ? ID_ITEM_ADD + id % 100 : id);
      EXPECT_TRUE(keys.empty() || text.ends_with(L'\t' + keys)) << text;
    });
  }
}

TEST(MainFrame, column_titles_and_tools_fit_in_both_languages) {
  for (const auto language : {my::UiLanguage::Japanese, my::UiLanguage::English}) {
    const test::CTestLanguage shown(language);
    CGuiApp a;
    for (const int list : {IDC_TASK_LIST, IDC_DST_LIST}) EXPECT_TRUE(test::TitlesFit(a.List(list)));
    for (const int width : {400, 1024}) {
      test::Resize(a.frame->Hwnd(), width, 400);
      const HWND bar = ::GetDlgItem(a.frame->Hwnd(), IDC_TOOLBAR);
      RECT last{};
      ::SendMessageW(bar, TB_GETRECT, ID_SETTINGS, reinterpret_cast<LPARAM>(&last));
      EXPECT_LE(last.right, test::Size(bar).cx) << width;
      EXPECT_TRUE(width < 1024 || last.right - last.left > 2 * last.bottom) << "no text beside the image";
    }
  }
}

TEST(MainFrame, keys_act_on_the_focused_list) {
  CGuiApp a;
  a.AddTask(L"a", L"C:\\a");
  a.AddDst(L"C:\\x");
  a.Select(IDC_DST_LIST, {0});
  a.Do(ID_ITEM_DUPLICATE);
  EXPECT_EQ(a.app->Document().Dsts().size(), 2u);
  a.Do(ID_OTHER_PANE);
  a.Do(ID_SELECT_ALL);
  a.Do(ID_CUT);
  EXPECT_TRUE(a.app->Document().Tasks().empty());
  EXPECT_FALSE(::IsWindowVisible(a.List(IDC_TASK_LIST))) << "the hint is in its place";
  EXPECT_EQ(test::TextOf(a.frame->Hwnd()), L"無題* - Quillmoor");
  a.Do(ID_PASTE);
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 0), L"a");
}

TEST(MainFrame, check_boxes_show_and_set_the_use_by_all_selected_tasks) {
  CGuiApp a;
  for (const wchar_t* folder : {L"C:\\x", L"C:\\y"}) a.AddDst(folder);
  for (const wchar_t* id : {L"a", L"b"}) a.AddTask(id, L"C:\\a");
  SetUse(a.app->Document(), {0}, 1, true);
  a.Select(IDC_TASK_LIST, {0, 1});
  const HWND list = a.List(IDC_DST_LIST);
  const auto box = [list](int row) { return ListView_GetItemState(list, row, LVIS_STATEIMAGEMASK) >> 12; };
  const UINT none = box(0);
  const UINT mixed = box(1);
  EXPECT_NE(none, mixed);
  test::FocusRow(list, 1);
  test::PressKey(list, VK_SPACE);
  EXPECT_TRUE(box(1) != mixed && box(1) != none);
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 1, 3), L"2");
  test::PressKey(list, VK_SPACE);
  EXPECT_EQ(box(1), none);
  const HIMAGELIST images = ListView_GetImageList(list, LVSIL_STATE);
  ::SendMessageW(a.frame->Hwnd(), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_NE(ListView_GetImageList(list, LVSIL_STATE), images) << "in the new colours";
}

// Returns the share of the upper list in the height of both.
double UpperShare(const CGuiApp& a) {
  const LONG upper = test::Size(::GetParent(a.List(IDC_TASK_LIST))).cy;
  const LONG lower = test::Size(::GetParent(a.List(IDC_DST_LIST))).cy;
  return static_cast<double>(upper) / (upper + lower);
}

void ExpectUsableLists(const CGuiApp& a, const std::string& when) {
  for (const int id : {IDC_TASK_LIST, IDC_DST_LIST}) {
    const HWND list = a.List(id);
    RECT client{};
    ::GetClientRect(list, &client);
    LONG columns = 0;
    for (int i = 0; i < Header_GetItemCount(ListView_GetHeader(list)); ++i)
      columns += ListView_GetColumnWidth(list, i);
    EXPECT_GE(ListView_GetCountPerPage(list), 2) << when;
    EXPECT_GE(columns, client.right) << when;
  }
}

TEST(MainFrame, both_lists_are_usable_in_small_and_large_windows_and_with_large_texts) {
  test::CTextSize textSize;
  CGuiApp a;
  a.AddTask(L"A", L"C:\\a");
  a.AddDst(L"C:\\b");
  test::Resize(a.frame->Hwnd(), 1024, 768);
  const double share = UpperShare(a);
  ExpectUsableLists(a, "1024 x 768");
  test::Resize(a.frame->Hwnd(), 560, 400);
  ExpectUsableLists(a, "560 x 400");
  test::Resize(a.frame->Hwnd(), 2560, 1440);
  ExpectUsableLists(a, "2560 x 1440");
  EXPECT_NEAR(UpperShare(a), share, 0.02);

  const int row = ListView_GetItemSpacing(a.List(IDC_TASK_LIST), TRUE) >> 16;
  const int width = ListView_GetColumnWidth(a.List(IDC_TASK_LIST), 0);
  const LONG button = test::Size(::GetDlgItem(::GetParent(a.List(IDC_TASK_LIST)), ID_TASK_ADD)).cy;
  textSize.Set(225);
  ::SendMessageW(a.frame->Hwnd(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  test::Resize(a.frame->Hwnd(), 1366, 768);
  ExpectUsableLists(a, "225 %");
  EXPECT_GE(ListView_GetItemSpacing(a.List(IDC_TASK_LIST), TRUE) >> 16, row * 3 / 2);
  EXPECT_GE(ListView_GetColumnWidth(a.List(IDC_TASK_LIST), 0), width * 2);
  EXPECT_GE(test::Size(::GetDlgItem(::GetParent(a.List(IDC_TASK_LIST)), ID_TASK_ADD)).cy, button * 3 / 2);
}

TEST(MainFrame, lists_are_redrawn_only_if_affected) {
  CGuiApp a;
  for (const wchar_t* folder : {L"C:\\x", L"C:\\y"}) a.AddDst(folder);
  a.AddTask(L"a", L"C:\\a");
  a.Select(IDC_TASK_LIST, {0});
  CDocument& document = a.app->Document();
  const auto drawn = [&](const std::function<void()>& change) {
    for (const int id : {IDC_TASK_LIST, IDC_DST_LIST}) ::ValidateRect(a.List(id), nullptr);
    change();
    const bool tasks = ::GetUpdateRect(a.List(IDC_TASK_LIST), nullptr, FALSE);
    const bool dsts = ::GetUpdateRect(a.List(IDC_DST_LIST), nullptr, FALSE);
    return std::wstring(tasks ? L"tasks " : L"") + (dsts ? L"dsts" : L"");
  };
  EXPECT_EQ(drawn([&] { document.SetSaved(L"C:\\d.qlmr"); }), L"");
  EXPECT_EQ(drawn([&] { a.AddTask(L"b", L"C:\\b"); }), L"tasks ");
  EXPECT_EQ(drawn([&] { ReplaceDst(document, 1, {L"C:\\z"}); }), L"dsts");
  EXPECT_EQ(drawn([&] { SetUse(document, {0}, 1, true); }), L"tasks dsts") << "the box";
  EXPECT_EQ(drawn([&] { MoveDsts(document, {1}, 0); }), L"tasks dsts") << "the number";
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 0, 3), L"1");
  EXPECT_EQ(drawn([&] { document.Reset(document.Content(), L""); }), L"tasks dsts");
}

TEST(MainFrame, maximized_window_keeps_its_bounds_in_a_change_of_dpi_and_after_full_screen) {
  CGuiApp a;
  HWND window = a.frame->Hwnd();
  const my::CRect normal = my::WindowBounds(window);
  ::ShowWindow(window, SW_SHOWMAXIMIZED);
  const my::CRect work = my::WorkArea(window);
  RECT outside{work.left - 4, work.top - 4, work.right + 4, work.bottom + 4};
  const auto suggest = [&] {
    ::SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&outside));
  };
  suggest();
  EXPECT_EQ(my::WindowBounds(window), my::FromRect(outside));
  a.Do(ID_FULL_SCREEN);
  outside.right *= 2;
  suggest();
  EXPECT_FALSE(::IsZoomed(window)) << "the taskbar may cover it";
  EXPECT_EQ(my::WindowBounds(window), my::ScreenBounds(window));
  a.Quit();
  a.Start();
  window = a.frame->Hwnd();
  EXPECT_FALSE(::IsZoomed(window));
  a.Do(ID_FULL_SCREEN);
  EXPECT_TRUE(::IsZoomed(window));
  ::ShowWindow(window, SW_RESTORE);
  EXPECT_EQ(my::WindowBounds(window), normal);
}

TEST(MainFrame, replace_preview_follows_focus_and_selection_and_is_removed) {
  CGuiApp a;
  for (const wchar_t* id : {L"a", L"b"}) a.AddTask(id, L"C:\\a");
  const auto shown = [&a] { return a.Cell(IDC_TASK_LIST, 0, 1) + a.Cell(IDC_TASK_LIST, 1, 1); };
  a.Select(IDC_TASK_LIST, {0});
  a.app->Settings().replaceDlg.replace = {ReplaceRow::FOCUSED, kReplaceTaskPath, L":", L";", false, true};
  a.Do(ID_REPLACE);
  EXPECT_EQ(shown(), L"C;\\aC:\\a");
  ListView_SetItemState(a.List(IDC_TASK_LIST), 1, LVIS_FOCUSED, LVIS_FOCUSED);
  EXPECT_EQ(shown(), L"C:\\aC;\\a");
  const HWND dialog = test::DialogWith(IDC_REPLACE_SRC);
  test::Click(dialog, IDC_REPLACE_ROW_SELECTED);
  EXPECT_EQ(shown(), L"C;\\aC:\\a");
  a.Select(IDC_TASK_LIST, {0, 1});
  EXPECT_EQ(shown(), L"C;\\aC;\\a");
  test::Click(dialog, IDCANCEL);
  EXPECT_EQ(shown(), L"C:\\aC:\\a");
}

TEST(MainFrame, usage_page_and_pictures_are_next_to_the_program) {
  CGuiApp a;
  a.Do(ID_USAGE_PAGE);
  const std::wstring page = a.shell.calls.back().substr(std::wstring(L"Open ").size());
  const std::string text = a.scratch.files.ReadFile(page, 1 << 20);
  const std::string mark = "src=\"";
  size_t pictures = 0;
  for (size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1), ++pictures) {
    const size_t start = at + mark.size();
    const std::wstring picture = my::WideFromUtf8(text.substr(start, text.find('"', start) - start));
    EXPECT_EQ(a.scratch.files.Kind(my::JoinPath(my::ParentPath(page), picture)), my::PathKind::File)
        << picture;
  }
  EXPECT_GT(pictures, 0u);
}

HGLOBAL MakeDrop(const std::wstring& path, POINT at) {
  const size_t bytes = sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t);
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
  auto* files = static_cast<DROPFILES*>(::GlobalLock(memory));
  *files = {sizeof(DROPFILES), at, FALSE, TRUE};
  std::copy(path.begin(), path.end(), reinterpret_cast<wchar_t*>(files + 1));
  ::GlobalUnlock(memory);
  return memory;
}

TEST(MainFrame, file_is_dropped_on_what_is_below_the_pointer) {
  CGuiApp a;
  for (const wchar_t* id : {L"a", L"b"}) a.AddTask(id, L"C:\\a");
  const HWND list = a.List(IDC_TASK_LIST);
  RECT row{};
  ListView_GetItemRect(list, 1, &row, LVIR_LABEL);
  POINT at{row.left + 2, row.top + 2};
  ::MapWindowPoints(list, a.frame->Hwnd(), &at, 1);
  const auto drop = [&](const std::wstring& path) {
    const HGLOBAL memory = MakeDrop(path, at);
    ::SendMessageW(a.frame->Hwnd(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
  };
  drop(L"C:\\x.FLT");
  ::EnableWindow(a.frame->Hwnd(), FALSE);  // as a modal dialog does
  drop(L"C:\\y.FLT");
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 1, 2), L"C:\\x.FLT");
  ::EnableWindow(a.frame->Hwnd(), TRUE);
  at = {2, 2};
  ::MapWindowPoints(::GetParent(a.List(IDC_DST_LIST)), a.frame->Hwnd(), &at, 1);
  drop(a.scratch.path);
  EXPECT_EQ(a.Cell(IDC_DST_LIST, 0, 1), a.scratch.path);

  a.Select(IDC_TASK_LIST, {1});
  ::OpenClipboard(a.frame->Hwnd());
  ::EmptyClipboard();
  ::SetClipboardData(CF_HDROP, MakeDrop(a.scratch.path, {}));
  ::CloseClipboard();
  a.Do(ID_PASTE);
  EXPECT_EQ(a.Cell(IDC_TASK_LIST, 2, 1), a.scratch.path);
}

TEST(MainFrame, power_off_is_shown_during_the_run_and_one_click_takes_it_back) {
  test::CManualThreads manual;
  CGuiApp a;
  a.worker = &manual;
  a.Start();
  a.AddBackup(L"a", a.scratch.path, a.scratch.At(L"backup"));
  a.app->Settings().ui.powerOffType = PowerOffType::SLEEP;
  const HWND button = ::GetDlgItem(a.frame->Hwnd(), ID_KEEP_POWER);
  EXPECT_FALSE(::IsWindowVisible(button));
  a.Do(ID_RUN_POWER_OFF);
  EXPECT_EQ(test::TextOf(button), L"終了後: スリープ（取り消す）");
  EXPECT_TRUE(::IsWindowVisible(button));
  ::SetFocus(button);
  ::SendMessageW(button, BM_CLICK, 0, 0);
  EXPECT_FALSE(::IsWindowVisible(button) || a.app->Run().WillPowerOff());
  EXPECT_EQ(::GetFocus(), a.List(IDC_TASK_LIST));
  manual.Work();
}

}  // namespace
