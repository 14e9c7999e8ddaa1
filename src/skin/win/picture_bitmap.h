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

  /// Draws the picture into the area from its top-left corner, made smaller to fit when it is larger.
  void Draw(HDC dc, const Rect& area) const;

 private:
  UniqueBitmap bitmap_;
  std::uint8_t* pixels_ = nullptr;  // the bitmap's
  Size size_;
};

}  // namespace jotlets
