#include "skin/skin_text.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr std::size_t kMaxRegionNumbers = 2000;
constexpr std::int32_t kMaxSheets = 2;

// The first `Count` of the parts between commas; nothing when there are fewer.
template <std::size_t Count>
std::optional<std::array<TextView, Count>> Parts(TextView value) {
  std::array<TextView, Count> parts;
  for (std::size_t i = 0; i < Count; ++i) {
    const std::size_t comma = value.find(u',');
    if (comma == TextView::npos && i + 1 < Count) return std::nullopt;
    parts[i] = value.substr(0, comma);
    value.remove_prefix(comma == TextView::npos ? value.size() : comma + 1);
  }
  return parts;
}

std::int32_t Length(TextView value) { return std::clamp(ParseInt(value), std::int32_t{0}, kLongestLength); }

// A negative upper bound, as the format writes "none" elsewhere, could only hide the element for ever.
std::int32_t UpperBound(TextView value) {
  const std::int32_t bound = ParseInt(value);
  return bound < 0 ? std::numeric_limits<std::int32_t>::max() : bound;
}

bool IsOn(TextView value) { return ParseInt(value) == 1; }

bool IsWord(TextView value, TextView word) { return EqualIgnoreCase(TrimBlanks(value), word); }

std::uint8_t ColourByte(TextView value) {
  return static_cast<std::uint8_t>(std::clamp(ParseInt(value), std::int32_t{0}, std::int32_t{255}));
}

// The readers below leave their field alone when the value has too few parts.

template <typename Field>
void ReadColour(Field& field, TextView value) {
  if (const auto parts = Parts<3>(value)) {
    field = Colour{ColourByte((*parts)[0]), ColourByte((*parts)[1]), ColourByte((*parts)[2])};
  }
}

template <typename Field>
void ReadPoint(Field& field, TextView value) {
  if (const auto parts = Parts<2>(value)) {
    field = CoordinatePoint{ParseCoordinate((*parts)[0]), ParseCoordinate((*parts)[1])};
  }
}

void ReadCorners(std::optional<CoordinateCorners>& field, TextView value) {
  if (const auto parts = Parts<4>(value)) {
    field = {{ParseCoordinate((*parts)[0]), ParseCoordinate((*parts)[1])},
             {ParseCoordinate((*parts)[2]), ParseCoordinate((*parts)[3])}};
  }
}

void ReadTrack(std::optional<CoordinateTrack>& field, TextView value) {
  if (const auto parts = Parts<4>(value)) {
    field = {ParseCoordinate((*parts)[0]), ParseCoordinate((*parts)[1]), ParseCoordinate((*parts)[2]),
             Length((*parts)[3])};
  }
}

void ReadSize(std::optional<Size>& field, TextView value) {
  const std::size_t by = value.find_first_of(u"xX");
  if (by != TextView::npos) field = {Length(value.substr(0, by)), Length(value.substr(by + 1))};
}

void ReadSheetPoint(std::optional<Point>& field, TextView value) {
  const auto parts = Parts<2>(value);
  if (!parts) return;
  const Point point{ParseInt((*parts)[0]), ParseInt((*parts)[1])};
  field = point == Point{-1, -1} ? std::nullopt : std::optional(point);
}

void ReadAlpha(std::optional<std::uint8_t>& field, TextView value) {
  field = ParseInt(value) < 0 ? std::nullopt : std::optional(ColourByte(value));
}

void ReadRegion(std::vector<Coordinate>& field, TextView value) {
  field.clear();
  while (!value.empty() && field.size() < kMaxRegionNumbers) {
    const Split split = SplitAtFirst(value, u',');
    field.push_back(ParseCoordinate(split.head));
    value = split.tail;
  }
}

void ReadFormat(TextFormat& field, TextView value) {
  field = {};
  while (!value.empty()) {
    const Split split = SplitAtFirst(value, u',');
    field.bold |= IsWord(split.head, u"bold");
    field.italic |= IsWord(split.head, u"italic");
    field.underline |= IsWord(split.head, u"underline");
    field.transparent |= IsWord(split.head, u"transparent");
    field.noAa |= IsWord(split.head, u"no_aa");
    value = split.tail;
  }
}

TextAlignment Alignment(TextView value) {
  if (IsWord(value, u"right")) return TextAlignment::kRight;
  return IsWord(value, u"middle") ? TextAlignment::kMiddle : TextAlignment::kLeft;
}

void ReadTint(std::optional<SkinTint>& field, TextView value) {
  field.reset();
  if (IsWord(value, u"title")) field = SkinTint::kTitle;
  if (IsWord(value, u"ink")) field = SkinTint::kInk;
  if (IsWord(value, u"quiet")) field = SkinTint::kQuiet;
  if (IsWord(value, u"accent")) field = SkinTint::kAccent;
  if (IsWord(value, u"alarm")) field = SkinTint::kAlarm;
  if (IsWord(value, u"pen")) field = SkinTint::kPen;
}

template <typename Owner>
struct KeyRow {
  TextView key;
  void (*read)(Owner&, TextView value);
};

using S = SkinData;
using E = SkinElement;
using V = TextView;

constexpr KeyRow<SkinData> kSkinKeys[] = {
    {u"skinname", [](S& s, V v) { s.skinName = v; }},
    {u"notes", [](S& s, V v) { s.notes = v; }},
    {u"authorname", [](S& s, V v) { s.authorName = v; }},
    {u"authoremail", [](S& s, V v) { s.authorEmail = v; }},
    {u"authorurl", [](S& s, V v) { s.authorUrl = v; }},
    {u"version", [](S& s, V v) { s.version = ParseInt(v); }},
    {u"top", [](S& s, V v) { s.top = Length(v); }},
    {u"bottom", [](S& s, V v) { s.bottom = Length(v); }},
    {u"left", [](S& s, V v) { s.left = Length(v); }},
    {u"right", [](S& s, V v) { s.right = Length(v); }},
    {u"rolledheight", [](S& s, V v) { s.rolledHeight = Length(v); }},
    {u"pictureframe", [](S& s, V v) { s.pictureFrame = Length(v); }},
    {u"bitmap", [](S& s, V v) { s.bitmap = TrimBlanks(v); }},
    {u"transparent", [](S& s, V v) { ReadColour(s.transparent, v); }},
    {u"region", [](S& s, V v) { ReadRegion(s.region, v); }},
    {u"minimumwidth", [](S& s, V v) { s.minimumWidth = Length(v); }},
    {u"minimumheight", [](S& s, V v) { s.minimumHeight = Length(v); }},
    {u"minimumthumbtrackheight", [](S& s, V v) { s.minimumThumbTrackHeight = Length(v); }},
    {u"titlebar", [](S& s, V v) { ReadCorners(s.titlebar, v); }},
    {u"titletooltip", [](S& s, V v) { s.titleTooltip = IsOn(v); }},
    {u"tooltipfontname", [](S& s, V v) { s.tooltipFontName = TrimBlanks(v); }},
    {u"tooltipfontsize", [](S& s, V v) { s.tooltipFontSize = Length(v); }},
    {u"darkpapers", [](S& s, V v) { s.darkPapers = IsOn(v); }},
    {u"usescrollbar", [](S& s, V v) { s.useScrollbar = IsOn(v); }},
    {u"scrollbar", [](S& s, V v) { ReadTrack(s.scrollbar, v); }},
    {u"scrollbardrawwidthminimum", [](S& s, V v) { s.scrollbarDrawBounds.widthMinimum = ParseInt(v); }},
    {u"scrollbardrawwidthmaximum", [](S& s, V v) { s.scrollbarDrawBounds.widthMaximum = UpperBound(v); }},
    {u"scrollbardrawheightminimum", [](S& s, V v) { s.scrollbarDrawBounds.heightMinimum = ParseInt(v); }},
    {u"scrollbardrawheightmaximum", [](S& s, V v) { s.scrollbarDrawBounds.heightMaximum = UpperBound(v); }},
    {u"formatbar", [](S& s, V v) { s.formatBar = Length(v); }},
    {u"formatbardrawheightminimum", [](S& s, V v) { s.formatBarDrawBounds.heightMinimum = ParseInt(v); }},
    {u"tagline", [](S& s, V v) { s.tagLine = Length(v); }},
    {u"alarmfoot", [](S& s, V v) { s.alarmFoot = Length(v); }},
    {u"alarmfootdrawheightminimum", [](S& s, V v) { s.alarmFootDrawBounds.heightMinimum = ParseInt(v); }},
    {u"drawonrtfbg", [](S& s, V v) { s.drawOnRtfBg = IsOn(v); }},
    {u"mode", [](S& s, V v) { s.isStack = IsWord(v, u"stack"); }},
    {u"rowheight", [](S& s, V v) { s.rowHeight = Length(v); }},
    {u"sheets", [](S& s, V v) { s.sheets = std::min(Length(v), kMaxSheets); }},
    {u"defaultstyle", [](S& s, V v) { s.defaultStyle = v; }},
    {u"stackfilename", [](S& s, V v) { s.stackFileName = TrimBlanks(v); }},
};

constexpr KeyRow<SkinElement> kElementKeys[] = {
    {u"name", [](E& e, V v) { e.name = v; }},
    {u"place", [](E& e, V v) { ReadPoint(e.place, v); }},
    {u"topleft", [](E& e, V v) { ReadPoint(e.topLeft, v); }},
    {u"bottomright", [](E& e, V v) { ReadPoint(e.bottomRight, v); }},
    {u"extent", [](E& e, V v) { ReadPoint(e.extent, v); }},
    {u"size", [](E& e, V v) { ReadSize(e.size, v); }},
    {u"width", [](E& e, V v) { e.width = Length(v); }},
    {u"height", [](E& e, V v) { e.height = Length(v); }},
    {u"drawwidthminimum", [](E& e, V v) { e.drawBounds.widthMinimum = ParseInt(v); }},
    {u"drawwidthmaximum", [](E& e, V v) { e.drawBounds.widthMaximum = UpperBound(v); }},
    {u"drawheightminimum", [](E& e, V v) { e.drawBounds.heightMinimum = ParseInt(v); }},
    {u"drawheightmaximum", [](E& e, V v) { e.drawBounds.heightMaximum = UpperBound(v); }},
    {u"source", [](E& e, V v) { ReadSheetPoint(e.source.picture, v); }},
    {u"sourcealpha", [](E& e, V v) { ReadSheetPoint(e.source.mask, v); }},
    {u"sourceoff", [](E& e, V v) { ReadSheetPoint(e.sourceOff.picture, v); }},
    {u"sourceoffalpha", [](E& e, V v) { ReadSheetPoint(e.sourceOff.mask, v); }},
    {u"sourcerollover", [](E& e, V v) { ReadSheetPoint(e.sourceRollover.picture, v); }},
    {u"sourcechosen", [](E& e, V v) { ReadSheetPoint(e.sourceChosen.picture, v); }},
    {u"sourcerolloveralpha", [](E& e, V v) { ReadSheetPoint(e.sourceRollover.mask, v); }},
    {u"alpha", [](E& e, V v) { ReadAlpha(e.alpha, v); }},
    {u"action", [](E& e, V v) { e.action = ActionFromName(TrimBlanks(v)); }},
    {u"type", [](E& e, V v) { e.type = TrimBlanks(v); }},
    {u"striptype", [](E& e, V v) { e.stripType = ParseInt(v); }},
    {u"tiletype", [](E& e, V v) { e.tileType = ParseInt(v); }},
    {u"startcol", [](E& e, V v) { ReadColour(e.startColour, v); }},
    {u"endcol", [](E& e, V v) { ReadColour(e.endColour, v); }},
    {u"solidcol", [](E& e, V v) { ReadColour(e.solidColour, v); }},
    {u"shade", [](E& e, V v) { e.shade = std::min(Length(v), std::int32_t{100}); }},
    {u"tint", [](E& e, V v) { ReadTint(e.tint, v); }},
    {u"fill", [](E& e, V v) { e.fill = std::min(Length(v), std::int32_t{100}); }},
    {u"corner", [](E& e, V v) { e.corner = Length(v); }},
    {u"font", [](E& e, V v) { e.font = TrimBlanks(v); }},
    {u"point", [](E& e, V v) { e.point = std::min(Length(v), kMaxPoint); }},
    {u"col", [](E& e, V v) { ReadColour(e.colour, v); }},
    {u"text", [](E& e, V v) { e.text = v; }},
    {u"pill", [](E& e, V v) { e.pill = v; }},
    {u"alignment", [](E& e, V v) { e.alignment = Alignment(v); }},
    {u"setcase", [](E& e, V v) { e.setCase = ParseInt(v); }},
    {u"format", [](E& e, V v) { ReadFormat(e.format, v); }},
    {u"giveway", [](E& e, V v) { e.giveWay = IsOn(v); }},
    {u"pack", [](E& e, V v) { e.pack = Length(v); }},
    {u"condition", [](E& e, V v) { e.condition = TrimBlanks(v); }},
    {u"conditionvalue", [](E& e, V v) { e.conditionValue = ParseInt(v); }},
    {u"normal", [](E& e, V v) { e.normal = ParseInt(v) != 0; }},
    {u"rolled", [](E& e, V v) { e.rolled = ParseInt(v) != 0; }},
    {u"focus", [](E& e, V v) { e.focus = ParseInt(v) != 0; }},
    {u"mouseover", [](E& e, V v) { e.mouseOver = ParseInt(v) != 0; }},
};

struct SectionRow {
  TextView line;
  ElementKind kind;
};
constexpr SectionRow kSections[] = {
    {u"[button]", ElementKind::kButton},       {u"[hstrip]", ElementKind::kHstrip},
    {u"[vstrip]", ElementKind::kVstrip},       {u"[text]", ElementKind::kText},
    {u"[indicator]", ElementKind::kIndicator}, {u"[tilearea]", ElementKind::kTilearea},
};

// Whether the line started an element.
bool StartElement(std::vector<SkinElement>& elements, TextView line) {
  const auto row = std::find_if(std::begin(kSections), std::end(kSections),
                                [line](const SectionRow& section) { return section.line == line; });
  if (row == std::end(kSections) || elements.size() >= kMaxElements) return false;
  elements.emplace_back().kind = row->kind;
  return true;
}

template <typename Owner, std::size_t Count>
void ReadKey(const KeyRow<Owner> (&rows)[Count], Owner& owner, TextView line) {
  const std::size_t equals = line.find(u'=');
  if (equals == TextView::npos) return;
  const TextView key = line.substr(0, equals);
  const auto row = std::find_if(std::begin(rows), std::end(rows),
                                [key](const KeyRow<Owner>& candidate) { return candidate.key == key; });
  if (row != std::end(rows)) row->read(owner, line.substr(equals + 1));
}

// Each kind of letters is a font that the system has to make.
void BoundLetters(std::vector<SkinElement>& elements) {
  const auto letters = [](const SkinElement& e) {
    return std::tuple(e.font, e.point, e.format.bold, e.format.italic, e.format.underline, e.format.noAa);
  };
  std::set<decltype(letters(elements.front()))> kinds;
  const SkinElement* first = nullptr;
  for (SkinElement& element : elements) {
    if (element.kind != ElementKind::kText) continue;
    if (first == nullptr) first = &element;
    if (kinds.size() < kMaxLetters) kinds.insert(letters(element));
    if (kinds.contains(letters(element))) continue;
    element.font = first->font;
    element.point = first->point;
    const bool transparent = element.format.transparent;
    element.format = first->format;
    element.format.transparent = transparent;
  }
}

}  // namespace

SkinData ParseSkin(TextView text) {
  SkinData skin;
  bool skinWide = true;
  bool inElement = false;
  LineReader lines(text.substr(0, kMaxSkinText));
  for (TextView line; lines.Next(line);) {
    if (line.starts_with(u'[')) {
      skinWide = false;
      inElement = StartElement(skin.elements, line);
    } else if (skinWide) {
      ReadKey(kSkinKeys, skin, line);
    } else if (inElement) {
      ReadKey(kElementKeys, skin.elements.back(), line);
    }
  }
  BoundLetters(skin.elements);
  return skin;
}

}  // namespace jotlets
