#include "ui/look/background.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "ui/framework/colors.h"
#include "ui/framework/dpi.h"
#include "ui/framework/high_contrast.h"
#include "ui/look/character.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kCharacterSize = 240;
constexpr int kSmallestCharacter = 48;
constexpr float kRim = 2.5F;
const my::CColor kDefaultBrush = CDesignSetting().bkBrushColor;

CExtent ExtentOf(SIZE size) {
  return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

// Returns the size of all screens together, which no view exceeds.
CExtent ScreenExtent() {
  return {::GetSystemMetrics(SM_CXVIRTUALSCREEN), ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

BkImgType ImageOf(const CDesignSetting& design) {
  return design.bkImgType == BkImgType::DEFAULT ? PickCharacter(design.random) : design.bkImgType;
}

// Wraps the pixels without copying them.
Gdiplus::Bitmap BitmapOn(std::vector<uint32_t>& pixels, SIZE size) {
  return {static_cast<INT>(size.cx), static_cast<INT>(size.cy),
          static_cast<INT>(size.cx * static_cast<LONG>(sizeof(uint32_t))), PixelFormat32bppPARGB,
          reinterpret_cast<BYTE*>(pixels.data())};
}

Gdiplus::Rect RectOf(const my::CRect& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

void CBackground::SetDpi(UINT dpi) {
  if (dpi == m_dpi) return;
  m_dpi = dpi;
  m_bitmap.reset();
}

void CBackground::SetDesign(const CDesignSetting& design) {
  m_design = design;
  m_bitmap.reset();
  if (design.bkBrushType != BrushType::CUSTOM_BK) m_brush.reset();
  if (design.bkImgType != BkImgType::CUSTOM) m_image.reset();
  std::exception_ptr failure;
  if (design.bkBrushType == BrushType::CUSTOM_BK)
    failure = Load(m_brush, design.bkBrushPath, FitType::NONE, ImgOrigin::LT);
  if (design.bkImgType == BkImgType::CUSTOM) {
    const auto imageFailure = Load(m_image, design.bkImgPath, design.bkImgFitType, design.bkImgOrigin);
    if (!failure) failure = imageFailure;
  }
  UsePlain();
  if (failure) std::rethrow_exception(failure);
}

void CBackground::OnSystemChanged() {
  UsePlain();
  m_bitmap.reset();
}

std::exception_ptr CBackground::Load(std::optional<CLoaded>& loaded, const std::wstring& path, FitType fit,
                                     ImgOrigin origin) {
  if (path.empty()) loaded.reset();
  if (path.empty() || (loaded && loaded->IsFor(path, fit, origin))) return nullptr;
  const auto cut = [&](SIZE whole) -> my::CPictureCut {
    const auto [part, size] = NeededPart(ExtentOf(whole), ScreenExtent(), fit, origin);
    return {{part.left, part.top, part.right, part.bottom}, {size.width, size.height}};
  };
  try {
    loaded = CLoaded{path, fit, origin, my::ReadPicture(path, cut)};
    return nullptr;
  } catch (...) {
    return std::current_exception();
  }
}

void CBackground::UsePlain() {
  const BkImgType image = ImageOf(m_design);
  const bool hasImage = image == BkImgType::CUSTOM ? m_image.has_value() : image != BkImgType::NONE;
  m_plain = my::IsHighContrast() || (m_design.bkBrushType == BrushType::OS_DEFAULT && !hasImage);
}

void CBackground::UpdatePlace() {
  if (!m_bitmap || CharacterPlace() == m_character) return;
  m_bitmap.reset();
  ::RedrawWindow(m_view, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void CBackground::Draw(HDC dc, HWND window, const RECT& area) {
  Update();
  Copy(*m_bitmap, dc, window, area);
}

void CBackground::DrawShade(HDC dc, HWND window, const RECT& area) {
  Update();
  RECT shaded = m_shaded;
  ::MapWindowPoints(m_view, window, reinterpret_cast<POINT*>(&shaded), 2);
  RECT part{};
  if (::IntersectRect(&part, &shaded, &area)) Copy(*m_shade, dc, window, part);
}

void CBackground::Copy(const my::CPixelBitmap& bitmap, HDC dc, HWND window, const RECT& area) const {
  POINT from{area.left, area.top};
  ::MapWindowPoints(window, m_view, &from, 1);
  ::BitBlt(dc, area.left, area.top, area.right - area.left, area.bottom - area.top, bitmap.Dc(), from.x,
           from.y, SRCCOPY);
}

COLORREF CBackground::TextColor() const {
  return my::ColorRef(Text());
}

CRowGround CBackground::Ground() {
  Update();
  return {Text(), my::SystemColor(COLOR_GRAYTEXT), m_luminance};
}

my::CColor CBackground::Text() const {
  return m_design.bkBrushType == BrushType::OS_DEFAULT ? my::SystemColor(COLOR_WINDOWTEXT)
                                                       : m_design.textColor;
}

void CBackground::Update() {
  RECT client{};
  ::GetClientRect(m_view, &client);
  const SIZE size{std::max(1L, client.right), std::max(1L, client.bottom)};
  if (m_bitmap && m_bitmap->Size().cx == size.cx && m_bitmap->Size().cy == size.cy) return;
  m_bitmap.emplace(size);
  m_shade.emplace(size);
  m_character = CharacterPlace();
  DrawBrush();
  DrawImage();
  m_luminance = LimitPixels(m_shade->Pixels(), Text());
  const my::CRect shaded = Difference(m_bitmap->Pixels(), m_shade->Pixels(), static_cast<int>(size.cx));
  m_shaded = {shaded.left, shaded.top, shaded.right, shaded.bottom};
}

void CBackground::DrawBrush() {
  const BrushType type = m_design.bkBrushType;
  my::CColor color = m_design.bkBrushColor;
  if (type == BrushType::DEFAULT) color = kDefaultBrush;
  if (type == BrushType::OS_DEFAULT) color = my::SystemColor(COLOR_WINDOW);
  const int width = static_cast<int>(m_bitmap->Size().cx);
  FillBrush(m_bitmap->Pixels(), width, type, color, static_cast<int>(m_dpi));
  if (m_brush)
    FillTiles(m_bitmap->Pixels(), width, m_brush->picture.pixels, static_cast<int>(m_brush->picture.size.cx));
  std::ranges::copy(m_bitmap->Pixels(), m_shade->Pixels().begin());
  if (!m_brush) return;
  const my::CContrastTable table = my::CContrastTable::Soft(Text());
  for (my::CPixel& pixel : m_shade->Pixels()) pixel = table.Apply(pixel);
}

void CBackground::DrawImage() {
  const BkImgType type = ImageOf(m_design);
  if (type == BkImgType::NONE || (type == BkImgType::CUSTOM && !m_image)) return;
  const SIZE size = m_bitmap->Size();
  std::vector<uint32_t> layer(m_bitmap->Pixels().size());
  {
    Gdiplus::Bitmap bitmap = BitmapOn(layer, size);
    Gdiplus::Graphics graphics(&bitmap);
    if (type == BkImgType::CUSTOM)
      DrawPicture(graphics, size);
    else
      DrawCharacter(graphics, type);
  }
  Blend(m_bitmap->Pixels(), layer);
  const my::CContrastTable table = my::CContrastTable::Soft(Text());
  for (my::CPixel& pixel : layer) pixel = my::ApplyToLayer(table, pixel);
  Blend(m_shade->Pixels(), layer);
}

void CBackground::DrawPicture(Gdiplus::Graphics& graphics, SIZE view) {
  my::CPicture& picture = m_image->picture;
  Gdiplus::Bitmap bitmap = BitmapOn(picture.pixels, picture.size);
  const my::CRect place =
      PlaceImage(ExtentOf(view), ExtentOf(picture.size), m_design.bkImgFitType, m_design.bkImgOrigin);
  Gdiplus::ImageAttributes attributes;
  attributes.SetWrapMode(
      Gdiplus::WrapModeTileFlipXY);  // otherwise the edges would be blended with transparency
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  graphics.DrawImage(&bitmap, RectOf(place), 0, 0, static_cast<INT>(picture.size.cx),
                     static_cast<INT>(picture.size.cy), Gdiplus::UnitPixel, &attributes);
}

void CBackground::DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type) const {
  const Gdiplus::Rect rect = RectOf(m_character);
  qlm::DrawCharacter(graphics, type,
                     {static_cast<float>(rect.X), static_cast<float>(rect.Y), static_cast<float>(rect.Width),
                      static_cast<float>(rect.Height)},
                     kRim * static_cast<float>(m_dpi) / my::kDefaultDpi);
}

// A character in its own size keeps clear of words and is left out if there is no room; one fitted to the
// view is behind the rows.
my::CRect CBackground::CharacterPlace() const {
  const BkImgType type = ImageOf(m_design);
  if (type == BkImgType::NONE || type == BkImgType::CUSTOM) return {};
  const int side = my::Scale(kCharacterSize, m_dpi);
  const auto [fit, origin] = std::pair(m_design.bkImgFitType, m_design.bkImgOrigin);
  if (fit == FitType::NONE)
    return PlaceCharacter(m_rooms(), side, my::Scale(kSmallestCharacter, m_dpi), origin);
  RECT client{};
  ::GetClientRect(m_view, &client);
  return PlaceImage({client.right, client.bottom}, {side, side}, fit, origin);
}

}  // namespace qlm
