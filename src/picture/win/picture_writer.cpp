#include "picture/win/picture_writer.h"

#include "picture/win/imaging.h"

namespace jotlets {
namespace {

constexpr float kQuality = 0.92F;

// Blue, green, red: three bytes a pixel, rows without gaps.
std::string OpaqueRows(const Picture& picture) {
  std::string rows;
  rows.reserve(picture.pixels.size() / 4 * 3);
  for (std::size_t at = 0; at < picture.pixels.size(); at += 4) {
    const int white = 255 - picture.pixels[at + 3];
    for (std::size_t channel = 0; channel < 3; ++channel)
      rows.push_back(static_cast<char>(picture.pixels[at + channel] + white));
  }
  return rows;
}

bool Encode(IStream* stream, const Picture& picture) {
  Com<IWICImagingFactory> factory;
  Com<IWICBitmapEncoder> encoder;
  Com<IWICBitmapFrameEncode> frame;
  Com<IPropertyBag2> options;
  if (!MakeImaging(factory) ||
      FAILED(factory->CreateEncoder(GUID_ContainerFormatJpeg, nullptr, encoder.Out())) ||
      FAILED(encoder->Initialize(stream, WICBitmapEncoderNoCache)) ||
      FAILED(encoder->CreateNewFrame(frame.Out(), options.Out())))
    return false;
  wchar_t name[] = L"ImageQuality";
  PROPBAG2 quality{};
  quality.pstrName = name;
  VARIANT value{};
  value.vt = VT_R4;
  value.fltVal = kQuality;
  // Without it the quality is the system's own.
  if (options.Get() != nullptr) options->Write(1, &quality, &value);
  const auto width = static_cast<UINT>(picture.size.width);
  const auto height = static_cast<UINT>(picture.size.height);
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  std::string rows = OpaqueRows(picture);
  return SUCCEEDED(frame->Initialize(options.Get())) && SUCCEEDED(frame->SetSize(width, height)) &&
         SUCCEEDED(frame->SetPixelFormat(&format)) && IsEqualGUID(format, GUID_WICPixelFormat24bppBGR) &&
         SUCCEEDED(frame->WritePixels(height, width * 3, static_cast<UINT>(rows.size()),
                                      reinterpret_cast<BYTE*>(rows.data()))) &&
         SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

}  // namespace

std::string JpegOf(const Picture& picture) {
  Com<IStream> stream;
  if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Out())) || !Encode(stream.Get(), picture)) return {};
  STATSTG facts{};
  HGLOBAL memory = nullptr;
  if (FAILED(stream->Stat(&facts, STATFLAG_NONAME)) || FAILED(GetHGlobalFromStream(stream.Get(), &memory)))
    return {};
  const void* bytes = GlobalLock(memory);
  if (bytes == nullptr) return {};
  std::string jpeg(static_cast<const char*>(bytes), static_cast<std::size_t>(facts.cbSize.QuadPart));
  GlobalUnlock(memory);
  return jpeg;
}

}  // namespace jotlets
