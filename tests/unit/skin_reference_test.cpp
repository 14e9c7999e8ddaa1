// The skins that come with the program, in many sizes, colours and states, against pictures of how they are
// to look. A difference leaves the picture drawn in build/logs: docs/building.md tells how it becomes the new
// reference.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "fakes.h"
#include "skin/skin_drawing.h"
#include "skin/skin_layout.h"
#include "skin/skin_scaling.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

constexpr Size kSizes[] = {{0, 0}, {203, 121}, {260, 160}};  // the first becomes the skin's smallest
constexpr Colour kColours[] = {{255, 255, 255}, {255, 238, 136}, {72, 104, 152}};
constexpr std::size_t kViewsInARow = 6;
constexpr std::int32_t kGap = 8;

class PlaceholderNames final : public SkinWords {
 public:
  std::optional<Text> Find(TextView placeholder) const override { return Text(placeholder); }
};

// Fonts differ from system to system: a box stands for each text, six pixels to a letter.
class TextBoxes final : public SkinTextSetter {
 public:
  explicit TextBoxes(Canvas& canvas) : canvas_(canvas) {}
  void SetText(const SkinElement& element, const Rect& area, const Text& words, Colour ink) override {
    const std::int32_t width = std::min(area.Width(), static_cast<std::int32_t>(words.size()) * 6);
    const std::int32_t rest = area.Width() - width;
    const std::int32_t left = area.left + (element.alignment == TextAlignment::kLeft    ? 0
                                           : element.alignment == TextAlignment::kRight ? rest
                                                                                        : rest / 2);
    canvas_.Fill({left, area.top, left + width, area.bottom}, ink, 112);
  }
  std::int32_t WidthOf(const SkinElement&, const Text& words) override {
    return static_cast<std::int32_t>(words.size()) * 6;
  }

 private:
  Canvas& canvas_;
};

SkinView ViewOf(const SkinData& skin, Size size, bool rolled) {
  SkinView view;
  const Size least = MinimumSize(skin);
  view.window = {std::max(ScaledLength(size.width, skin.dpi), least.width),
                 std::max(ScaledLength(size.height, skin.dpi), least.height)};
  if (rolled) view.window.height = skin.rolledHeight;
  view.rolled = rolled;
  view.colour = kColours[1];
  return view;
}

// A text three times as high as its area, read down to `percent`.
void Scroll(const SkinData& skin, SkinView& view, std::int32_t percent) {
  const std::int32_t page = TextArea(skin, view).Height();
  const ScrollState scroll{2 * page * percent / 100, page, 3 * page};
  if (!IsScrollbarRequired(skin, view, scroll)) return;
  view.states.Set(SkinState::kScrollbarRequired, true);
  view.thumb = ScrollThumb(ScrollTrack(skin, view.window), skin.minimumThumbTrackHeight, scroll);
}

void SetAllStates(SkinStates& states) {
  for (int state = 0; state < static_cast<int>(SkinState::kScrollbarRequired); ++state)
    states.Set(static_cast<SkinState>(state), true);
}

void AddPlainViews(const SkinData& skin, std::vector<SkinView>& views) {
  for (const Size size : kSizes) {
    for (const bool rolled : {false, true}) {
      for (const Colour colour : kColours) {
        for (const bool focus : {false, true}) {
          SkinView& view = views.emplace_back(ViewOf(skin, size, rolled));
          view.colour = colour;
          view.focus = focus;
        }
      }
    }
  }
}

void AddBusyViews(const SkinData& skin, std::vector<SkinView>& views) {
  for (const Size size : kSizes) {
    for (const bool all : {false, true}) {
      for (const std::int32_t percent : {0, 60, 100}) {
        SkinView& view = views.emplace_back(ViewOf(skin, size, all && percent == 60));
        view.mouseOver = percent == 60;
        if (all) SetAllStates(view.states);
        Scroll(skin, view, percent);
      }
    }
  }
}

// Every button once under the mouse, in the first of these states in which it shows.
void AddHotButtons(const SkinData& skin, std::vector<SkinView>& views) {
  for (std::size_t index = 0; index < skin.elements.size(); ++index) {
    if (skin.elements[index].kind != ElementKind::kButton) continue;
    for (const int tried : {0, 1, 2, 3}) {
      SkinView view = ViewOf(skin, kSizes[1], tried >= 2);
      view.mouseOver = true;
      view.hotButton = index;
      if (tried % 2 == 1) SetAllStates(view.states);
      Scroll(skin, view, 0);
      if (!IsShown(skin.elements[index], view)) continue;
      views.push_back(view);
      break;
    }
  }
}

Size GridSize(const std::vector<SkinView>& views, std::vector<std::int32_t>& rowTops) {
  std::int32_t width = 0;
  std::int32_t top = kGap;
  for (std::size_t first = 0; first < views.size(); first += kViewsInARow) {
    std::int32_t height = 0;
    for (std::size_t at = first; at < std::min(first + kViewsInARow, views.size()); ++at) {
      width = std::max(width, views[at].window.width);
      height = std::max(height, views[at].window.height);
    }
    rowTops.push_back(top);
    top += height + kGap;
  }
  return {static_cast<std::int32_t>(kViewsInARow) * (width + kGap) + kGap, top};
}

Picture DrawViews(const SkinData& skin, const Picture& sheet, const std::vector<SkinView>& views) {
  std::vector<std::int32_t> rowTops;
  Picture drawn{GridSize(views, rowTops), {}};
  const auto stride = static_cast<std::size_t>(drawn.size.width) * 4;
  drawn.pixels.resize(stride * static_cast<std::size_t>(drawn.size.height), 160);
  const std::size_t columnBytes = (stride - kGap * 4) / kViewsInARow;
  for (std::size_t at = 0; at < views.size(); ++at) {
    const std::size_t corner = static_cast<std::size_t>(rowTops[at / kViewsInARow]) * stride + kGap * 4 +
                               at % kViewsInARow * columnBytes;
    Canvas canvas(drawn.pixels.data() + corner, views[at].window, stride);
    TextBoxes texts(canvas);
    DrawSkin(canvas, skin, sheet, views[at], PlaceholderNames(), texts);
  }
  // The canvas leaves the fourth byte undefined.
  for (std::size_t at = 3; at < drawn.pixels.size(); at += 4) drawn.pixels[at] = kOpaque;
  return drawn;
}

// Where the pictures differ, in words; empty when they do not.
std::string Difference(const Picture& drawn, const std::optional<Picture>& reference) {
  if (!reference) return "there is no reference";
  if (reference->size != drawn.size) return "the reference has another size";
  std::size_t count = 0;
  std::size_t first = drawn.pixels.size();
  for (std::size_t at = 0; at < drawn.pixels.size(); at += 4) {
    if (std::equal(&drawn.pixels[at], &drawn.pixels[at] + 4, &reference->pixels[at])) continue;
    first = std::min(first, at);
    ++count;
  }
  if (count == 0) return {};
  const auto width = static_cast<std::size_t>(drawn.size.width);
  return std::to_string(count) + " pixels differ, the first at " + std::to_string(first / 4 % width) + "," +
         std::to_string(first / 4 / width);
}

struct ReferenceRow {
  const char* name;
  const char* text;
  std::int32_t dpi = kUsualDpi;
};

std::string FileBeside(const std::filesystem::path& text, const Text& name) {
  return FileBytes((text.parent_path() / ToUtf8(name)).string().c_str());
}

// The skin as the program has it, with its sheets for other scales.
LoadedSkin SkinOf(const std::filesystem::path& text) {
  LoadedSkin skin;
  skin.data = ParseSkin(FromUtf8(FileBytes(text.string().c_str())));
  skin.sheet = DecodePng(FileBeside(text, skin.data.bitmap)).value_or(Picture());
  const Text stem = skin.data.bitmap.substr(0, skin.data.bitmap.size() - 4);
  for (const SheetScale& scale : kSheetScales) {
    const auto bytes =
        std::make_shared<const std::string>(FileBeside(text, stem + Text(scale.suffix) + u".png"));
    skin.sheets.push_back({scale.percent, *bytes, bytes});
  }
  return skin;
}

class SkinReference : public testing::TestWithParam<ReferenceRow> {};

TEST_P(SkinReference, IsDrawn) {
  const std::filesystem::path textPath = std::string("../src/res/skins/") + GetParam().text;
  const LoadedSkin loaded =
      GetParam().dpi == kUsualDpi ? SkinOf(textPath) : ScaledSkin(SkinOf(textPath), GetParam().dpi);
  const SkinData& skin = loaded.data;
  ASSERT_TRUE(!loaded.sheet.pixels.empty() && !skin.elements.empty());
  std::vector<SkinView> views;
  AddPlainViews(skin, views);
  AddBusyViews(skin, views);
  AddHotButtons(skin, views);
  const Picture drawn = DrawViews(skin, loaded.sheet, views);

  const std::string file = std::string(GetParam().name) + ".png";
  const std::string difference = Difference(drawn, DecodePng(FileBytes(("unit/reference/" + file).c_str())));
  if (difference.empty()) return;
  std::filesystem::create_directories("../build/logs");
  std::ofstream("../build/logs/skin-" + file, std::ios::binary) << EncodePng(drawn);
  FAIL() << file << ": " << difference << "; what was drawn is in build/logs/skin-" << file;
}

INSTANTIATE_TEST_SUITE_P(
    OfTheProgram, SkinReference,
    testing::Values(ReferenceRow{"default", "default/skin.ini"}, ReferenceRow{"stack", "stack/stack.ini"},
                    ReferenceRow{"midnight", "midnight/midnight.ini"},
                    ReferenceRow{"plain", "plain/plain.ini"}, ReferenceRow{"paper", "paper/paper.ini"},
                    ReferenceRow{"paper_stack", "paper/stack.ini"}, ReferenceRow{"large", "paper/large.ini"},
                    ReferenceRow{"bare", "paper/bare.ini"},
                    ReferenceRow{"default_150", "default/skin.ini", 144},
                    ReferenceRow{"paper_125", "paper/paper.ini", 120},
                    ReferenceRow{"paper_200", "paper/paper.ini", 192},
                    ReferenceRow{"paper_300", "paper/paper.ini", 288}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace jotlets
