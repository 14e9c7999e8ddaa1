#include "picture/win/picture_reader.h"

#include <optional>

#include "picture/picture.h"
#include "picture/picture_file.h"
#include "picture/picture_header.h"
#include "picture/win/imaging.h"

namespace jotlets {
namespace {

// The first picture of the file, as the program holds pictures.
std::optional<Picture> DecodeBySystem(std::string_view bytes) {
  Com<IWICImagingFactory> factory;
  if (!MakeImaging(factory)) return std::nullopt;
  Com<IWICStream> stream;
  if (FAILED(factory->CreateStream(stream.Out()))) return std::nullopt;
  // It is only read from.
  auto* memory = reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data()));
  if (FAILED(stream->InitializeFromMemory(memory, static_cast<DWORD>(bytes.size())))) return std::nullopt;
  Com<IWICBitmapDecoder> decoder;
  Com<IWICBitmapFrameDecode> frame;
  Com<IWICFormatConverter> converter;
  if (FAILED(factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                              decoder.Out())) ||
      FAILED(decoder->GetFrame(0, frame.Out())) || FAILED(factory->CreateFormatConverter(converter.Out())) ||
      FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                   nullptr, 0, WICBitmapPaletteTypeCustom)))
    return std::nullopt;
  UINT width = 0;
  UINT height = 0;
  if (FAILED(converter->GetSize(&width, &height)) || width > kMaxPicturePixels || height > kMaxPicturePixels)
    return std::nullopt;
  // What the decoder says counts, whatever the first bytes of the file have said.
  Picture picture = BlankPicture({static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)});
  if (picture.pixels.empty() ||
      FAILED(converter->CopyPixels(nullptr, width * 4, static_cast<UINT>(picture.pixels.size()),
                                   picture.pixels.data())))
    return std::nullopt;
  return picture;
}

}  // namespace

std::string PngOfAnyPicture(std::string_view bytes) {
  std::string png = PngOfPicture(bytes);
  if (!png.empty()) return png;
  const auto header = ReadPictureHeader(bytes);
  if (!header || !IsPictureSize(header->size)) return {};
  const auto picture = DecodeBySystem(bytes);
  return picture ? EncodePng(Oriented(*picture, header->orientation)) : std::string();
}

}  // namespace jotlets
