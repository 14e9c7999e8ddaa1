// Puts skins on to windows: the pixels come from the rules of drawing, the texts from the system's fonts.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>

#include "skin/skin_drawing.h"
#include "skin/skin_loading.h"
#include "skin/win/picture_bitmap.h"
#include "ui/handle.h"

namespace jotlets {

/// What a window shows in its text area, over its skin.
class SkinInlay {
 public:
  virtual ~SkinInlay() = default;
  virtual void Draw(HDC dc) const = 0;
};

class PictureInlay final : public SkinInlay {
 public:
  PictureInlay(const PictureBitmap& picture, const Rect& place, const Rect& seen)
      : picture_(picture), place_(place), seen_(seen) {}
  void Draw(HDC dc) const override { picture_.Draw(dc, place_, seen_); }

 private:
  const PictureBitmap& picture_;
  Rect place_;
  Rect seen_;
};

/// Shared by all windows: it keeps one buffer, as large as the largest window so far, and the fonts.
class SkinRenderer {
 public:
  /// Draws the window into the buffer and copies `part` of it on to the screen.
  void Paint(HDC screen, const Rect& part, const LoadedSkin& skin, const SkinView& view,
             const SkinWords& words, const SkinInlay* inlay = nullptr);

 private:
  class TextSetter;
  using FontKey = std::tuple<Text, std::int32_t, bool, bool, bool, bool>;

  bool Provide(HDC screen, Size size);
  HFONT FontOf(const SkinElement& element, std::int32_t dpi);

  UniqueDc memory_;
  UniqueBitmap bitmap_;
  std::uint8_t* pixels_ = nullptr;
  Size size_;
  std::map<FontKey, UniqueFont> fonts_;
};

/// The region that the skin gives to a window of this size; nothing for the whole rectangle.
HRGN MakeSkinRegion(const SkinData& skin, Size window);

}  // namespace jotlets
