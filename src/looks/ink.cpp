#include "looks/ink.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace jotlets {
namespace {

// A little more than is asked of titles: the window's opacity and the screen take from it.
constexpr double kTitleAim = kTitleContrast + 0.2;
constexpr Colour kBlack{0, 0, 0};
constexpr Colour kWhite{255, 255, 255};
constexpr Colour kDarkInk{31, 31, 31};
// White would be taken for a colour that somebody chose.
constexpr Colour kBrightInk{255, 255, 254};

double LinearOf(std::size_t channel) {
  const double part = static_cast<double>(channel) / 255;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

// Powers for every pixel's worth of questions would be felt.
const std::array<double, 256>& LinearChannels() {
  static const std::array<double, 256> channels = [] {
    std::array<double, 256> made{};
    for (std::size_t at = 0; at < made.size(); ++at) made[at] = LinearOf(at);
    return made;
  }();
  return channels;
}

std::uint8_t Towards(std::uint8_t from, std::uint8_t to, std::int32_t percent) {
  return static_cast<std::uint8_t>(from + (to - from) * percent / 100);
}

// A hue with its saturation, of which lighter and darker shades are made.
class Hue {
 public:
  explicit Hue(Colour colour)
      : high_(std::max({colour.r, colour.g, colour.b})), low_(std::min({colour.r, colour.g, colour.b})) {
    for (const std::uint8_t channel : {colour.r, colour.g, colour.b})
      parts_[count_++] = high_ == low_ ? 0 : 2.0 * (channel - low_) / (high_ - low_) - 1;
    const double room = 255 - std::abs(high_ + low_ - 255.0);
    saturation_ = room <= 0 ? 0 : (high_ - low_) / room;
  }

  double Lightness() const { return (high_ + low_) / 2.0 / 255; }

  /// The shade of this lightness, 0 for black to 1 for white.
  Colour At(double lightness) const {
    const double reach = saturation_ * (1 - std::abs(2 * lightness - 1)) / 2;
    const auto channel = [&](double part) {
      return static_cast<std::uint8_t>(std::lround(255 * std::clamp(lightness + part * reach, 0.0, 1.0)));
    };
    return {channel(parts_[0]), channel(parts_[1]), channel(parts_[2])};
  }

 private:
  int high_;
  int low_;
  std::array<double, 3> parts_{};  // -1 for the least of the channels to 1 for the greatest
  std::size_t count_ = 0;
  double saturation_ = 0;
};

}  // namespace

Colour Mixed(Colour from, Colour to, std::int32_t percent) {
  return {Towards(from.r, to.r, percent), Towards(from.g, to.g, percent), Towards(from.b, to.b, percent)};
}

double Luminance(Colour colour) {
  const std::array<double, 256>& linear = LinearChannels();
  return 0.2126 * linear[colour.r] + 0.7152 * linear[colour.g] + 0.0722 * linear[colour.b];
}

double Contrast(Colour a, Colour b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

bool IsDarkPaper(Colour paper) { return Contrast(paper, kWhite) > Contrast(paper, kBlack); }

Colour InkOn(Colour paper) {
  const bool dark = IsDarkPaper(paper);
  const Colour ink = dark ? kLightInk : kDarkInk;
  if (Contrast(ink, paper) >= kTextContrast) return ink;
  return dark ? kBrightInk : kBlack;
}

Colour Shaded(Colour paper, std::int32_t percent) {
  return Mixed(paper, IsDarkPaper(paper) ? kWhite : kBlack, std::clamp(percent, 0, 100));
}

namespace {

// `wanted` when it has this contrast to its ground; else a darker (on a dark ground a lighter) shade of its
// hue that has it.
Colour Legible(Colour wanted, Colour ground, double contrast) {
  if (Contrast(wanted, ground) >= contrast) return wanted;
  constexpr int kSteps = 10;  // finer than a channel can tell
  const Hue hue(wanted);
  double legible = IsDarkPaper(ground) ? 1 : 0;
  double illegible = hue.Lightness();
  for (int step = 0; step < kSteps; ++step) {
    const double tried = (legible + illegible) / 2;
    (Contrast(hue.At(tried), ground) >= contrast ? legible : illegible) = tried;
  }
  return hue.At(legible);
}

}  // namespace

Colour TitleInk(Colour bar) { return Legible(bar, bar, kTitleAim); }

Colour LegibleOn(Colour paper, Colour own) { return Legible(own, paper, kTextContrast); }

Colour QuietInk(Colour paper) {
  constexpr std::int32_t kQuiet = 34;
  return Legible(Mixed(InkOn(paper), paper, kQuiet), paper, kTextContrast);
}

Colour AccentOn(Colour paper) {
  constexpr double kLineContrast = 3;
  constexpr Colour kOnLight{0, 103, 192};
  constexpr Colour kOnDark{76, 194, 255};
  return Legible(IsDarkPaper(paper) ? kOnDark : kOnLight, paper, kLineContrast);
}

Colour AlarmOn(Colour paper) {
  constexpr double kLineContrast = 3;
  constexpr Colour kOnLight{194, 65, 12};
  constexpr Colour kOnDark{255, 169, 77};
  return Legible(IsDarkPaper(paper) ? kOnDark : kOnLight, paper, kLineContrast);
}

}  // namespace jotlets
