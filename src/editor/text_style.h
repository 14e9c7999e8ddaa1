// Text styles: a font and its colour as skins name the one of new notes and the options keep ten of the
// user's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "data/options.h"
#include "editor/edit_facts.h"

namespace jotlets {

/// The styles that commands and keys can apply, `Style00` to `Style09`.
inline constexpr std::size_t kTextStyles = 10;

/// What a style does with whole paragraphs; lengths in twips.
struct ParagraphStyle {
  Alignment alignment = Alignment::kLeft;
  std::int32_t indent = 0;
  std::int32_t before = 0;
  std::int32_t after = 0;
  friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

/// Written as 20 fields with "|" between them, such as
///
///     -12|0|0|0|400|0|0|0|0|3|2|1|34|Tahoma|0|0|0|255|0|0
///
/// The first 14 are a logical font of the system in its own order, down to the face name. Then come red,
/// green and blue of the text: black here. The last three say nothing to this version, which keeps them; read
/// as a text or paper colour they would make every note of the built-in skin red.
///
/// A style with more to say has seven further fields, which readers of twenty leave out: its name, its size
/// in tenths of a point, the colour number behind its text, and alignment (0 left, 1 centre, 2 right), indent
/// and the space before and after paragraphs. An empty one says nothing.
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
  Text name;                  // at most 40 units
  std::int32_t points10 = 0;  // the exact size, tenths of a point; 0: `height` alone tells
  std::optional<Colour> back;
  std::optional<ParagraphStyle> paragraphs;

  /// A style without a font is none: the number has not been given one.
  bool IsSet() const { return !faceName.empty(); }
  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// The height of letters in pixels of a size in tenths of a point, and back, at 96 dots per inch.
std::int32_t PixelsOfPoints10(std::int32_t points10);
std::int32_t Points10Of(const TextStyle& style);

/// Any text as a style: missing fields keep their defaults, further ones are left out, numbers are brought
/// into their range.
TextStyle ParseTextStyle(TextView text);

/// The written form, in one line; what would break it is left out of the face name, and a face name is cut
/// after 31 units.
Text ComposeTextStyle(const TextStyle& style);

/// What a style is called: its name, or else its font and size; empty for one that is not set.
Text StyleName(const TextStyle& style);

/// The styles of a first run, in their written form: heading, small, code, highlight, warning, done, by these
/// names.
std::vector<Text> FirstTextStyles(std::span<const Text, 6> names);

/// What the styles that commands apply are called; empty for those that are not set.
std::array<Text, kTextStyles> StyleNames(const Options& options);

/// The number of a style that is set, by "Style00" to "Style09" or by its name, without regard to case;
/// `kTextStyles` for none.
std::size_t FindTextStyle(const Options& options, TextView name);

/// The style that the options keep under a number; not set when they have none there.
TextStyle SavedTextStyle(const Options& options, std::size_t number);

}  // namespace jotlets
