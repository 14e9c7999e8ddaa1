#include "picture/picture_undo.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

constexpr std::int32_t kSquare = 64;

}  // namespace

PixelPatch::PixelPatch(const Picture& picture, const Rect& area) {
  const Rect part = CommonPart(area, WholeOf(picture.size));
  for (std::int32_t y = part.top / kSquare * kSquare; y < part.bottom; y += kSquare)
    for (std::int32_t x = part.left / kSquare * kSquare; x < part.right; x += kSquare)
      squares_.push_back({{x, y}, PartOf(picture, RectAt({x, y}, {kSquare, kSquare}))});
}

void PixelPatch::DropUnchanged(const Picture& picture) {
  std::erase_if(squares_, [&](const Square& square) {
    return PartOf(picture, RectAt(square.at, square.pixels.size)).pixels == square.pixels.pixels;
  });
}

void PixelPatch::Exchange(Picture& picture) {
  for (Square& square : squares_) {
    Picture now = PartOf(picture, RectAt(square.at, square.pixels.size));
    PutPart(picture, square.at, square.pixels);
    square.pixels = std::move(now);
  }
}

std::size_t PixelPatch::Bytes() const {
  std::size_t bytes = 0;
  for (const Square& square : squares_) bytes += sizeof square + square.pixels.pixels.size();
  return bytes;
}

std::size_t PictureStep::Bytes() const {
  std::size_t bytes = sizeof *this;
  for (const DrawnObject& object : objects)
    bytes += sizeof object + object.points.size() * sizeof(StrokePoint) +
             (object.text.size() + object.font.size()) * 2;
  if (const auto* patch = std::get_if<PixelPatch>(&pixels)) bytes += patch->Bytes();
  if (const auto* picture = std::get_if<Picture>(&pixels)) bytes += picture->pixels.size();
  return bytes;
}

void PictureSteps::Add(PictureStep step) {
  steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
  steps_.push_back(std::move(step));
  ++done_;
  KeepBounds();
}

bool PictureSteps::Continue(const Rect& changed) {
  if (!CanUndo() || CanRedo()) return false;
  steps_[done_ - 1].changed = Enclosing(steps_[done_ - 1].changed, changed);
  return true;
}

void PictureSteps::KeepBounds() {
  std::size_t bytes = Bytes();
  while (!steps_.empty() && (steps_.size() > maximum_ || bytes > kMaxBytes)) {
    const bool fromEnd = CanRedo();
    bytes -= (fromEnd ? steps_.back() : steps_.front()).Bytes();
    if (fromEnd) {
      steps_.pop_back();
    } else {
      steps_.pop_front();
      --done_;
    }
  }
}

std::size_t PictureSteps::Bytes() const {
  std::size_t bytes = 0;
  for (const PictureStep& step : steps_) bytes += step.Bytes();
  return bytes;
}

}  // namespace jotlets
