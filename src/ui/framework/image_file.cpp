#include "ui/framework/image_file.h"

#include <wincodec.h>

#include "platform/win32/com.h"
#include "support/exception.h"
#include "text_ids.h"

namespace my {
namespace {

template <class T>
using CWic = CComPtr<T>;

void Check(HRESULT result) {
  if (FAILED(result)) throw CException(CSystemError{result});
}

CWic<IWICImagingFactory> Factory() {
  CWic<IWICImagingFactory> factory;
  Check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                           reinterpret_cast<void**>(factory.Out())));
  return factory;
}

SIZE SizeOf(IWICBitmapSource& source) {
  UINT width = 0;
  UINT height = 0;
  Check(source.GetSize(&width, &height));
  return {static_cast<LONG>(width), static_cast<LONG>(height)};
}

// Returns the EXIF orientation: 1 is upright, other values are a rotation, a flip or both.
UINT OrientationOf(IWICBitmapFrameDecode& frame) {
  CWic<IWICMetadataQueryReader> reader;
  if (FAILED(frame.GetMetadataQueryReader(reader.Out()))) return 1;
  PROPVARIANT value{};
  UINT orientation = 1;
  if (SUCCEEDED(reader->GetMetadataByName(L"/app1/ifd/{ushort=274}", &value)) && value.vt == VT_UI2)
    orientation = value.uiVal;
  ::PropVariantClear(&value);
  return orientation;
}

WICBitmapTransformOptions TurnFor(UINT orientation) {
  constexpr WICBitmapTransformOptions kTurns[] = {
      WICBitmapTransformRotate0,
      WICBitmapTransformFlipHorizontal,
      WICBitmapTransformRotate180,
      WICBitmapTransformFlipVertical,
      static_cast<WICBitmapTransformOptions>(WICBitmapTransformRotate90 | WICBitmapTransformFlipHorizontal),
      WICBitmapTransformRotate90,
      static_cast<WICBitmapTransformOptions>(WICBitmapTransformRotate270 | WICBitmapTransformFlipHorizontal),
      WICBitmapTransformRotate270};
  return orientation >= 1 && orientation <= std::size(kTurns) ? kTurns[orientation - 1] : kTurns[0];
}

// A chain of WIC steps, each of which reads its pixels from the previous one.
class CReader {
 public:
  explicit CReader(const std::wstring& path) : m_factory(Factory()) {
    Check(m_factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                               WICDecodeMetadataCacheOnDemand, m_decoder.Out()));
    Check(m_decoder->GetFrame(0, m_frame.Out()));
    m_source = m_frame.Get();
  }

  CPicture Read(const std::function<CPictureCut(SIZE)>& cut) {
    const UINT orientation = OrientationOf(*m_frame.Get());
    Convert(GUID_WICPixelFormat32bppBGRA, m_straight);
    if (orientation != 1) Turn(orientation);
    const SIZE whole = SizeOf(*m_source);
    if (whole.cx <= 0 || whole.cy <= 0) Check(WINCODEC_ERR_BADIMAGE);
    const CPictureCut wanted = cut(whole);
    Clip(wanted.part);
    Scale(wanted.size);
    UseSrgb();
    Convert(GUID_WICPixelFormat32bppPBGRA, m_multiplied);
    return Pixels(wanted.size);
  }

 private:
  void Convert(const GUID& format, CWic<IWICFormatConverter>& step) {
    Check(m_factory->CreateFormatConverter(step.Out()));
    Check(
        step->Initialize(m_source, format, WICBitmapDitherTypeNone, nullptr, 0, WICBitmapPaletteTypeCustom));
    m_source = step.Get();
  }

  // Rotation reads pixels out of order, so the picture must be in memory.
  void Turn(UINT orientation) {
    Check(m_factory->CreateBitmapFromSource(m_source, WICBitmapCacheOnLoad, m_memory.Out()));
    Check(m_factory->CreateBitmapFlipRotator(m_turn.Out()));
    Check(m_turn->Initialize(m_memory.Get(), TurnFor(orientation)));
    m_source = m_turn.Get();
  }

  void Clip(const RECT& part) {
    const WICRect rect{part.left, part.top, part.right - part.left, part.bottom - part.top};
    Check(m_factory->CreateBitmapClipper(m_clip.Out()));
    Check(m_clip->Initialize(m_source, &rect));
    m_source = m_clip.Get();
  }

  void Scale(SIZE size) {
    Check(m_factory->CreateBitmapScaler(m_scale.Out()));
    Check(m_scale->Initialize(m_source, static_cast<UINT>(size.cx), static_cast<UINT>(size.cy),
                              WICBitmapInterpolationModeFant));
    m_source = m_scale.Get();
  }

  // If the colour profile cannot be used, the colours of the file are kept.
  void UseSrgb() {
    CWic<IWICColorContext> own;
    if (FAILED(m_factory->CreateColorContext(own.Out()))) return;
    IWICColorContext* contexts[] = {own.Get()};
    UINT count = 0;
    if (FAILED(m_frame->GetColorContexts(1, contexts, &count)) || count == 0) return;
    CWic<IWICColorContext> screen;
    if (FAILED(m_factory->CreateColorContext(screen.Out()))) return;
    constexpr UINT kSrgb = 1;
    if (FAILED(screen->InitializeFromExifColorSpace(kSrgb))) return;
    if (FAILED(m_factory->CreateColorTransformer(m_colors.Out()))) return;
    if (SUCCEEDED(m_colors->Initialize(m_source, own.Get(), screen.Get(), GUID_WICPixelFormat32bppBGRA)))
      m_source = m_colors.Get();
  }

  CPicture Pixels(SIZE size) {
    CPicture picture;
    picture.size = size;
    picture.pixels.resize(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy));
    const auto stride = static_cast<UINT>(size.cx) * UINT{sizeof(uint32_t)};
    const auto bytes = static_cast<UINT>(picture.pixels.size() * sizeof(uint32_t));
    Check(m_source->CopyPixels(nullptr, stride, bytes, reinterpret_cast<BYTE*>(picture.pixels.data())));
    return picture;
  }

  CWic<IWICImagingFactory> m_factory;
  CWic<IWICBitmapDecoder> m_decoder;
  CWic<IWICBitmapFrameDecode> m_frame;
  CWic<IWICFormatConverter> m_straight;
  CWic<IWICBitmap> m_memory;
  CWic<IWICBitmapFlipRotator> m_turn;
  CWic<IWICBitmapClipper> m_clip;
  CWic<IWICBitmapScaler> m_scale;
  CWic<IWICColorTransform> m_colors;
  CWic<IWICFormatConverter> m_multiplied;
  IWICBitmapSource* m_source = nullptr;  // the last step so far
};

}  // namespace

CPicture ReadPicture(const std::wstring& path, const std::function<CPictureCut(SIZE)>& cut) try {
  return CReader(path).Read(cut);
} catch (const CException& failure) {
  throw CException(IDS_IMAGE_NOT_READ, {failure.Cause(), path});
} catch (const std::bad_alloc&) {
  throw CException(IDS_IMAGE_NOT_READ, {CSystemError::FromWin32(ERROR_OUTOFMEMORY), path});
}

}  // namespace my
