#include "editor/text_style.h"

#include <algorithm>
#include <type_traits>

namespace jotlets {
namespace {

// The system's fonts take no longer names.
constexpr std::size_t kLongestFaceName = 31;
// Beyond these a length or an angle means nothing, and its negative must be a number too.
constexpr std::int32_t kMaxPixels = 32767;
constexpr std::size_t kLongestName = 40;
constexpr std::int32_t kMaxPoints10 = 16000;
constexpr std::int32_t kMaxTwips = 32767;
constexpr std::int32_t kPixelsPerInch = 96;
constexpr std::int32_t kPoints10PerInch = 720;

using S = TextStyle;

// Reads one field of a style, or writes it.
struct StyleField {
  void (*read)(S&, TextView);
  void (*write)(const S&, Text&);
};

template <auto Member, std::int32_t Least, std::int32_t Most>
constexpr StyleField Number() {
  return {[](S& style, TextView field) {
            using Value = std::remove_reference_t<decltype(style.*Member)>;
            style.*Member = static_cast<Value>(std::clamp(ParseInt(field), Least, Most));
          },
          [](const S& style, Text& out) { AppendInt(out, std::clamp<int>(style.*Member, Least, Most)); }};
}

template <auto Member>
constexpr StyleField Pixels() {
  return Number<Member, -kMaxPixels, kMaxPixels>();
}

template <auto Member>
constexpr StyleField Byte() {
  return Number<Member, 0, 255>();
}

template <auto Member>
constexpr StyleField ColourPart() {
  return {[](S& style, TextView field) {
            style.colour.*Member = static_cast<std::uint8_t>(std::clamp(ParseInt(field), 0, 255));
          },
          [](const S& style, Text& out) { AppendInt(out, style.colour.*Member); }};
}

template <std::size_t Index>
constexpr StyleField Other() {
  return {[](S& style, TextView field) { style.others[Index] = ParseInt(field); },
          [](const S& style, Text& out) { AppendInt(out, style.others[Index]); }};
}

// Without what would end the field or the line.
Text Writable(TextView name, std::size_t maximum) {
  Text written(name);
  std::erase_if(written, [](char16_t unit) { return unit < u' ' || unit == u'|'; });
  written.resize(std::min(written.size(), maximum));
  return written;
}

// A part of what is said of paragraphs: saying one says them all.
template <auto Member, std::int32_t Least>
constexpr StyleField OfParagraphs() {
  return {[](S& style, TextView field) {
            if (!style.paragraphs) style.paragraphs.emplace();
            (*style.paragraphs).*Member = std::clamp(ParseInt(field), Least, kMaxTwips);
          },
          [](const S& style, Text& out) {
            if (style.paragraphs) AppendInt(out, std::clamp((*style.paragraphs).*Member, Least, kMaxTwips));
          }};
}

constexpr StyleField kStyleFields[] = {
    Pixels<&S::height>(),
    Pixels<&S::width>(),
    Pixels<&S::escapement>(),
    Pixels<&S::orientation>(),
    Number<&S::weight, 0, 1000>(),
    Byte<&S::italic>(),
    Byte<&S::underline>(),
    Byte<&S::strikeOut>(),
    Byte<&S::charSet>(),
    Byte<&S::outPrecision>(),
    Byte<&S::clipPrecision>(),
    Byte<&S::quality>(),
    Byte<&S::pitchAndFamily>(),
    {[](S& style, TextView field) { style.faceName = Writable(field, kLongestFaceName); },
     [](const S& style, Text& out) { out.append(Writable(style.faceName, kLongestFaceName)); }},
    ColourPart<&Colour::r>(),
    ColourPart<&Colour::g>(),
    ColourPart<&Colour::b>(),
    Other<0>(),
    Other<1>(),
    Other<2>(),
};

constexpr StyleField kFurtherFields[] = {
    {[](S& style, TextView field) { style.name = Writable(field, kLongestName); },
     [](const S& style, Text& out) { out.append(Writable(style.name, kLongestName)); }},
    Number<&S::points10, 0, kMaxPoints10>(),
    {[](S& style, TextView field) { style.back = ColourOfNumber(ParseInt(field)); },
     [](const S& style, Text& out) {
       if (style.back) AppendInt(out, ColourNumber(style.back->r, style.back->g, style.back->b));
     }},
    {[](S& style, TextView field) {
       if (!style.paragraphs) style.paragraphs.emplace();
       style.paragraphs->alignment = static_cast<Alignment>(std::clamp(ParseInt(field), 0, 2));
     },
     [](const S& style, Text& out) {
       if (style.paragraphs) AppendInt(out, static_cast<std::int32_t>(style.paragraphs->alignment));
     }},
    OfParagraphs<&ParagraphStyle::indent, 0>(),
    OfParagraphs<&ParagraphStyle::before, 0>(),
    OfParagraphs<&ParagraphStyle::after, 0>(),
};

bool SaysMore(const TextStyle& style) {
  return !style.name.empty() || style.points10 != 0 || style.back || style.paragraphs;
}

}  // namespace

std::int32_t PixelsOfPoints10(std::int32_t points10) {
  return (points10 * kPixelsPerInch + kPoints10PerInch / 2) / kPoints10PerInch;
}

std::int32_t Points10Of(const TextStyle& style) {
  if (style.points10 > 0) return style.points10;
  const std::int32_t pixels = style.height < 0 ? -style.height : style.height;
  return std::max(pixels * kPoints10PerInch / kPixelsPerInch, kPoints10PerInch / kPixelsPerInch);
}

TextStyle ParseTextStyle(TextView text) {
  TextStyle style;
  const auto read = [&](const StyleField& field) {
    const Split split = SplitAtFirst(text, u'|');
    if (!split.head.empty()) field.read(style, split.head);
    text = split.tail;
  };
  std::ranges::for_each(kStyleFields, read);
  std::ranges::for_each(kFurtherFields, read);
  return style;
}

Text ComposeTextStyle(const TextStyle& style) {
  Text text;
  const auto write = [&](const StyleField& field) {
    if (&field != kStyleFields) text.push_back(u'|');
    field.write(style, text);
  };
  std::ranges::for_each(kStyleFields, write);
  if (SaysMore(style)) std::ranges::for_each(kFurtherFields, write);
  return text;
}

Text StyleName(const TextStyle& style) {
  if (!style.IsSet()) return {};
  if (!style.name.empty()) return style.name;
  return style.faceName + u" " + IntText(Points10Of(style) / 10);
}

std::vector<Text> FirstTextStyles(std::span<const Text, 6> names) {
  constexpr Colour kGrey{110, 110, 110};
  constexpr Colour kRed{192, 0, 0};
  constexpr Colour kYellow{254, 255, 68};
  constexpr std::int32_t kBold = 700;
  struct First {
    TextView face;
    std::int32_t points10;
    std::int32_t weight;
    std::uint8_t strikeOut;
    Colour colour;
    std::optional<Colour> back;
  };
  const First firsts[] = {{u"Segoe UI", 140, kBold, 0, {}, {}},   {u"Segoe UI", 80, 400, 0, {}, {}},
                          {u"Consolas", 100, 400, 0, {}, {}},     {u"Segoe UI", 100, 400, 0, {}, kYellow},
                          {u"Segoe UI", 100, kBold, 0, kRed, {}}, {u"Segoe UI", 100, 400, 1, kGrey, {}}};
  std::vector<Text> styles;
  for (const First& first : firsts) {
    TextStyle style;
    style.height = -PixelsOfPoints10(first.points10);
    style.weight = first.weight;
    style.strikeOut = first.strikeOut;
    style.faceName = first.face;
    style.colour = first.colour;
    style.back = first.back;
    style.points10 = first.points10;
    style.name = names[styles.size()];
    styles.push_back(ComposeTextStyle(style));
  }
  return styles;
}

std::array<Text, kTextStyles> StyleNames(const Options& options) {
  std::array<Text, kTextStyles> names;
  for (std::size_t number = 0; number < kTextStyles; ++number)
    names[number] = StyleName(SavedTextStyle(options, number));
  return names;
}

std::size_t FindTextStyle(const Options& options, TextView name) {
  constexpr TextView kFront = u"Style0";
  const std::array<Text, kTextStyles> names = StyleNames(options);
  std::size_t number = kTextStyles;
  if (StartsWithIgnoreCase(name, kFront) && name.size() == kFront.size() + 1)
    number = static_cast<std::size_t>(name.back() - u'0');
  if (number < kTextStyles && !names[number].empty()) return number;
  const auto named = std::ranges::find_if(
      names, [name](const Text& each) { return !each.empty() && EqualIgnoreCase(each, name); });
  return static_cast<std::size_t>(named - names.begin());
}

TextStyle SavedTextStyle(const Options& options, std::size_t number) {
  return number < options.styles.size() ? ParseTextStyle(options.styles[number]) : TextStyle();
}

}  // namespace jotlets
