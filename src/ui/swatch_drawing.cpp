#include "ui/swatch_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace jotlets {
namespace {

std::uint8_t Mixed(double from, double to, double share) {
  return static_cast<std::uint8_t>(std::lround(from + (to - from) * std::clamp(share, 0.0, 1.0)));
}

Colour Mix(Colour from, Colour to, double share) {
  return {Mixed(from.r, to.r, share), Mixed(from.g, to.g, share), Mixed(from.b, to.b, share)};
}

std::uint32_t PixelOf(Colour colour) {
  return static_cast<std::uint32_t>(colour.r) << 16 | static_cast<std::uint32_t>(colour.g) << 8 | colour.b;
}

// Thousandths of what the eye makes of a colour.
std::int32_t Lightness(Colour colour) { return colour.r * 299 + colour.g * 587 + colour.b * 114; }

// Whether black is read better on a colour than white.
bool IsLight(Colour colour) { return Lightness(colour) > 128000; }

// How strong the rim of a colour is: one that hardly differs from the menu is seen by its rim alone.
double RimOf(Colour fill, Colour paper) {
  constexpr std::int32_t kAlike = 12000;
  return std::abs(Lightness(fill) - Lightness(paper)) < kAlike ? 0.6 : 0.18;
}

}  // namespace

SwatchDrawing::SwatchDrawing(const Rect& area, std::int32_t dpi, const Theme& theme)
    : area_(area),
      scale_(dpi / 96.0),
      paper_(theme.MenuPaper()),
      ink_(theme.MenuInk()),
      mark_(theme.MenuMark()),
      pixels_(static_cast<std::size_t>(area.Width()) * static_cast<std::size_t>(area.Height()),
              PixelOf(paper_)) {}

void SwatchDrawing::Blend(std::int32_t x, std::int32_t y, double coverage, Colour colour) {
  if (coverage <= 0 || x < 0 || y < 0 || x >= area_.Width() || y >= area_.Height()) return;
  std::uint32_t& pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(area_.Width()) +
                                 static_cast<std::size_t>(x)];
  const Colour below{static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
                     static_cast<std::uint8_t>(pixel)};
  pixel = PixelOf(Mix(below, colour, coverage));
}

void SwatchDrawing::Disc(Place middle, double radius, Colour colour) {
  Line(middle, middle, 2 * radius, colour);
}

// Each pixel by its distance from the line: half of one is covered half.
void SwatchDrawing::Line(Place from, Place to, double width, Colour colour) {
  const double reach = width / 2 + 1;
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double length = dx * dx + dy * dy;
  const auto first = [reach](double a, double b) {
    return static_cast<std::int32_t>(std::min(a, b) - reach);
  };
  const auto last = [reach](double a, double b) { return static_cast<std::int32_t>(std::max(a, b) + reach); };
  for (std::int32_t y = first(from.y, to.y); y <= last(from.y, to.y); ++y) {
    for (std::int32_t x = first(from.x, to.x); x <= last(from.x, to.x); ++x) {
      const double px = x + 0.5 - from.x;
      const double py = y + 0.5 - from.y;
      const double along = length == 0 ? 0 : std::clamp((px * dx + py * dy) / length, 0.0, 1.0);
      const double distance = std::hypot(px - along * dx, py - along * dy);
      Blend(x, y, width / 2 - distance + 0.5, colour);
    }
  }
}

void SwatchDrawing::Draw(Swatch::Kind kind, Colour colour, std::int32_t middle, const SwatchState& state) {
  constexpr double kRadius = 11;
  constexpr double kFaint = 0.35;
  const Place at{static_cast<double>(middle), area_.Height() / 2.0};
  const auto off = [&](double x, double y) { return Place{at.x + x * scale_, at.y + y * scale_}; };
  const Colour ring = state.marked ? mark_ : Mix(paper_, ink_, 0.5);
  if (state.marked || state.current) {
    Disc(at, (kRadius + 3.5) * scale_, ring);
    Disc(at, (kRadius + (state.marked ? 1.5 : 2)) * scale_, paper_);
  }
  const bool isColour = kind == Swatch::Kind::kColour;
  const Colour fill = !isColour ? paper_ : state.grey ? Mix(paper_, colour, kFaint) : colour;
  const Colour ink = state.grey ? Mix(paper_, ink_, kFaint) : ink_;
  Disc(at, kRadius * scale_, isColour ? Mix(fill, ink_, RimOf(fill, paper_)) : Mix(paper_, ink, 0.6));
  Disc(at, (kRadius - 1) * scale_, fill);
  const double stroke = 1.6 * scale_;
  if (kind == Swatch::Kind::kOthers)
    for (const double x : {-4.0, 0.0, 4.0}) Disc(off(x, 0), 1.3 * scale_, ink);
  if (kind == Swatch::Kind::kNothing) {
    Line(off(-4, -4), off(4, 4), stroke, ink);
    Line(off(-4, 4), off(4, -4), stroke, ink);
  }
  if (!state.current || !isColour) return;
  const Colour check = IsLight(fill) ? Colour{0x1F, 0x1F, 0x1F} : Colour{0xF2, 0xF2, 0xF2};
  Line(off(-4, 0), off(-1, 3), stroke, check);
  Line(off(-1, 3), off(4, -3), stroke, check);
}

void SwatchDrawing::PutOn(HDC dc) const {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = area_.Width();
  info.bmiHeader.biHeight = -area_.Height();
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  SetDIBitsToDevice(dc, area_.left, area_.top, static_cast<DWORD>(area_.Width()),
                    static_cast<DWORD>(area_.Height()), 0, 0, 0, static_cast<UINT>(area_.Height()),
                    pixels_.data(), &info, DIB_RGB_COLORS);
}

}  // namespace jotlets
