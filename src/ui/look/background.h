// The background of the main view, behind the lists.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "settings/settings.h"
#include "ui/framework/gdiplus.h"
#include "ui/framework/image_file.h"
#include "ui/framework/pixel_bitmap.h"
#include "ui/models/background_model.h"
#include "ui/models/row_colors.h"

namespace qlm {

// Draws the background once per size of the view; every window in the view shows its part of it. A second,
// shaded copy is drawn under text: on it, text in the colours of this object has a contrast of at least 4.5 :
// 1.
class CBackground {
 public:
  // Sets the window whose client area is filled. Must be called before anything is drawn. `rooms` returns the
  // room for a character.
  void SetView(HWND view, std::function<std::vector<CRoom>()> rooms) {
    m_view = view;
    m_rooms = std::move(rooms);
  }
  void SetDpi(UINT dpi);

  // Applies the design. If an image file cannot be read, the previous image stays, the rest is applied, and
  // IDS_IMAGE_NOT_READ is thrown. The caller must redraw the view.
  void SetDesign(const CDesignSetting& design);

  // Must be called when rows or words in the view have moved: moves the character out of their way.
  void UpdatePlace();

  // Must be called when the system's colours or contrast have changed.
  void OnSystemChanged();

  // Returns whether the lists are drawn in the system's colours; the functions below are not needed then.
  bool IsPlain() const { return m_plain; }

  // `area` is in client coordinates of `window`, which is within the view; `dc` belongs to `window`.
  void Draw(HDC dc, HWND window, const RECT& area);

  // Draws the shade where it differs from the background, which must have been drawn before.
  void DrawShade(HDC dc, HWND window, const RECT& area);

  COLORREF TextColor() const;

  // Describes the shade.
  CRowGround Ground();

 private:
  // An image and the parameters with which it was read.
  struct CLoaded {
    std::wstring path;
    FitType fit = FitType::NONE;
    ImgOrigin origin = ImgOrigin::LT;
    my::CPicture picture;

    bool IsFor(const std::wstring& otherPath, FitType otherFit, ImgOrigin otherOrigin) const {
      return path == otherPath && fit == otherFit && origin == otherOrigin;
    }
  };

  // Returns the failure; the previous image then stays.
  static std::exception_ptr Load(std::optional<CLoaded>& loaded, const std::wstring& path, FitType fit,
                                 ImgOrigin origin);

  void UsePlain();
  void Update();  // adapts the bitmaps to the size of the view
  void Copy(const my::CPixelBitmap& bitmap, HDC dc, HWND window, const RECT& area) const;
  void DrawBrush();
  void DrawImage();
  void DrawPicture(Gdiplus::Graphics& graphics, SIZE view);
  void DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type) const;
  my::CRect CharacterPlace() const;
  my::CColor Text() const;

  HWND m_view = nullptr;
  std::function<std::vector<CRoom>()> m_rooms;
  UINT m_dpi = 96;
  my::CGdiplus m_gdiplus;
  CDesignSetting m_design;
  bool m_plain = false;
  std::optional<CLoaded> m_brush;
  std::optional<CLoaded> m_image;
  std::optional<my::CPixelBitmap> m_bitmap;  // empty if it must be redrawn
  std::optional<my::CPixelBitmap> m_shade;   // of the same size
  my::CRect m_character;                     // its place in the bitmaps
  RECT m_shaded{};                           // where the two bitmaps differ
  double m_luminance = 0;                    // of the shade pixel closest to the text colour
};

}  // namespace qlm
