// A skin as its file gives it: places are unresolved, since windows of every size share it. Knows neither
// pictures nor windows.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "action/actions.h"
#include "base/geometry.h"
#include "base/text.h"
#include "skin/coordinate.h"

namespace jotlets {

enum class ElementKind : std::uint8_t { kButton, kHstrip, kVstrip, kText, kIndicator, kTilearea };

/// Window sizes, in pixels, at which something is drawn; without bounds as long as none is given.
struct DrawBounds {
  std::int32_t widthMinimum = 0;
  std::int32_t widthMaximum = std::numeric_limits<std::int32_t>::max();
  std::int32_t heightMinimum = 0;
  std::int32_t heightMaximum = std::numeric_limits<std::int32_t>::max();

  bool Hold(Size window) const {
    return window.width >= widthMinimum && window.width <= widthMaximum && window.height >= heightMinimum &&
           window.height <= heightMaximum;
  }
};

/// A picture's top-left corner in the sheet, in pixels; it may lie outside.
struct SheetPlace {
  std::optional<Point> picture;
  std::optional<Point> mask;  // of the same size: its brightness is the picture's opacity
};

enum class TextAlignment : std::uint8_t { kLeft, kRight, kMiddle };

struct TextFormat {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool transparent = false;  // no background
  bool noAa = false;         // no anti-aliasing
};

/// Inks that are made from what an element lies on, so that they can be read on every paper.
enum class SkinTint : std::uint8_t { kTitle, kInk, kQuiet, kAccent, kAlarm, kPen };

/// Values of `stripType` and `setCase` with a meaning of their own; others are kept as they are.
inline constexpr std::int32_t kStripFromPicture = 0;
inline constexpr std::int32_t kCaseAsWritten = 0;

/// One drawn element. Which members count depends on its kind; lengths are pixels from 0 to `kLongestLength`.
struct SkinElement {
  ElementKind kind = ElementKind::kButton;
  Text name;  // for messages

  CoordinatePoint place;
  std::optional<CoordinatePoint> topLeft;  // with `bottomRight`, instead of `place` and `extent`
  std::optional<CoordinatePoint> bottomRight;
  std::optional<CoordinatePoint> extent;  // see ResolvePlaceAndExtent
  std::optional<Size> size;
  DrawBounds drawBounds;

  std::int32_t width = 0;   // of an hstrip's picture
  std::int32_t height = 0;  // of a vstrip's picture
  SheetPlace source;
  SheetPlace sourceOff;
  SheetPlace sourceRollover;
  SheetPlace sourceChosen;            // of a button: the ground, in the accent, while its tool is in hand
  std::optional<std::uint8_t> alpha;  // constant opacity

  ActionCode action = kActionNone;
  Text type;  // of an indicator: a state; of a button without an action: what it does in the editor
  std::int32_t stripType = kStripFromPicture;
  std::int32_t tileType = 0;
  std::optional<Colour> startColour;
  std::optional<Colour> endColour;
  std::optional<Colour> solidColour;
  std::optional<std::int32_t> shade;  // of the paper, in percent; goes before every other colour
  std::optional<SkinTint> tint;       // goes before the colours that the file gives
  std::optional<std::int32_t> fill;   // of a button: its ground, so many percent of the way to its title ink
  std::int32_t corner = 0;            // the radius of that ground

  Text font;
  std::int32_t point = 0;  // size of the font, 0: none given
  Colour colour;           // of the text
  Text text;               // with placeholders
  Text pill;               // words in a pill of their own behind the text
  TextAlignment alignment = TextAlignment::kLeft;
  std::int32_t setCase = kCaseAsWritten;
  TextFormat format;
  bool giveWay = false;   // a text ends before the first glyph that lies on it
  std::int32_t pack = 0;  // how far an indicator that shows nothing lets those behind it move to the right

  Text condition;  // empty: none
  std::int32_t conditionValue = 0;
  // Shown only while the state is as given; absent: in both.
  std::optional<bool> normal;
  std::optional<bool> rolled;
  std::optional<bool> focus;
  std::optional<bool> mouseOver;
};

struct SkinData {
  Text skinName;
  Text notes;
  Text authorName;
  Text authorEmail;
  Text authorUrl;
  std::int32_t version = 0;

  // Widths of the frame around the text area.
  std::int32_t top = 0;
  std::int32_t bottom = 0;
  std::int32_t left = 0;
  std::int32_t right = 0;
  std::int32_t rolledHeight = 0;  // 0: no rolled form
  /// The frame around a picture below the title bar; nothing: that of texts.
  std::optional<std::int32_t> pictureFrame;
  std::int32_t minimumWidth = 0;
  std::int32_t minimumHeight = 0;
  std::int32_t minimumThumbTrackHeight = 0;

  std::int32_t dpi = kUsualDpi;       // for which lengths and places are given
  Text bitmap;                        // file name of the sheet
  std::optional<Colour> transparent;  // colour key
  /// One number: the radius of the window's corners. An even count from six up: x and y of a polygon's
  /// points. Anything else shapes nothing.
  std::vector<Coordinate> region;

  std::optional<CoordinateCorners> titlebar;
  bool titleTooltip = false;
  Text tooltipFontName;
  std::int32_t tooltipFontSize = 0;

  bool useScrollbar = false;
  bool darkPapers = false;  // the papers of the program turn dark with its windows
  std::optional<CoordinateTrack> scrollbar;
  DrawBounds scrollbarDrawBounds;

  std::int32_t formatBar = 0;  // height of the bar at the foot with which texts are formatted; 0: none
  DrawBounds formatBarDrawBounds;
  std::int32_t tagLine = 0;  // height of the line at the foot that tells what a note waits for; 0: none

  std::int32_t alarmFoot = 0;  // height of the foot of a note that sounds; 0: none
  DrawBounds alarmFootDrawBounds;

  bool drawOnRtfBg = false;
  bool isStack = false;        // `mode`
  std::int32_t rowHeight = 0;  // of a stack's list; 0: as its letters need it
  std::int32_t sheets = 0;     // of a stack: how many of its notes are seen below it, as edges
  Text defaultStyle;
  Text stackFileName;

  std::vector<SkinElement> elements;  // in drawing order
};

/// No length of a skin is longer, and no window.
inline constexpr std::int32_t kLongestLength = 32767;

}  // namespace jotlets
