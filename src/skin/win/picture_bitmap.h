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

  /// Draws what is `seen` of the picture, which is as large as `place`; smoothly, unless it is `quick`ly
  /// wanted, is a very large part, or so much enlarged that its pixels are looked at.
  void Draw(HDC dc, const Rect& place, const Rect& seen, bool quick = false) const;

 private:
  bool Resize(const Rect& part, Size size) const;

  mutable UniqueBitmap resized_;  // as it was drawn last
  mutable Rect resizedPart_;
  mutable Size resizedTo_;
  UniqueBitmap bitmap_;
  std::uint8_t* pixels_ = nullptr;  // the bitmap's
  Size size_;
};

}  // namespace jotlets
