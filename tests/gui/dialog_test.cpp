#include <stdexcept>

#include "gui/gui.h"
#include "ui/framework/dpi.h"
#include "ui/framework/failures.h"
#include "ui/framework/window_placement.h"

namespace {

using namespace my;
using test::Bounds;
using test::Size;

class CTestDialog : public CDialog {
 public:
  explicit CTestDialog(my::CPlacement* placement = nullptr) : CDialog(IDD_TEST, placement), list(rows) {}

  std::function<void()> onInit = [] {};
  std::function<void()> onOk = [this] { Close(IDOK); };
  test::CRows rows;
  CListView list;

 protected:
  CBox Layout() const override {
    return Column({Control(IDC_EDIT).Wide(), Control(IDC_COMBO).Chars(20), Control(IDC_LIST).Wide().Tall(),
                   Buttons({IDOK, IDCANCEL})});
  }
  bool OnInit() override {
    list.Attach(Item(IDC_LIST), CListView::Boxes::Yes);
    onInit();
    return true;
  }
  void OnOk() override { onOk(); }
};

struct Dialog : testing::Test {
  SIZE Of(int id) const { return Size(dialog.Item(id)); }
  POINT Offset(int id) const {
    const RECT outer = Bounds(dialog.Hwnd());
    const RECT inner = Bounds(dialog.Item(id));
    return {outer.right - inner.right, outer.bottom - inner.bottom};
  }
  // Sends what the system sends when a window with these bounds at 96 DPI moves to a screen with this DPI.
  void SetDpi(RECT bounds, UINT dpi) const {
    bounds.right = bounds.left + Scale(bounds.right - bounds.left, dpi);
    bounds.bottom = bounds.top + Scale(bounds.bottom - bounds.top, dpi);
    ::SendMessageW(dialog.Hwnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&bounds));
  }

  CAutoMessageLoop loop;
  my::CPlacement setting;
  CTestDialog dialog{&setting};
};

TEST_F(Dialog, controls_follow_the_size_of_the_window_down_to_the_least_one) {
  dialog.CreateModeless(nullptr, loop);
  const SIZE before = Size(dialog.Hwnd());
  const SIZE edit = Of(IDC_EDIT);
  const SIZE list = Of(IDC_LIST);
  const SIZE combo = Of(IDC_COMBO);
  const POINT ok = Offset(IDOK);
  test::Resize(dialog.Hwnd(), before.cx + 101, before.cy + 37);
  EXPECT_EQ(Of(IDC_EDIT).cx, edit.cx + 101);
  EXPECT_EQ(Of(IDC_EDIT).cy, edit.cy);
  EXPECT_EQ(Of(IDC_LIST).cx, list.cx + 101);
  EXPECT_EQ(Of(IDC_LIST).cy, list.cy + 37);
  EXPECT_EQ(Of(IDC_COMBO).cx, combo.cx);
  EXPECT_EQ(Offset(IDOK).x, ok.x);
  EXPECT_EQ(Offset(IDOK).y, ok.y);
  test::Resize(dialog.Hwnd(), 10, 10);
  EXPECT_LT(Of(IDC_LIST).cy, list.cy);
  EXPECT_GT(Of(IDC_LIST).cy, 3 * Of(IDC_EDIT).cy / 2) << "some rows are left";
  EXPECT_EQ(Of(IDC_EDIT).cy, edit.cy);
  EXPECT_EQ(Offset(IDOK).y, ok.y) << "nothing is below the edge";
}

TEST_F(Dialog, scales_with_the_dpi_and_back_without_drift) {
  dialog.CreateModeless(nullptr, loop);
  const SIZE edit = Of(IDC_EDIT);
  const SIZE list = Of(IDC_LIST);
  const RECT bounds = Bounds(dialog.Hwnd());
  for (const UINT dpi : {144u, 192u}) {
    SetDpi(bounds, dpi);
    EXPECT_EQ(dialog.Dpi(), dpi);
    EXPECT_NEAR(Of(IDC_EDIT).cx, Scale(edit.cx, dpi), Scale(edit.cx, dpi) / 8);
    EXPECT_NEAR(Of(IDC_EDIT).cy, Scale(edit.cy, dpi), Scale(edit.cy, dpi) / 8);
    EXPECT_EQ(ListView_GetColumnWidth(dialog.Item(IDC_LIST), 0), Scale(80, dpi));
    EXPECT_EQ(dialog.list.Widths(), (std::vector<int32_t>{80, 41}));
    const auto font = reinterpret_cast<HFONT>(::SendMessageW(dialog.Item(IDC_EDIT), WM_GETFONT, 0, 0));
    LOGFONTW used{};
    ::GetObjectW(font, sizeof used, &used);
    EXPECT_EQ(used.lfHeight, MessageLogFont(dpi).lfHeight);
  }
  const HIMAGELIST boxes = ListView_GetImageList(dialog.Item(IDC_LIST), LVSIL_STATE);
  ::SendMessageW(dialog.Hwnd(), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_NE(ListView_GetImageList(dialog.Item(IDC_LIST), LVSIL_STATE), boxes) << "in the new colours";
  SetDpi(bounds, kDefaultDpi);
  EXPECT_EQ(Of(IDC_EDIT).cx, edit.cx);
  EXPECT_EQ(Of(IDC_EDIT).cy, edit.cy);
  EXPECT_EQ(Of(IDC_LIST).cy, list.cy);
}

TEST_F(Dialog, placement_is_restored_onto_a_screen) {
  setting.rect = {100, 120, 700, 620};
  dialog.CreateModeless(nullptr, loop);
  EXPECT_EQ(WindowBounds(dialog.Hwnd()), setting.rect);
  ::MoveWindow(dialog.Hwnd(), 50, 60, 640, 480, FALSE);
  dialog.Close(IDOK);
  EXPECT_EQ(setting.rect, (my::CRect{50, 60, 690, 540}));
  EXPECT_FALSE(setting.maximized);

  setting = {true, {-5000, INT32_MAX - 500, -4400, INT32_MAX}};
  CTestDialog away(&setting);
  away.CreateModeless(nullptr, loop);
  EXPECT_TRUE(::IsZoomed(away.Hwnd()));
  ::ShowWindow(away.Hwnd(), SW_RESTORE);
  const auto area = WorkAreas().front();
  EXPECT_EQ(WindowBounds(away.Hwnd()),
            (my::CRect{area.left, area.bottom - 500, area.left + 600, area.bottom}));
}

TEST_F(Dialog, exceptions_reach_the_caller_or_the_failure_handler) {
  dialog.onInit = [] { throw std::runtime_error("init"); };
  EXPECT_THROW(dialog.DoModal(nullptr), std::runtime_error);
  EXPECT_THROW(dialog.CreateModeless(nullptr, loop), std::runtime_error);
  EXPECT_EQ(dialog.Hwnd(), nullptr);

  int failures = 0;
  const auto before = SetFailureHandler([&](const std::exception_ptr&) { ++failures; });
  dialog.onInit = [] {};
  dialog.onOk = [&] {
    dialog.onOk = [&] { dialog.Close(IDOK); };
    ::PostMessageW(dialog.Hwnd(), WM_COMMAND, IDOK, 0);
    throw std::runtime_error("ok");
  };
  dialog.onInit = [&] { ::PostMessageW(dialog.Hwnd(), WM_COMMAND, IDOK, 0); };
  EXPECT_EQ(dialog.DoModal(nullptr), IDOK);
  EXPECT_EQ(failures, 1);
  SetFailureHandler(before);
}

}  // namespace
