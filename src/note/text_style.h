// Text styles: a font and its colour as skins name the one of new notes and the options keep ten of the
// user's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/geometry.h"
#include "base/text.h"
#include "data/options.h"

namespace jotlets {

/// The styles that commands and keys can apply, `Style00` to `Style09`.
inline constexpr std::size_t kTextStyles = 10;

/// Written as 20 fields with "|" between them, such as
///
///     -12|0|0|0|400|0|0|0|0|3|2|1|34|Tahoma|0|0|0|255|0|0
///
/// The first 14 are a logical font of the system in its own order, down to the face name. Then come red,
/// green and blue of the text: black here. The last three say nothing to this version, which keeps them; read
/// as a text or paper colour they would make every note of the built-in skin red.
struct TextStyle {
  std::int32_t height = 0;  // pixels; below 0 of the letters, above 0 of the line, 0 a default
  std::int32_t width = 0;
  std::int32_t escapement = 0;   // tenths of a degree
  std::int32_t orientation = 0;  // tenths of a degree
  std::int32_t weight = 400;     // 0 to 1000; 700 is bold
  std::uint8_t italic = 0;
  std::uint8_t underline = 0;
  std::uint8_t strikeOut = 0;
  std::uint8_t charSet = 0;
  std::uint8_t outPrecision = 0;
  std::uint8_t clipPrecision = 0;
  std::uint8_t quality = 0;
  std::uint8_t pitchAndFamily = 0;
  Text faceName;  // at most 31 units
  Colour colour;
  std::array<std::int32_t, 3> others = {0, 0, 0};

  /// A style without a font is none: the number has not been given one.
  bool IsSet() const { return !faceName.empty(); }
  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// Any text as a style: missing fields keep their defaults, further ones are left out, numbers are brought
/// into their range.
TextStyle ParseTextStyle(TextView text);

/// The written form, in one line; what would break it is left out of the face name, and a face name is cut
/// after 31 units.
Text ComposeTextStyle(const TextStyle& style);

/// The style that the options keep under a number; not set when they have none there.
TextStyle SavedTextStyle(const Options& options, std::size_t number);

}  // namespace jotlets
