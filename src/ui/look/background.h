// What stands behind the lists of the main view.
#pragma once

#include <windows.h>

#include <exception>
#include <optional>
#include <string>

#include "settings/settings.h"
#include "ui/framework/gdiplus.h"
#include "ui/framework/image_file.h"
#include "ui/framework/pixel_bitmap.h"

namespace qlm {

// Drawn once for each size of the view, in which every window below it shows its slice: as it is, and shaded
// for what lies behind text. Text in the colours that this object hands out has a contrast of at least 4.5 :
// 1 wherever the shade is behind it.
class CBackground {
 public:
  // The window whose client area is filled. To be called before anything is drawn.
  void SetView(HWND view) { m_view = view; }
  void SetDpi(UINT dpi);

  // Takes over all of the design but a picture that cannot be read: then the one before stays, and
  // IDS_IMAGE_NOT_READ is thrown. The caller redraws the view.
  void SetDesign(const CDesignSetting& design);

  // Colours or contrast of the system have changed.
  void OnSystemChanged();

  // Whether all is to look as the system has it; nothing of the following is needed then.
  bool IsPlain() const { return m_plain; }

  // `area` in client coordinates of `window`, a part of the view; so is `dc`.
  void Draw(HDC dc, HWND window, const RECT& area);
  void DrawShade(HDC dc, HWND window, const RECT& area);

  COLORREF TextColor() const;

  // As near to a colour as can be read.
  COLORREF Readable(my::CColor color);

 private:
  // A picture, and what it was read for.
  struct CLoaded {
    std::wstring path;
    FitType fit = FitType::NONE;
    ImgOrigin origin = ImgOrigin::LT;
    my::CPicture picture;

    bool IsFor(const std::wstring& otherPath, FitType otherFit, ImgOrigin otherOrigin) const {
      return path == otherPath && fit == otherFit && origin == otherOrigin;
    }
  };

  // Answers the failure, after which what was loaded before stays.
  static std::exception_ptr Load(std::optional<CLoaded>& loaded, const std::wstring& path, FitType fit,
                                 ImgOrigin origin);

  void UsePlain();
  void Update();  // the bitmaps, to the view's size
  void Copy(const my::CPixelBitmap& bitmap, HDC dc, HWND window, const RECT& area) const;
  void DrawBrush();
  void DrawImage();
  void DrawPicture(Gdiplus::Graphics& graphics, SIZE view);
  void DrawCharacter(Gdiplus::Graphics& graphics, BkImgType type, SIZE view) const;
  my::CColor Text() const;

  HWND m_view = nullptr;
  UINT m_dpi = 96;
  my::CGdiplus m_gdiplus;
  CDesignSetting m_design;
  bool m_plain = false;
  std::optional<CLoaded> m_brush;
  std::optional<CLoaded> m_image;
  std::optional<my::CPixelBitmap> m_bitmap;  // empty: to be drawn anew
  std::optional<my::CPixelBitmap> m_shade;   // of the same size
  double m_luminance = 0;                    // of the shade, where it comes nearest to the text
};

}  // namespace qlm
