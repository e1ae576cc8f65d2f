#include "gui/gui.h"
#include "ui/framework/dpi.h"

namespace {

using namespace my;

struct ListView : testing::Test {
  ListView() {
    CWindowParams params;
    params.width = 400;
    params.height = 300;
    frame.Create(test::FrameClass(), params);
    view.Create(frame.Hwnd(), 1, CListView::Boxes::Yes);
    ::MoveWindow(view.Hwnd(), 0, 0, 380, 260, FALSE);
    ::ShowWindow(frame.Hwnd(), SW_SHOW);
    view.Events().check = [this](size_t row) { checked.push_back(row); };
    view.Events().activate = [this](size_t row) { activated.push_back(row); };
    view.Events().selectionChanged = [this] { ++selections; };
    view.Events().canDrag = [] { return true; };
    view.Events().drop = [this](size_t before) { drops.push_back(before); };
  }

  void Key(WPARAM key) const { ::SendMessageW(view.Hwnd(), WM_KEYDOWN, key, 0); }
  POINT Place(int row, int part, int x) const {
    RECT rect{};
    ListView_GetItemRect(view.Hwnd(), row, &rect, part);
    return {rect.left + x, (rect.top + rect.bottom) / 2};
  }
  void Click(POINT at) const {
    ::PostMessageW(view.Hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    ::SendMessageW(view.Hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    test::Pump();
  }

  test::CRows rows;
  CWindow frame;
  CListView view{rows};
  std::vector<size_t> checked, activated, drops;
  int selections = 0;
};

TEST_F(ListView, selection_and_focus_survive_row_changes) {
  view.Select({3, 7, 9999});
  view.SetFocused(7);
  EXPECT_EQ(selections, 0);
  rows.count = 20000;
  view.Refresh();
  EXPECT_EQ(view.Selection(), (std::vector<size_t>{3, 7, 9999}));
  view.EnsureVisible(9999);
  EXPECT_GT(ListView_GetTopIndex(view.Hwnd()), 9900);
  rows.count = 8;
  view.Refresh();
  EXPECT_EQ(view.Selection(), (std::vector<size_t>{3, 7}));
  EXPECT_EQ(view.Focused(), 7u);
  ListView_SetItemState(view.Hwnd(), 1, LVIS_SELECTED, LVIS_SELECTED);  // as a user would
  EXPECT_EQ(selections, 1);
  rows.count = 0;
  view.Refresh();
  EXPECT_TRUE(view.Selection().empty());
  EXPECT_FALSE(view.Focused());
}

TEST_F(ListView, check_boxes_and_rows_react_to_mouse_and_keyboard) {
  for (int row = 0; row < 4; ++row)
    EXPECT_EQ(ListView_GetItemState(view.Hwnd(), row, LVIS_STATEIMAGEMASK),
              INDEXTOSTATEIMAGEMASK(static_cast<UINT>(rows.Check(row))));
  Click(Place(2, LVIR_LABEL, -8));
  Click(Place(1, LVIR_LABEL, 8));
  EXPECT_EQ(checked, (std::vector<size_t>{2}));
  view.SetFocused(1);
  Key(VK_SPACE);
  Key(VK_RETURN);
  EXPECT_EQ(checked, (std::vector<size_t>{2, 1}));
  EXPECT_EQ(activated, (std::vector<size_t>{1}));
  view.Events().key = [](UINT key) { return key == VK_RETURN; };
  Key(VK_RETURN);
  EXPECT_EQ(activated.size(), 1u);

  LVFINDINFOW find{};
  find.flags = LVFI_STRING | LVFI_PARTIAL;
  find.psz = L"rOW123";
  EXPECT_EQ(ListView_FindItem(view.Hwnd(), -1, &find), 123);
  EXPECT_EQ(ListView_FindItem(view.Hwnd(), 124, &find), 1230);
  find.psz = L"none";
  EXPECT_EQ(ListView_FindItem(view.Hwnd(), -1, &find), -1);
}

TEST_F(ListView, last_column_fills_the_list_and_the_others_keep_their_widths) {
  const auto widthOf = [&](int column) { return ListView_GetColumnWidth(view.Hwnd(), column); };
  const auto expectFilled = [&](const char* when) {
    RECT client{};
    ::GetClientRect(view.Hwnd(), &client);
    EXPECT_EQ(widthOf(0) + widthOf(1), client.right) << when;
  };
  const std::vector<int32_t> widths{120, 90};
  view.SetWidths(widths);
  expectFilled("widths of the settings");
  ::MoveWindow(view.Hwnd(), 0, 0, 700, 260, FALSE);
  expectFilled("wider");
  rows.count = 2;
  view.Refresh();
  expectFilled("without a scroll bar");
  ::SendMessageW(view.Hwnd(), DpiMessage(), 144, 0);
  EXPECT_EQ(widthOf(0), 180);
  expectFilled("another DPI");
  EXPECT_EQ(view.Widths(), widths) << "the filling is not stored";
  ::MoveWindow(view.Hwnd(), 0, 0, 200, 260, FALSE);
  EXPECT_EQ(widthOf(1), 135) << "scrolls instead of hiding the column";

  ::MoveWindow(view.Hwnd(), 0, 0, 700, 260, FALSE);
  HDITEMW item{};
  item.mask = HDI_WIDTH;
  item.cxy = 300;
  Header_SetItem(ListView_GetHeader(view.Hwnd()), 0, &item);  // as a user would
  expectFilled("a divider was moved");
  EXPECT_EQ(view.Widths(), (std::vector<int32_t>{200, 90}));
}

TEST_F(ListView, screen_readers_know_the_check_boxes_and_hear_their_changes) {
  EXPECT_NE(ListView_GetExtendedListViewStyle(view.Hwnd()) & LVS_EX_CHECKBOXES, 0u);
  static std::vector<LONG> children;
  const auto hear = [](HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
    if (object == OBJID_CLIENT) children.push_back(child);
  };
  children.clear();
  const HWINEVENTHOOK hook = ::SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, nullptr,
                                               hear, ::GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  view.SetFocused(1);
  Key(VK_SPACE);
  Click(Place(0, LVIR_LABEL, -8));
  ListView_SetCheckState(view.Hwnd(), 0, TRUE);  // as a screen reader does
  ListView_SetCheckState(view.Hwnd(), 1, TRUE);  // is checked
  EXPECT_TRUE(test::PumpUntil([] { return children.size() >= 3; }));
  ::UnhookWinEvent(hook);
  EXPECT_EQ(children, (std::vector<LONG>{2, 1, 1}));
  EXPECT_EQ(checked, (std::vector<size_t>{1, 0, 0}));
  ::SendMessageW(view.Hwnd(), WM_THEMECHANGED, 0, 0);
  EXPECT_EQ(::ImageList_GetImageCount(ListView_GetImageList(view.Hwnd(), LVSIL_STATE)), 3) << "mixed, too";
}

TEST_F(ListView, rows_are_dropped_at_the_insertion_mark) {
  const auto begin = [&] {
    NMLISTVIEW drag{};
    drag.hdr = {view.Hwnd(), 1, LVN_BEGINDRAG};
    ::SendMessageW(frame.Hwnd(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&drag));
  };
  const auto move = [&](POINT at) {
    ::SendMessageW(view.Hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    ::UpdateWindow(view.Hwnd());
  };
  const POINT third = Place(3, LVIR_BOUNDS, 20);
  begin();
  move({third.x, third.y - 2});
  ::SendMessageW(view.Hwnd(), WM_LBUTTONUP, 0, 0);
  begin();
  move({third.x, third.y + 2});
  ::SendMessageW(view.Hwnd(), WM_LBUTTONUP, 0, 0);
  EXPECT_EQ(drops, (std::vector<size_t>{3, 4}));
  EXPECT_NE(::GetCapture(), view.Hwnd());

  begin();
  Key(VK_ESCAPE);
  ::SendMessageW(view.Hwnd(), WM_LBUTTONUP, 0, 0);
  begin();
  ::ReleaseCapture();
  ::SendMessageW(view.Hwnd(), WM_LBUTTONUP, 0, 0);
  EXPECT_EQ(drops.size(), 2u);

  begin();
  move({third.x, 290});
  const int top = ListView_GetTopIndex(view.Hwnd());
  ::SendMessageW(view.Hwnd(), WM_TIMER, CListDrag::kTimer, 0);
  EXPECT_EQ(ListView_GetTopIndex(view.Hwnd()), top + 1);
}

}  // namespace
