#include "gui/gui_app.h"
#include "ui/framework/high_contrast.h"
#include "ui/models/background_model.h"

namespace {

using namespace qlm;
using test::CGuiApp;
using test::Choose;

using CPixels = std::vector<uint32_t>;

CPixels PixelsOf(HWND window) {
  ::UpdateWindow(window);
  test::Pump();
  const my::CPixelBitmap copy(test::Size(window));
  const HDC dc = ::GetDCEx(window, nullptr, DCX_CACHE);  // includes child windows
  ::BitBlt(copy.Dc(), 0, 0, copy.Size().cx, copy.Size().cy, dc, 0, 0, SRCCOPY);
  ::ReleaseDC(window, dc);
  ::GdiFlush();
  return {copy.Pixels().begin(), copy.Pixels().end()};
}

// A main view in a frame window.
struct Design : testing::Test {
  ~Design() override { ::DestroyWindow(frame); }

  HWND ViewOfApp() const { return ::GetDlgItem(a.frame->Hwnd(), IDC_SPLITTER); }

  // Calls `user` with the open design page; it must close the sheet.
  void InPage(const std::function<void(HWND sheet, HWND page)>& user) {
    a.DoWithDialog(ID_DESIGN, [&](HWND sheet) { user(sheet, test::ChildWith(sheet, IDC_BRUSH_TYPE)); });
  }

  void Show(const CDesignSetting& design) {
    view.ShowDesign(design);
    ::UpdateWindow(frame);
  }

  const my::CGdiplus gdiplus;
  CGuiApp a;
  CMainView view{a.app->Document(), a.app->Settings().ui, a.texts};
  HWND frame = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700,
                                 nullptr, nullptr, nullptr, nullptr);
};

TEST_F(Design, choices_are_previewed_and_cancel_restores_the_design) {
  const CPixels first = PixelsOf(ViewOfApp());
  CPixels before = first;
  const auto expectChange = [&](const char* what) {
    CPixels now = PixelsOf(ViewOfApp());
    EXPECT_NE(now, before) << what;
    before = std::move(now);
  };
  InPage([&](HWND sheet, HWND page) {
    for (int type = 1; type <= static_cast<int>(BrushType::INTERLACE); ++type) {
      if (type == static_cast<int>(BrushType::CUSTOM_BK)) continue;  // needs an image file
      Choose(page, IDC_BRUSH_TYPE, type);
      expectChange("brush");
    }
    Choose(page, IDC_IMAGE_TYPE, static_cast<int>(BkImgType::ZUKO));
    expectChange("image");
    Choose(page, IDC_IMAGE_ORIGIN, static_cast<int>(ImgOrigin::RT));
    expectChange("corner");
    Choose(page, IDC_IMAGE_FIT, static_cast<int>(FitType::HEIGHT));
    expectChange("fit");
    test::Click(page, IDC_SHOW_DESCRIPTION);
    expectChange("description");
    Choose(page, IDC_IMAGE_TYPE, static_cast<int>(BkImgType::CUSTOM));
    ::SetFocus(::GetDlgItem(page, IDC_IMAGE_PATH));  // it loses the focus when the sheet closes
    test::Click(sheet, IDCANCEL);
  });
  EXPECT_EQ(PixelsOf(ViewOfApp()), first);
  EXPECT_EQ(a.app->Settings().design.bkBrushType, BrushType::DEFAULT);
}

TEST_F(Design, damaged_picture_is_refused_but_not_a_missing_one_in_use) {
  CDesignSetting& design = a.app->Settings().design;
  design.bkBrushType = BrushType::CUSTOM_BK;
  design.bkBrushPath = a.scratch.At(L"away\\brush.png");
  const std::string gif("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\xFF\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;", 35);
  a.scratch.Write(L"good.gif", gif);
  a.scratch.Write(L"bad.gif", gif.substr(0, 24) + "broken");
  InPage([&](HWND sheet, HWND page) {
    Choose(page, IDC_IMAGE_TYPE, static_cast<int>(BkImgType::CUSTOM));
    Choose(page, IDC_IMAGE_FIT, static_cast<int>(FitType::AUTO_FILL));
    const auto use = [&](const wchar_t* file) {
      ::SetDlgItemTextW(page, IDC_IMAGE_PATH, a.scratch.At(file).c_str());
      ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(IDC_IMAGE_PATH, EN_KILLFOCUS), 0);
      return PixelsOf(ViewOfApp());
    };
    const CPixels none = PixelsOf(ViewOfApp());
    const CPixels good = use(L"good.gif");
    EXPECT_NE(good, none);
    EXPECT_EQ(use(L"bad.gif"), good);
    a.box.texts.clear();
    ::SendMessageW(sheet, WM_COMMAND, IDOK, 0);
    ASSERT_EQ(a.box.texts.size(), 1u);
    EXPECT_TRUE(test::Has(a.box.texts[0], L"bad.gif"));
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_IMAGE_PATH);
    test::Click(page, IDC_SHOW_DESCRIPTION);
    Choose(page, IDC_IMAGE_TYPE, static_cast<int>(BkImgType::NONE));
    ::SendMessageW(sheet, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(a.box.texts.size(), 1u);
  });
  EXPECT_FALSE(design.showDesc);
  EXPECT_EQ(design.bkBrushPath, a.scratch.At(L"away\\brush.png"));
}

TEST_F(Design, text_is_readable_on_every_brush_and_character) {
  view.CreateIn(frame);
  ::MoveWindow(view.Hwnd(), 0, 0, 400, 300, FALSE);
  CBackground background;
  background.SetView(view.Hwnd(), [] { return std::vector<CRoom>{{false, {0, 0, 400, 300}, {}}}; });
  CDesignSetting design;
  my::CPixelBitmap copy({400, 300});
  for (int i = 0; i < 27; ++i) {
    design.bkBrushType = static_cast<BrushType>(i % 8);
    design.bkImgType = static_cast<BkImgType>(i);
    background.SetDesign(design);
    background.Draw(copy.Dc(), view.Hwnd(), {0, 0, 400, 300});
    background.DrawShade(copy.Dc(), view.Hwnd(), {0, 0, 400, 300});
    ::GdiFlush();
    const my::CListLook calm = StateLook(a.app->Settings().ui, ResultState::NotUpdated);
    const CRowGround ground = background.Ground();
    for (const my::CColor text : {ground.text, RowColors(calm, RowSelection::None, ground).text}) {
      double least = 21;
      for (const my::CPixel pixel : copy.Pixels())
        least = std::min(least, my::Contrast(my::ColorOf(pixel), text));
      EXPECT_GE(least, my::kReadable) << "brush " << i % 8 << ", image " << i;
    }
  }
}

TEST_F(Design, high_contrast_overrides_the_design) {
  const CPixels designed = PixelsOf(ViewOfApp());
  my::AssumeHighContrast(true);
  ::SendMessageW(a.frame->Hwnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
  test::Pump();
  EXPECT_NE(PixelsOf(ViewOfApp()), designed);
  EXPECT_EQ(ListView_GetBkColor(a.List(IDC_TASK_LIST)), ::GetSysColor(COLOR_WINDOW));
  my::AssumeHighContrast({});
  ::SendMessageW(a.frame->Hwnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
  test::Pump();
  EXPECT_EQ(PixelsOf(ViewOfApp()), designed);
}

TEST_F(Design, character_makes_room_for_new_rows) {
  view.CreateIn(frame);
  ::MoveWindow(view.Hwnd(), 0, 0, 900, 600, FALSE);
  CDesignSetting design;
  Show(design);
  PixelsOf(view.Hwnd());
  for (int i = 0; i < 6; ++i) a.AddDst(L"D:\\" + std::to_wstring(i));
  view.OnDocumentChanged(DocChangeEventFlags::CHNAGE_DSTS);
  const HWND list = view.Dsts().List().Hwnd();
  RECT last{};
  ListView_GetItemRect(list, 5, &last, LVIR_BOUNDS);
  const auto rows = static_cast<ptrdiff_t>(last.bottom * test::Size(list).cx);
  const CPixels shown = PixelsOf(list);
  design.bkImgType = BkImgType::NONE;
  Show(design);
  const CPixels bare = PixelsOf(list);
  EXPECT_NE(shown, bare) << "the character is shown below the rows";
  EXPECT_TRUE(std::equal(shown.begin(), shown.begin() + rows, bare.begin())) << "and not behind them";
}

TEST_F(Design, background_does_not_move_with_rows_and_panes) {
  for (int i = 0; i < 60; ++i) a.AddTask(std::to_wstring(i), L"C:\\a");
  view.CreateIn(frame);
  ::MoveWindow(view.Hwnd(), 0, 0, 900, 600, FALSE);
  view.OnDocumentChanged(DocChangeEventFlags::CHNAGE_TASKS);
  CDesignSetting design;
  design.bkBrushType = BrushType::CHECK;
  Show(design);
  const HWND list = view.Tasks().List().Hwnd();
  // An area to the right of the column texts.
  const auto strip = [&] {
    ::UpdateWindow(frame);
    test::Pump();
    const CPixels all = PixelsOf(list);
    const auto width = static_cast<size_t>(test::Size(list).cx);
    CPixels part;
    for (size_t row = 40; row < 240; ++row)
      part.insert(part.end(), all.begin() + static_cast<ptrdiff_t>(row * width + 600),
                  all.begin() + static_cast<ptrdiff_t>(row * width + 700));
    return part;
  };
  const CPixels before = strip();
  ::SendMessageW(list, WM_VSCROLL, SB_LINEDOWN, 0);
  EXPECT_EQ(strip(), before);
  view.Tasks().List().EnsureVisible(50);
  EXPECT_EQ(strip(), before);
  view.Tasks().List().Select({48, 50});
  EXPECT_NE(strip(), before) << "the selection is visible";
}

}  // namespace
