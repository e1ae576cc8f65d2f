#include <array>

#include "screenshots/shots.h"
#include "text_ids.h"
#include "ui/framework/dpi.h"
#include "ui/framework/gdiplus.h"
#include "ui/framework/high_contrast.h"
#include "ui/look/character.h"

namespace shots {
namespace {

using namespace qlm;

const std::array kBrushes = {L"default", L"os_default", L"color",  L"picture",
                             L"check",   L"diamond",    L"stripe", L"interlace"};
// AUTO_FIT and AUTO_FILL equal another fit in the usual window; AUTO_FIT switches to a window of another
// shape.
const std::array kFits = {L"none", L"width", L"height", L"auto_fit", L"auto_fill"};
const std::array kOrigins = {L"lt", L"lb", L"rb", L"rt"};

// Writes a landscape with bright and dark parts: text must be readable on both.
void WritePicture(const std::wstring& path) {
  Gdiplus::Bitmap picture(640, 400, PixelFormat24bppRGB);
  for (INT y = 0; y < 400; ++y)
    for (INT x = 0; x < 640; ++x) {
      const bool isHill = y > 250 + 40 * ((x / 80) % 2 == 0 ? x % 80 : 80 - x % 80) / 80;
      const auto shade = static_cast<BYTE>(isHill ? 90 + y / 8 : 255 - y / 4);
      picture.SetPixel(x, y, isHill ? Gdiplus::Color(40, shade, 60) : Gdiplus::Color(shade, shade, 255));
    }
  CLSID png{};
  ::CLSIDFromString(L"{557CF406-1A04-11D3-9A73-0000F81EF32E}", &png);
  picture.Save(path.c_str(), &png, nullptr);
}

void ShootWith(test::CGuiApp& a, const CDesignSetting& design, const std::wstring& name) {
  if (!Wanted(L"design")) return;
  a.app->Settings().design = design;
  a.app->Context().window.ApplySettings(a.app->Settings());
  Shoot(a.frame->Hwnd(), L"design_" + name);
}

void ShootHighContrast(test::CGuiApp& a) {
  my::AssumeHighContrast(true);
  ::SendMessageW(a.frame->Hwnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
  ShootWith(a, {}, L"high_contrast");
  my::AssumeHighContrast({});
}

// Draws all characters with their names, in six columns.
void ShootCharacters(const my::IMessageTexts& texts, UINT dpi, const std::wstring& name) {
  if (!Wanted(L"characters")) return;
  const int side = my::Scale(200, dpi);
  const int line = my::Scale(24, dpi);
  constexpr int kColumns = 6;
  constexpr int kRows = 4;
  const my::CWindowDc screen(nullptr);
  const my::CMemoryDc dc(::CreateCompatibleDC(screen.Get()));
  const my::CBitmap bitmap(::CreateCompatibleBitmap(screen.Get(), side * kColumns, (side + line) * kRows));
  const my::CFont font = my::MessageFont(dpi);
  {
    const my::CSelect select(dc.Get(), bitmap.Get());
    const my::CSelect selectFont(dc.Get(), font.Get());
    ::PatBlt(dc.Get(), 0, 0, side * kColumns, (side + line) * kRows, WHITENESS);
    Gdiplus::Graphics graphics(dc.Get());
    for (int i = 0; i < kColumns * kRows; ++i) {
      const auto type = static_cast<BkImgType>(static_cast<int>(BkImgType::OK) + i);
      const int left = i % kColumns * side;
      const int top = i / kColumns * (side + line);
      const auto extent = static_cast<float>(side);
      DrawCharacter(graphics, type, {static_cast<float>(left), static_cast<float>(top), extent, extent});
      RECT place{left, top + side, left + side, top + side + line};
      ::DrawTextW(dc.Get(), texts.Text(kBkImgTypeTexts[type]).c_str(), -1, &place,
                  DT_CENTER | DT_SINGLELINE | DT_VCENTER);
    }
  }
  Save(bitmap.Get(), name);
}

}  // namespace

void ShootDesign() {
  CSampleApp a;
  const std::wstring picture = a.scratch.At(L"landscape.png");
  WritePicture(picture);
  CDesignSetting design;
  design.bkBrushColor = {0x2F, 0x5D, 0x62};
  design.bkBrushPath = picture;
  for (size_t i = 0; i < kBrushes.size(); ++i) {
    design.bkBrushType = static_cast<BrushType>(i);
    ShootWith(a, design, std::wstring(L"brush_") + kBrushes[i]);
  }
  design = {};
  design.bkImgType = BkImgType::LOVELOVE;
  my::CRect& bounds = a.app->Settings().mainFrame.normalBounds;
  for (size_t i = 0; i < kFits.size(); ++i) {
    design.bkImgFitType = static_cast<FitType>(i);
    if (design.bkImgFitType == FitType::AUTO_FIT) bounds = {0, 0, 560, 900};
    ShootWith(a, design, std::wstring(L"fit_") + kFits[i]);
  }
  bounds = {0, 0, 960, 680};
  design.bkImgFitType = FitType::NONE;
  for (size_t i = 0; i < kOrigins.size(); ++i) {
    design.bkImgOrigin = static_cast<ImgOrigin>(i);
    if (design.bkImgOrigin == CDesignSetting().bkImgOrigin) continue;  // already taken with the fits
    ShootWith(a, design, std::wstring(L"origin_") + kOrigins[i]);
  }
  design.bkImgType = BkImgType::CUSTOM;
  design.bkImgPath = picture;
  design.bkImgFitType = FitType::AUTO_FILL;
  ShootWith(a, design, L"custom_picture");
  ShootHighContrast(a);
  ShootCharacters(a.texts, 96, L"characters");
  ShootCharacters(a.texts, 192, L"characters_200");
}

}  // namespace shots
