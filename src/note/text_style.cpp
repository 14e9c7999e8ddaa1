#include "note/text_style.h"

#include <algorithm>
#include <type_traits>

namespace jotlets {
namespace {

// The system's fonts take no longer names.
constexpr std::size_t kLongestFaceName = 31;
// Beyond these a length or an angle means nothing, and its negative must be a number too.
constexpr std::int32_t kMaxPixels = 32767;

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
Text WritableFaceName(TextView name) {
  Text face(name);
  std::erase_if(face, [](char16_t unit) { return unit < u' ' || unit == u'|'; });
  face.resize(std::min(face.size(), kLongestFaceName));
  return face;
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
    {[](S& style, TextView field) { style.faceName = WritableFaceName(field); },
     [](const S& style, Text& out) { out.append(WritableFaceName(style.faceName)); }},
    ColourPart<&Colour::r>(),
    ColourPart<&Colour::g>(),
    ColourPart<&Colour::b>(),
    Other<0>(),
    Other<1>(),
    Other<2>(),
};

}  // namespace

TextStyle ParseTextStyle(TextView text) {
  TextStyle style;
  for (const StyleField& field : kStyleFields) {
    const Split split = SplitAtFirst(text, u'|');
    if (!split.head.empty()) field.read(style, split.head);
    text = split.tail;
  }
  return style;
}

Text ComposeTextStyle(const TextStyle& style) {
  Text text;
  for (const StyleField& field : kStyleFields) {
    if (&field != kStyleFields) text.push_back(u'|');
    field.write(style, text);
  }
  return text;
}

TextStyle SavedTextStyle(const Options& options, std::size_t number) {
  return number < options.styles.size() ? ParseTextStyle(options.styles[number]) : TextStyle();
}

}  // namespace jotlets
