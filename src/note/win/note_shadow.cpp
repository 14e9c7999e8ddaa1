#include "note/win/note_shadow.h"

#include <vector>

#include "note/shadow_shape.h"
#include "skin/win/picture_bitmap.h"
#include "ui/handle.h"

namespace jotlets {

void NoteShadow::Prepare(const Rect& note) {
  constexpr BYTE kFull = 255;
  const Rect bounds = ShadowBounds(note);
  if (MakeWindow(bounds)) DrawShape(bounds, kFull);
}

bool NoteShadow::MakeWindow(const Rect& bounds) {
  const WindowStyle style{WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_NOACTIVATE};
  return Handle() != nullptr || Create(className_, L"", bounds, style);
}

void NoteShadow::Follow(HWND note, bool shown, BYTE darkness) {
  if (!shown) {
    if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
    return;
  }
  RECT noteBounds{};
  GetWindowRect(note, &noteBounds);
  const Rect bounds = ShadowBounds(FromRECT(noteBounds));
  if (!MakeWindow(bounds) || !DrawShape(bounds, darkness)) return;
  SetWindowPos(Handle(), note, bounds.left, bounds.top, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// A move needs no new pixels, only another size or darkness does.
bool NoteShadow::DrawShape(const Rect& bounds, BYTE darkness) {
  const Size size{bounds.Width(), bounds.Height()};
  if (size == drawn_ && darkness == drawnDarkness_) return true;
  Picture shape{size, std::vector<std::uint8_t>(static_cast<std::size_t>(size.width) *
                                                static_cast<std::size_t>(size.height) * 4)};
  std::size_t pixel = 3;
  for (std::int32_t y = 0; y < size.height; ++y) {
    for (std::int32_t x = 0; x < size.width; ++x, pixel += 4) shape.pixels[pixel] = ShadowAlpha({x, y}, size);
  }
  PictureBitmap bitmap;
  if (!bitmap.Load(shape)) return false;
  const UniqueDc memory(CreateCompatibleDC(nullptr));
  const Selected selected(memory.get(), bitmap.Handle());
  POINT from{};
  POINT to{bounds.left, bounds.top};
  SIZE extent{size.width, size.height};
  BLENDFUNCTION blend{AC_SRC_OVER, 0, darkness, AC_SRC_ALPHA};
  if (!UpdateLayeredWindow(Handle(), nullptr, &to, &extent, memory.get(), &from, 0, &blend, ULW_ALPHA))
    return false;
  drawn_ = size;
  drawnDarkness_ = darkness;
  return true;
}

}  // namespace jotlets
