// How far what a window shows under the mouse alone has come: it appears softly, and goes after a rest.
#pragma once

#include <algorithm>
#include <cstdint>

#include "looks/motion.h"

namespace jotlets {

/// Times are milliseconds of one clock that only goes on.
class HoverFade {
 public:
  /// Where nothing moves all of it comes and goes at once.
  void Set(bool over, bool moves, std::int64_t now) {
    if (over != over_) {
      from_ = Strength(now);
      since_ = now;
      over_ = over;
    }
    moves_ = moves;
  }
  /// 0 for nothing to 255 for all.
  std::uint8_t Strength(std::int64_t now) const {
    if (!moves_) return over_ ? kAll : 0;
    const std::int64_t gone = now - since_ - (over_ ? 0 : kHoverRest);
    const std::int64_t way = std::max<std::int64_t>(gone, 0) * kAll / (over_ ? kHoverIn : kHoverOut);
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(over_ ? from_ + way : from_ - way, 0, kAll));
  }
  bool IsShown(std::int64_t now) const { return over_ || Strength(now) > 0; }
  bool IsMoving(std::int64_t now) const { return Strength(now) != (over_ ? kAll : 0); }

 private:
  static constexpr std::uint8_t kAll = 255;

  bool over_ = false;
  bool moves_ = false;
  std::int64_t since_ = 0;
  std::int64_t from_ = 0;  // how far it was then
};

}  // namespace jotlets
