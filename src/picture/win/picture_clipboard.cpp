#include "picture/win/picture_clipboard.h"

#include <utility>
#include <vector>

#include "picture/picture_file.h"
#include "ui/clipboard.h"

namespace jotlets {
namespace {

UINT PngFormat() { return RegisterClipboardFormatW(L"PNG"); }

}  // namespace

bool PutPictureOnClipboard(HWND owner, const std::string& png) {
  if (png.empty()) return false;
  std::vector<ClipboardItem> items;
  if (std::string bitmap = ClipboardOfPng(png); !bitmap.empty()) items.push_back({CF_DIB, std::move(bitmap)});
  items.push_back({PngFormat(), png});
  return PutOnClipboard(owner, items);
}

bool HasClipboardPicture() {
  return IsClipboardFormatAvailable(CF_DIB) != 0 || IsClipboardFormatAvailable(PngFormat()) != 0;
}

std::string ClipboardPicture(HWND owner) {
  const UINT png[] = {PngFormat()};
  const UINT bitmap[] = {CF_DIB};
  // A PNG that cannot be read may stand beside a bitmap that can.
  std::string picture = PngOfPicture(ReadClipboard(owner, png).bytes);
  return picture.empty() ? PngOfPicture(BmpOfClipboard(ReadClipboard(owner, bitmap).bytes)) : picture;
}

}  // namespace jotlets
