#include <stdexcept>

#include "gui/gui.h"
#include "ui/framework/failures.h"
#include "ui/framework/splitter.h"

namespace {

using namespace my;
using test::FrameClass;

class CTestWindow : public CWindow {
 public:
  std::function<void(UINT, WPARAM)> onMessage = [](UINT, WPARAM) {};

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    onMessage(message, wParam);
    return Default(message, wParam, lParam);
  }
};

TEST(Window, exceptions_do_not_leave_the_window_procedure) {
  int failures = 0;
  const auto before = SetFailureHandler([&](const std::exception_ptr&) {
    ++failures;
    throw std::runtime_error("in the handler, too");
  });
  CTestWindow window;
  window.onMessage = [](UINT message, WPARAM) {
    if (message == WM_CREATE) throw std::runtime_error("create");
  };
  EXPECT_THROW(window.Create(FrameClass(), {}), std::runtime_error);
  EXPECT_EQ(window.Hwnd(), nullptr);
  window.onMessage = [](UINT message, WPARAM) {
    if (message == WM_APP) throw std::runtime_error("message");
  };
  window.Create(FrameClass(), {});
  EXPECT_EQ(::SendMessageW(window.Hwnd(), WM_APP, 0, 0), 0);
  EXPECT_EQ(failures, 1);
  SetFailureHandler(before);
}

struct CTwoControls : CDialog {
  CTwoControls() : CDialog(IDD_TEST) {}
  CBox Layout() const override { return Column({Control(IDC_EDIT), Control(IDC_COMBO)}); }
};

TEST(MessageLoop, moves_the_focus_in_modeless_dialogs) {
  CAutoMessageLoop loop;
  CTwoControls dialog;
  dialog.CreateModeless(nullptr, loop);
  ::SetFocus(dialog.Item(IDC_EDIT));
  ::PostMessageW(dialog.Item(IDC_EDIT), WM_KEYDOWN, VK_TAB, 0);
  ::PostQuitMessage(0);
  loop.Run();
  EXPECT_EQ(::GetFocus(), dialog.Item(IDC_COMBO));
}

TEST(Splitter, bar_follows_mouse_and_keys_and_panes_keep_their_shares) {
  CWindow frame;
  CWindowParams params;
  params.width = 300;
  params.height = 400;
  frame.Create(FrameClass(), params);
  CSplitter splitter;
  splitter.CreateIn(frame.Hwnd(), 1, L"bar");
  ::MoveWindow(splitter.Hwnd(), 0, 0, 280, 300, FALSE);
  CWindow upper, lower;
  CWindowParams child;
  child.parent = splitter.Hwnd();
  child.style = WS_CHILD | WS_VISIBLE;
  upper.Create(FrameClass(), child);
  lower.Create(FrameClass(), child);
  splitter.SetUpper(100);
  splitter.SetPanes(upper.Hwnd(), lower.Hwnd());
  EXPECT_EQ(test::Size(upper.Hwnd()).cy, 100);
  EXPECT_EQ(test::Size(lower.Hwnd()).cy, 195);
  test::Resize(splitter.Hwnd(), 200, 595);
  EXPECT_EQ(test::Size(upper.Hwnd()).cy, 200);
  test::Resize(splitter.Hwnd(), 200, 80);
  EXPECT_EQ(test::Size(upper.Hwnd()).cy, 37) << "half of what is left beside the bar";
  test::Resize(splitter.Hwnd(), 200, 400);
  splitter.SetUpper(100);

  int moved = 0;
  splitter.onMoved = [&] { ++moved; };
  const auto mouse = [&](UINT message, int y) {
    ::SendMessageW(splitter.Bar(), message, MK_LBUTTON, MAKELPARAM(5, y));
  };
  mouse(WM_MOUSEMOVE, 200);
  EXPECT_EQ(splitter.Upper(), 100);
  mouse(WM_LBUTTONDOWN, 2);
  mouse(WM_MOUSEMOVE, 52);
  mouse(WM_LBUTTONUP, 2);
  EXPECT_EQ(splitter.Upper(), 150);
  test::PressKey(splitter.Bar(), VK_UP);
  EXPECT_EQ(test::Size(upper.Hwnd()).cy, 142);
  EXPECT_EQ(moved, 2);
  test::PressKey(splitter.Bar(), VK_END);
  EXPECT_EQ(test::Bounds(lower.Hwnd()).top, test::Bounds(splitter.Bar()).bottom);
  EXPECT_EQ(test::Size(lower.Hwnd()).cy, 96);
  test::PressKey(splitter.Bar(), VK_HOME);
  EXPECT_EQ(test::Size(upper.Hwnd()).cy, 96);
}

}  // namespace
