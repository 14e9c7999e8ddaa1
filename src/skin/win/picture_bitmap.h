// A decoded picture as a bitmap that can be drawn.
#pragma once

#include <windows.h>

#include "picture/picture.h"
#include "ui/handle.h"

namespace jotlets {

class PictureBitmap {
 public:
  /// Takes the pixels over into a bitmap; false when the system could not make one.
  bool Load(const Picture& picture);
  /// Puts other pixels in the place of some.
  void Put(Point at, const Picture& part);
  Size PixelSize() const { return size_; }
  HBITMAP Handle() const { return bitmap_.get(); }
  bool IsLoaded() const { return bitmap_ != nullptr; }

  /// Draws the picture as large as the area; smoothly, unless it is `quick`ly wanted or very large.
  void Draw(HDC dc, const Rect& area, bool quick = false) const;

 private:
  bool Resize(Size size) const;

  mutable UniqueBitmap resized_;  // as it was drawn last
  mutable Size resizedTo_;
  UniqueBitmap bitmap_;
  std::uint8_t* pixels_ = nullptr;  // the bitmap's
  Size size_;
};

}  // namespace jotlets
