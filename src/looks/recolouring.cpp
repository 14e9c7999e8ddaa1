#include "looks/recolouring.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace jotlets {
namespace {

constexpr std::size_t kBytes = 4;

// By their places in a pixel.
using Channels = std::array<double, 3>;

Channels ChannelsOf(Colour colour) { return {double(colour.b), double(colour.g), double(colour.r)}; }

// How much ink a pixel has in each channel, which edges that are smoothed for flat screens have unlike;
// nothing for a pixel that is no mixture of the two.
std::optional<Channels> InkOf(const std::uint8_t* pixel, const Channels& paper, const Channels& ink) {
  constexpr double kTold = 8;  // channels nearer than this tell nothing
  constexpr double kSlack = 0.04;
  Channels parts{};
  double sum = 0;
  int telling = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (std::abs(ink[i] - paper[i]) < kTold) continue;
    parts[i] = (pixel[i] - paper[i]) / (ink[i] - paper[i]);
    if (parts[i] < -kSlack || parts[i] > 1 + kSlack) return std::nullopt;
    sum += parts[i];
    ++telling;
  }
  if (telling == 0 || sum == 0) return std::nullopt;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (std::abs(ink[i] - paper[i]) >= kTold) continue;
    if (std::abs(pixel[i] - paper[i]) > kTold) return std::nullopt;
    parts[i] = sum / telling;
  }
  return parts;
}

bool IsColour(const std::uint8_t* pixel, Colour colour) {
  return pixel[0] == colour.b && pixel[1] == colour.g && pixel[2] == colour.r;
}

}  // namespace

bool Recolour(std::span<std::uint8_t> pixels, Colour paper, Colour from, Colour to) {
  bool found = false;
  for (std::size_t at = 0; at + kBytes <= pixels.size() && !found; at += kBytes)
    found = IsColour(&pixels[at], from);
  if (!found) return false;
  const Channels ground = ChannelsOf(paper);
  const Channels ink = ChannelsOf(from);
  const Channels wanted = ChannelsOf(to);
  for (std::size_t at = 0; at + kBytes <= pixels.size(); at += kBytes) {
    std::uint8_t* const pixel = &pixels[at];
    if (IsColour(pixel, paper)) continue;
    const std::optional<Channels> parts = InkOf(pixel, ground, ink);
    if (!parts) continue;
    for (std::size_t i = 0; i < parts->size(); ++i)
      pixel[i] = static_cast<std::uint8_t>(
          std::clamp(std::lround(ground[i] + (*parts)[i] * (wanted[i] - ground[i])), 0l, 255l));
  }
  return true;
}

}  // namespace jotlets
