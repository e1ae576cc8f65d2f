// The input comes from a simulated keyboard and mouse; keys go through the message loop of the program.
#include "gui/gui_app.h"

namespace {

using namespace qlm;
using test::CGuiApp;

constexpr int kBar = -1;  // the splitter bar in a walk

struct Keyboard : testing::Test {
  Keyboard() {
    a.AddTask(L"a", L"C:\\a");
    a.AddDst(L"C:\\x");
    a.Select(IDC_DST_LIST, {0});
    a.Select(IDC_TASK_LIST, {0});
  }

  HWND Bar() const {
    return ::FindWindowExW(::GetDlgItem(a.frame->Hwnd(), IDC_SPLITTER), nullptr, L"QuillmoorSplitterBar",
                           nullptr);
  }

  int Focus() const { return ::GetFocus() == Bar() ? kBar : ::GetDlgCtrlID(::GetFocus()); }

  template <class Test>
  bool Press(std::initializer_list<WORD> keys, Test test) {
    return test::PressUntil(a.loop, a.frame->Hwnd(), keys, test);
  }

  // Returns the controls on which the focus stops.
  std::vector<int> Walk(std::initializer_list<WORD> keys, size_t count) {
    std::vector<int> stops;
    while (stops.size() < count) {
      Press(keys, [before = ::GetFocus()] { return ::GetFocus() != before; });
      stops.push_back(Focus());
    }
    return stops;
  }

  // Presses Enter, which opens a dialog, and returns the text of one of its controls.
  std::wstring OpenAndCancel(int control) {
    std::wstring text;
    a.DoWithDialog([this] { Press({VK_RETURN}, [] { return true; }); },
                   [&](HWND dialog) {
                     text = test::TextOf(dialog, control);
                     ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                   });
    return text;
  }

  CGuiApp a;
};

TEST_F(Keyboard, tab_walks_buttons_lists_and_the_splitter) {
  const std::vector<int> expected = {
      kBar,           ID_DST_ADD,      ID_DST_EDIT,  ID_DST_DUPLICATE, ID_DST_DELETE,   ID_DST_UP,
      ID_DST_DOWN,    ID_EXPLORER_DST, IDC_DST_LIST, ID_TASK_ADD,      ID_TASK_EDIT,    ID_TASK_DUPLICATE,
      ID_TASK_DELETE, ID_TASK_UP,      ID_TASK_DOWN, ID_TASK_TARGETS,  ID_EXPLORER_SRC, IDC_TASK_LIST};
  EXPECT_EQ(Walk({VK_TAB}, expected.size()), expected);
  EXPECT_EQ(Walk({VK_SHIFT, VK_TAB}, 2), (std::vector<int>{ID_EXPLORER_SRC, ID_TASK_TARGETS}));
  ::SetFocus(Bar());
  const int top = test::Bounds(Bar()).top;
  EXPECT_TRUE(Press({VK_DOWN}, [&] { return test::Bounds(Bar()).top > top; }));
  EXPECT_TRUE(Press({VK_F6, VK_F6}, [&] { return Focus() == IDC_DST_LIST; })) << "held; tasks were current";
}

TEST_F(Keyboard, enter_presses_the_focused_button_which_keeps_the_focus) {
  const HWND pane = ::GetParent(a.List(IDC_TASK_LIST));
  const CTasks& tasks = a.app->Document().Tasks();
  ::SetFocus(::GetDlgItem(pane, ID_TASK_DUPLICATE));
  EXPECT_TRUE(Press({VK_RETURN}, [&] { return tasks.size() == 2; }));
  EXPECT_TRUE(Press({VK_SPACE}, [&] { return tasks.size() == 3; }));
  EXPECT_EQ(Focus(), ID_TASK_DUPLICATE);
  ::SetFocus(::GetDlgItem(pane, ID_TASK_DELETE));
  for (size_t left = 3; left-- > 0;) EXPECT_TRUE(Press({VK_RETURN}, [&] { return tasks.size() == left; }));
  EXPECT_EQ(Focus(), ID_TASK_ADD) << "the button of the empty list";
}

TEST_F(Keyboard, clicked_button_returns_the_focus_to_the_list) {
  const HWND pane = ::GetParent(a.List(IDC_TASK_LIST));
  const HWND button = ::GetDlgItem(pane, ID_TASK_DUPLICATE);
  ::SetFocus(button);
  POINT at{2, 2};
  ::MapWindowPoints(button, pane, &at, 1);
  ::SendMessageW(pane, WM_PARENTNOTIFY, WM_LBUTTONDOWN, MAKELPARAM(at.x, at.y));  // as the system does
  test::Click(pane, ID_TASK_DUPLICATE);
  test::Pump();
  EXPECT_EQ(a.app->Document().Tasks().size(), 2u);
  EXPECT_EQ(Focus(), IDC_TASK_LIST);
}

TEST_F(Keyboard, f1_opens_the_page_of_the_window_in_front) {
  const auto opened = [&](const std::wstring& page) {
    const std::wstring end = L"\\manual\\ja\\" + page;
    return test::PumpUntil([&] { return !a.shell.calls.empty() && a.shell.calls.back().ends_with(end); });
  };
  Press({VK_F1}, [&] { return !a.shell.calls.empty(); });
  EXPECT_TRUE(opened(L"index.html"));
  const std::pair<int, const wchar_t*> dialogs[] = {{ID_TASK_ADD, L"tasks.html"},
                                                    {ID_SETTINGS, L"settings.html"}};
  for (const auto& [command, page] : dialogs) {
    a.DoWithDialog(command, [&, expected = page](HWND dialog) {
      test::Press({VK_F1});  // in a control of the dialog or of one of its pages
      EXPECT_TRUE(opened(expected)) << expected;
      ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
  }
  a.Do(ID_RESULTS);
  test::Press({VK_F1});
  EXPECT_TRUE(opened(L"results.html")) << "modeless";
}

TEST_F(Keyboard, enter_edits_the_focused_row_and_the_focus_returns) {
  EXPECT_EQ(OpenAndCancel(IDC_TASK_ID), L"a");
  ::SetFocus(::GetDlgItem(::GetParent(a.List(IDC_DST_LIST)), ID_DST_ADD));
  OpenAndCancel(IDC_DST_FOLDER);
  EXPECT_EQ(Focus(), ID_DST_ADD);
}

}  // namespace
