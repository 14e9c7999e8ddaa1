// Any text as a skin, with a sheet and on a canvas of odd sizes: what is drawn stays inside, and the buttons
// and the scroll bar inside the window. The seeds are the skins of the program; the last bytes of an input
// choose sizes and states.
#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "fuzz.h"
#include "skin/skin_drawing.h"
#include "skin/skin_layout.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

// Takes bytes from the end, and zeros when there are none left.
class Choices {
 public:
  explicit Choices(std::string_view& bytes) : bytes_(bytes) {}
  std::int32_t Below(std::int32_t end) { return (Byte() * 256 + Byte()) % end; }
  bool Flag() { return Byte() % 2 == 1; }
  std::uint8_t Byte() {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(bytes_.back());
    bytes_.remove_suffix(1);
    return byte;
  }
  // The ends, which texts hardly come to by chance.
  std::int32_t Extreme() {
    constexpr std::int32_t kEnds[] = {
        std::numeric_limits<std::int32_t>::min(), -kFarthestCoordinate, -7, 0, kFarthestCoordinate,
        std::numeric_limits<std::int32_t>::max()};
    return kEnds[Byte() % std::size(kEnds)];
  }
  std::int32_t Anything() { return Byte() << 24 ^ Byte() << 12 ^ Byte(); }

 private:
  std::string_view& bytes_;
};

class TextLengths final : public SkinTextSetter {
 public:
  void SetText(const SkinElement& element, const Rect& area, const Text& words, Colour) override {
    Check(words.size() <= 8 * (element.text.size() + element.pill.size()));
    Check(area.left <= area.right && area.top <= area.bottom);
  }
  std::int32_t WidthOf(const SkinElement&, const Text& words) override {
    return static_cast<std::int32_t>(words.size()) * 7;
  }
};

class EightLetters final : public SkinWords {
 public:
  std::optional<Text> Find(TextView placeholder) const override {
    Check(!placeholder.empty());
    return placeholder == u"TITLE" ? std::optional(Text(8, u'x')) : std::nullopt;
  }
};

Picture MakeSheet(Choices& choose) {
  StraightPicture sheet{{1 + choose.Below(70), 1 + choose.Below(40)}, {}};
  sheet.pixels.resize(static_cast<std::size_t>(sheet.size.width) *
                      static_cast<std::size_t>(sheet.size.height) * 4);
  std::uint8_t value = choose.Byte();
  const std::uint8_t step = choose.Byte();
  for (std::uint8_t& byte : sheet.pixels) byte = value = static_cast<std::uint8_t>(value * 5 + step);
  return Premultiplied(std::move(sheet));
}

void Exaggerate(SkinData& skin, Choices& choose) {
  if (skin.elements.empty() || !choose.Flag()) return;
  SkinElement& element = skin.elements[choose.Byte() % skin.elements.size()];
  const auto corner = [&choose] {
    return CoordinatePoint{{CoordinateMarker::kPlain, choose.Extreme()},
                           {CoordinateMarker::kPlain, choose.Extreme()}};
  };
  element.topLeft = corner();
  element.bottomRight = corner();
  element.source.picture = Point{choose.Extreme(), choose.Extreme()};
  // As far as a skin's text can say.
  element.corner = std::clamp(choose.Extreme(), 0, kFarthestCoordinate);
  element.fill = choose.Byte() % 101;
  element.sourceChosen.picture = Point{choose.Extreme(), choose.Extreme()};
  element.action = kActionPenDraw;
  if (choose.Flag()) element.source.picture.reset();
  if (choose.Flag()) element.pill = u"50%TITLE%";
}

SkinView MakeView(const SkinData& skin, Choices& choose) {
  SkinView view{{1 + choose.Below(150), 1 + choose.Below(90)}, {choose.Byte(), choose.Byte(), choose.Byte()}};
  if (choose.Flag()) view.chosen = kActionPenDraw;
  view.rightToLeft = choose.Flag();
  view.rolled = choose.Flag(), view.focus = choose.Flag(), view.mouseOver = choose.Flag();
  for (int state = 0; state <= static_cast<int>(SkinState::kScrollbarRequired); ++state)
    view.states.Set(static_cast<SkinState>(state), choose.Flag());
  const Rect track = ScrollTrack(skin, view.window);
  const ScrollState scroll{choose.Anything(), choose.Anything(), choose.Anything()};
  view.thumb = ScrollThumb(track, skin.minimumThumbTrackHeight, scroll);
  Check(view.thumb.top >= track.top && view.thumb.top <= view.thumb.bottom &&
        view.thumb.bottom <= track.bottom);
  const std::int32_t position =
      ScrollPositionAt(choose.Anything(), track, skin.minimumThumbTrackHeight, scroll);
  Check(position >= 0);
  return view;
}

}  // namespace
}  // namespace jotlets

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  std::string_view bytes = Bytes(data, size);
  Choices choose(bytes);
  const Picture sheet = MakeSheet(choose);
  const Rect clip{choose.Below(64) - 9, choose.Below(64) - 9, choose.Below(256), choose.Below(256)};
  const bool clipped = choose.Flag();
  // What is left of the choices is taken from the text as well: another text, but a text.
  SkinData skin = ParseSkin(FromUtf8(bytes));
  Exaggerate(skin, choose);
  SkinView view = MakeView(skin, choose);
  view.hotButton = ButtonAt(skin, view, {choose.Below(150), choose.Below(90)});
  Check(view.hotButton == kNoElement || IsShown(skin.elements.at(view.hotButton), view));

  const auto count =
      static_cast<std::size_t>(view.window.width) * static_cast<std::size_t>(view.window.height);
  const std::vector<std::uint8_t> before(count * 4, 0xC3);
  std::vector<std::uint8_t> pixels = before;
  Canvas canvas(pixels.data(), view.window, static_cast<std::size_t>(view.window.width) * 4);
  if (clipped) canvas.SetClip(clip);
  TextLengths texts;
  DrawSkin(canvas, skin, sheet, view, EightLetters(), texts);
  for (std::size_t at = 0; at < count && clipped; ++at) {
    const auto x = static_cast<std::int32_t>(at) % view.window.width;
    const auto y = static_cast<std::int32_t>(at) / view.window.width;
    Check(clip.Contains({x, y}) || std::memcmp(&pixels[at * 4], &before[at * 4], 4) == 0);
  }
  return 0;
}
