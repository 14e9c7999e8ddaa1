// Small pictures for the tests of the picture room.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "picture/drawn_object.h"

namespace jotlets {

/// Pixels of every opacity; colours do not exceed their alpha.
inline Picture RandomPicture(std::mt19937& random, Size size) {
  StraightPicture picture{size, BlankPicture(size).pixels};
  for (std::uint8_t& byte : picture.pixels) byte = static_cast<std::uint8_t>(random());
  for (std::size_t at = 3; at < picture.pixels.size(); at += 4)
    if (random() % 3 == 0) picture.pixels[at] = 255;
  return Premultiplied(std::move(picture));
}

inline Picture RandomPicture(std::mt19937& random, int mostSide = 40) {
  const auto side = [&] {
    return random() % 4 == 0 ? 1 : static_cast<int>(random() % static_cast<unsigned>(mostSide)) + 1;
  };
  const int width = side();
  return RandomPicture(random, {width, side()});
}

/// A rectangle that may be empty, the whole, or reach beyond the picture.
inline Rect RandomArea(std::mt19937& random, Size size) {
  if (random() % 4 == 0) return WholeOf(size);
  const auto at = [&](int side) { return static_cast<int>(random() % static_cast<unsigned>(side + 8)) - 4; };
  const Point corner{at(size.width), at(size.height)};
  return RectAt(corner, {static_cast<int>(random() % 20), static_cast<int>(random() % 20)});
}

inline Picture WhitePicture(Size size) {
  Picture picture = BlankPicture(size);
  std::fill(picture.pixels.begin(), picture.pixels.end(), std::uint8_t{255});
  return picture;
}

/// Letters that are solid blocks, half as wide as high, the first of them lighter than the others.
class BlockLetters final : public LetterPainter {
 public:
  LetterMask Paint(const LetterLook& look) const override {
    const auto height = static_cast<std::int32_t>(look.size);
    LetterMask mask{{std::max(height / 2, 1) * static_cast<std::int32_t>(look.text.size()), height}, {}};
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < mask.size.width; ++x)
        mask.coverage.push_back(x < std::max(height / 2, 1) ? 200 : 255);
    return mask;
  }
};

inline DrawnObject ObjectOf(ObjectKind kind, std::initializer_list<Spot> places, Colour colour = {},
                            double width = 3) {
  DrawnObject object;
  object.kind = kind;
  for (const Spot& place : places) object.points.push_back({place});
  object.colour = colour;
  object.width = width;
  return object;
}

/// Somewhere in the picture, or beside it.
inline DrawnObject RandomObject(std::mt19937& random, Size size) {
  const auto number = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
  DrawnObject object;
  object.kind = static_cast<ObjectKind>(random() % kObjectKinds);
  const int points = IsStroke(object.kind) ? 1 + number(6) : 2;
  for (int i = 0; i < points; ++i)
    object.points.push_back(
        {{number(size.width + 20) - 10 + number(4) / 4.0, number(size.height + 20) - 10 + number(4) / 4.0},
         (1 + number(4)) / 4.0});
  object.colour = {static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random()), 0};
  object.width = 1 + number(9);
  object.filled = number(2) == 0;
  object.text = Text(static_cast<std::size_t>(number(4)), u'x');
  object.textSize = 4 + number(12);
  object.number = number(12);
  return object;
}

inline Pixel PixelIn(const Picture& picture, int x, int y) { return LoadPixel(PixelPlace(picture, x, y)); }

inline void ExpectSound(const Picture& picture) {
  ASSERT_EQ(picture.pixels.size(),
            static_cast<std::size_t>(picture.size.width) * static_cast<std::size_t>(picture.size.height) * 4);
  for (std::size_t at = 0; at < picture.pixels.size(); ++at)
    ASSERT_LE(picture.pixels[at], picture.pixels[at | 3]);
}

}  // namespace jotlets
