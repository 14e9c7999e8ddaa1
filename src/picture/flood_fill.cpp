#include "picture/flood_fill.h"

#include <cstdlib>
#include <utility>

namespace jotlets {
namespace {

class Flood {
 public:
  Flood(const Picture& picture, Point start, std::int32_t tolerance)
      : picture_(picture), tolerance_(tolerance) {
    std::memcpy(wanted_, PixelPlace(picture, start.x, start.y), sizeof wanted_);
    flooded_.size = picture.size;
    flooded_.members.resize(picture.pixels.size() / 4);
    starts_.push_back(start);
  }

  bool IsDone() const { return starts_.empty(); }
  PixelSet Flooded() && { return std::move(flooded_); }

  // Floods the row around one of the places, and notes those above and below from which it goes on.
  void Step() {
    const Point start = starts_.back();
    starts_.pop_back();
    if (!IsNew(start.x, start.y)) return;
    std::int32_t left = start.x;
    while (left > 0 && IsNew(left - 1, start.y)) --left;
    std::int32_t right = start.x + 1;
    while (right < picture_.size.width && IsNew(right, start.y)) ++right;
    for (std::int32_t x = left; x < right; ++x) flooded_.members[Place(x, start.y)] = true;
    flooded_.bounds = Enclosing(flooded_.bounds, {left, start.y, right, start.y + 1});
    if (start.y > 0) NoteRuns(left, right, start.y - 1);
    if (start.y + 1 < picture_.size.height) NoteRuns(left, right, start.y + 1);
  }

 private:
  std::size_t Place(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(picture_.size.width) +
           static_cast<std::size_t>(x);
  }

  bool IsNew(std::int32_t x, std::int32_t y) const {
    const std::size_t place = Place(x, y);
    if (flooded_.members[place]) return false;
    const std::uint8_t* pixel = picture_.pixels.data() + place * 4;
    for (std::size_t i = 0; i < 4; ++i)
      if (std::abs(pixel[i] - wanted_[i]) > tolerance_) return false;
    return true;
  }

  void NoteRuns(std::int32_t left, std::int32_t right, std::int32_t y) {
    bool inRun = false;
    for (std::int32_t x = left; x < right; ++x) {
      const bool isNew = IsNew(x, y);
      if (isNew && !inRun) starts_.push_back({x, y});
      inRun = isNew;
    }
  }

  const Picture& picture_;
  std::int32_t tolerance_;
  std::uint8_t wanted_[4] = {};
  PixelSet flooded_;
  std::vector<Point> starts_;
};

}  // namespace

PixelSet FloodedPixels(const Picture& picture, Point start, std::int32_t tolerance,
                       const Cancelled& cancelled) {
  if (!WholeOf(picture.size).Contains(start)) return {};
  Flood flood(picture, start, tolerance);
  for (std::uint32_t step = 0; !flood.IsDone(); ++step) {
    if (step % 1024 == 0 && cancelled && cancelled()) return {};
    flood.Step();
  }
  return std::move(flood).Flooded();
}

void FillPixels(Picture& picture, const PixelSet& pixels, Colour colour) {
  if (pixels.size != picture.size) return;
  const Pixel filled = PremultipliedPixel(colour, 255);
  for (std::int32_t y = pixels.bounds.top; y < pixels.bounds.bottom; ++y)
    for (std::int32_t x = pixels.bounds.left; x < pixels.bounds.right; ++x)
      if (pixels.Has(x, y)) StorePixel(PixelPlace(picture, x, y), filled);
}

}  // namespace jotlets
