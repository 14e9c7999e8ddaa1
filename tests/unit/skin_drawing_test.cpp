#include "skin/skin_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "looks/ink.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

constexpr std::uint8_t kGuard = 0xA5;
constexpr Colour kWhite{255, 255, 255};
constexpr Colour kKey{255, 0, 255};

// Pixels with guards before, after and beside every row; they begin black.
class Surface {
 public:
  explicit Surface(Size size)
      : size_(size), bytes_(Stride() * static_cast<std::size_t>(size.height + 2), kGuard) {
    for (std::int32_t y = 0; y < size.height; ++y) std::fill_n(At({0, y}), size.width * 4, std::uint8_t{0});
  }
  Canvas MakeCanvas() { return Canvas(At({0, 0}), size_, Stride()); }
  Colour operator[](Point at) {
    const std::uint8_t* pixel = At(at);
    return {pixel[2], pixel[1], pixel[0]};
  }
  bool GuardsHold() {
    std::vector<std::uint8_t> rest = bytes_;
    for (std::int32_t y = 0; y < size_.height; ++y)
      std::fill_n(rest.begin() + (At({0, y}) - bytes_.data()), size_.width * 4, kGuard);
    return std::all_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte == kGuard; });
  }

 private:
  std::size_t Stride() const { return static_cast<std::size_t>(size_.width) * 4 + 12; }
  std::uint8_t* At(Point at) {
    return bytes_.data() + static_cast<std::size_t>(at.y + 1) * Stride() + static_cast<std::size_t>(at.x) * 4;
  }

  Size size_;
  std::vector<std::uint8_t> bytes_;
};

// Row 0: red counts up from 10, opaque. Row 1: a mask of 0, 128 and 255. Row 2: half red, nothing, the key.
Picture Sheet() {
  return {{3, 3}, {50, 40, 10,  255, 50,  40,  11,  255, 50,  40,  12,  255,  //
                   0,  0,  0,   255, 128, 128, 128, 255, 255, 255, 255, 255,  //
                   0,  0,  128, 128, 0,   0,   0,   0,   255, 0,   255, 255}};
}

class Words final : public SkinWords {
 public:
  std::optional<Text> Find(TextView placeholder) const override {
    if (placeholder == u"TITLE") return Text(u"100%TITLE%");
    return placeholder == u"EMPTY" ? std::optional(Text()) : std::nullopt;
  }
};

class TextList final : public SkinTextSetter {
 public:
  std::vector<std::pair<Rect, Text>> texts;
  void SetText(const SkinElement&, const Rect& area, const Text& words, Colour) override {
    texts.emplace_back(area, words);
  }
  std::int32_t WidthOf(const SkinElement&, const Text& words) override {
    return static_cast<std::int32_t>(words.size()) * 1;
  }
};

class Drawing : public testing::Test {
 protected:
  SkinView view{{6, 4}, kWhite};
  Surface surface{{6, 4}};
  TextList texts;

  void Draw(TextView skin, std::optional<Rect> clip = std::nullopt) {
    Canvas canvas = surface.MakeCanvas();
    if (clip) canvas.SetClip(*clip);
    DrawSkin(canvas, ParseSkin(skin), Sheet(), view, Words(), texts);
    EXPECT_TRUE(surface.GuardsHold()) << ToUtf8(skin);
  }
  // One element in the second row, from x = 1 to 4, on paper of the note's colour.
  std::vector<Colour> Row(TextView kind, TextView keys) {
    Draw(Text(u"transparent=255,0,255\n")
             .append(kind)
             .append(u"\nplace=1,1\nextent=3,1\nsize=3x1\nwidth=3\n"
                     u"height=1\n")
             .append(keys));
    EXPECT_EQ(surface[(Point{0, 1})], surface[(Point{0, 0})]) << ToUtf8(keys);
    EXPECT_EQ(surface[(Point{4, 1})], surface[(Point{0, 0})]) << ToUtf8(keys);
    EXPECT_EQ(surface[(Point{2, 2})], surface[(Point{0, 0})]) << ToUtf8(keys);
    return {surface[(Point{1, 1})], surface[(Point{2, 1})], surface[(Point{3, 1})]};
  }
};

using Colours = std::vector<Colour>;

TEST_F(Drawing, FillsStripsInTheTintOfTheNote) {
  view.colour = {255, 128, 0};
  EXPECT_EQ(Row(u"[hstrip]", u"striptype=2\nsolidcol=200,100,50"), Colours(3, {200, 50, 0}));
  EXPECT_EQ(Row(u"[hstrip]", u"solidcol=200,100,50"), Colours(3, {200, 50, 0}));
  EXPECT_EQ(Row(u"[hstrip]", u"striptype=2\nsolidcol=55,128,100\nalpha=51"), Colours(3, {215, 115, 0}));
  EXPECT_EQ(Row(u"[vstrip]", u"striptype=2\nstartcol=0,255,9\nendcol=200,255,9"),
            (Colours{{0, 128, 0}, {100, 128, 0}, {200, 128, 0}}));
  EXPECT_EQ(Row(u"[hstrip]", u"striptype=2\nsource=0,0"), Colours(3, view.colour));
  EXPECT_EQ(Row(u"[hstrip]", u"source=0,0\nsolidcol=1,2,3"),
            (Colours{{10, 20, 0}, {11, 20, 0}, {12, 20, 0}}));
}

TEST_F(Drawing, LetsWhatShowsUnderTheMouseComeSoftly) {
  view.mouseOver = true;
  view.hover = 51;
  EXPECT_EQ(Row(u"[button]", u"source=0,0\nmouseover=1")[2], (Colour{206, 212, 214}));
  EXPECT_EQ(Row(u"[button]", u"source=0,0")[2], (Colour{12, 40, 50}));
}

TEST_F(Drawing, FillsTheGroundOfTheToolInHandAndTheColourThatItDrawsWith) {
  view.pen = {200, 10, 20};
  const TextView tool = u"source=0,2\nsourcechosen=0,0\ntint=title\naction=pendraw";
  const Colours resting = Row(u"[button]", tool);
  view.chosen = kActionPenLine;
  EXPECT_EQ(Row(u"[button]", tool), resting);
  view.chosen = kActionPenDraw;
  const Colours chosen = Row(u"[button]", tool);
  EXPECT_EQ(chosen[1], AccentOn(kWhite)) << "the ground, where the sign leaves it";
  EXPECT_NE(chosen[0], chosen[1]) << "and the sign on it";
  EXPECT_EQ(Row(u"[button]", u"source=0,0\ntint=pen"), Colours(3, view.pen));
}

TEST_F(Drawing, PutsAPillBehindWordsThatGiveItRoom) {
  Surface wide{{80, 24}};
  view = {{80, 24}, kWhite};
  const auto draw = [&](TextView text) {
    texts.texts.clear();
    Canvas canvas = wide.MakeCanvas();
    DrawSkin(canvas, ParseSkin(Text(u"[text]\nplace=0,0\nextent=80,24\npill=12\ntext=").append(text)),
             Sheet(), view, Words(), texts);
    return texts.texts;
  };
  EXPECT_EQ(draw(u"abcd"), (decltype(texts.texts){{{0, 0, 4, 24}, u"abcd"}, {{18, 2, 26, 22}, u"12"}}));
  EXPECT_EQ(wide[(Point{12, 2})], kWhite) << "its corners are round";
  EXPECT_NE(wide[(Point{22, 2})], kWhite);
  view.rightToLeft = true;
  EXPECT_EQ(draw(u"abcd"), (decltype(texts.texts){{{76, 0, 80, 24}, u"abcd"}, {{54, 2, 62, 22}, u"12"}}));
  view.rightToLeft = false;
  EXPECT_EQ(draw(Text(100, u'x')),
            (decltype(texts.texts){{{0, 0, 52, 24}, Text(100, u'x')}, {{66, 2, 74, 22}, u"12"}}));
  view.window.width = 20;
  Canvas canvas = wide.MakeCanvas();
  texts.texts.clear();
  DrawSkin(canvas, ParseSkin(u"[text]\nplace=0,0\nextent=20,24\npill=12\ntext=a"), Sheet(), view, Words(),
           texts);
  EXPECT_EQ(texts.texts.size(), 1u) << "without room there is no pill";
}

TEST_F(Drawing, RunsGradientsDownInHorizontalStripsWhateverIsCutOff) {
  view.window.height = 9;
  Draw(u"[hstrip]\nplace=0,-10\nextent=6,11\nstriptype=2\nstartcol=0,0,0\nendcol=100,0,0", Rect{2, 0, 4, 3});
  for (std::int32_t y = 0; y < 3; ++y) EXPECT_EQ(surface[(Point{3, y})].r, 10 * (y + 1));
  EXPECT_EQ(surface[(Point{1, 0})], Colour());
  EXPECT_EQ(surface[(Point{3, 3})], Colour());
}

TEST_F(Drawing, BlendsPicturesByAlphaMaskAndTheirOwnOpacity) {
  EXPECT_EQ(Row(u"[button]", u"source=0,0"), (Colours{{10, 40, 50}, {11, 40, 50}, {12, 40, 50}}));
  EXPECT_EQ(Row(u"[button]", u"source=0,0\nalpha=0"), Colours(3, kWhite));
  EXPECT_EQ(Row(u"[button]", u"source=0,0\nsourcealpha=0,1"),
            (Colours{kWhite, {133, 147, 152}, {12, 40, 50}}));
  EXPECT_EQ(Row(u"[button]", u"source=0,0\nsourcealpha=0,1\nalpha=51")[2], (Colour{206, 212, 214}));
  EXPECT_EQ(Row(u"[button]", u"source=0,0\nsourcealpha=2,1"), (Colours{{10, 40, 50}, kWhite, kWhite}));
  EXPECT_EQ(Row(u"[indicator]", u"sourceoff=0,2\nsourceoffalpha=0,0\nalpha=0"),
            (Colours{kWhite, kWhite, kKey}));
  view.colour = {0, 100, 0};
  EXPECT_EQ(Row(u"[button]", u"source=0,2"), (Colours{{128, 50, 0}, {0, 100, 0}, kKey}));
  EXPECT_EQ(Row(u"[tilearea]", u"source=0,2"), (Colours{{0, 50, 0}, {0, 100, 0}, kKey}));
}

TEST_F(Drawing, TakesThePictureOfTheState) {
  const TextView indicator = u"type=OnTop\nsource=0,0\nsourceoff=1,0";
  EXPECT_EQ(Row(u"[indicator]", indicator)[0].r, 11);
  EXPECT_EQ(Row(u"[indicator]", u"type=moonlight\nsource=0,0\nsourceoff=1,0")[0].r, 11);
  EXPECT_EQ(Row(u"[indicator]", u"type=ontop\nsource=0,0"), Colours(3, kWhite));
  view.states.Set(SkinState::kOnTop, true);
  EXPECT_EQ(Row(u"[indicator]", indicator)[0].r, 10);

  const TextView button = u"source=0,0\nsourcerollover=1,0\nsourcerolloveralpha=1,1";
  EXPECT_EQ(Row(u"[button]", button)[1].r, 11);
  view.hotButton = 0;
  EXPECT_EQ(Row(u"[button]", button)[1].r, 12);
  EXPECT_EQ(Row(u"[button]", u"source=0,0")[0].r, 10);
  view.hotButton = 1;
  EXPECT_EQ(Row(u"[button]", button)[1].r, 11);
}

TEST_F(Drawing, FramesWhatTheKeyboardIsAtInAnInkThatIsSeenThere) {
  Surface large({20, 12});
  Canvas canvas = large.MakeCanvas();
  view.window = {20, 12};
  view.focused = {2, 1, 18, 11};
  const SkinData skin = ParseSkin(u"[hstrip]\nplace=0,0\nextent=20,12\nstriptype=2\nsolidcol=0,0,64\n");
  DrawSkin(canvas, skin, {}, view, Words(), texts);
  for (const Point at : {Point{2, 1}, {17, 1}, {3, 9}, {16, 10}, {9, 2}, {2, 6}})
    EXPECT_GE(Contrast(large[at], {0, 0, 64}), 3.0) << at.x << "," << at.y;
  for (const Point at : {Point{1, 5}, {18, 5}, {9, 0}, {9, 11}, {9, 3}, {4, 5}})
    EXPECT_EQ(large[at], (Colour{0, 0, 64})) << at.x << "," << at.y;
}

TEST_F(Drawing, RepeatsOrStretchesTiles) {
  view.window = {1, 4};  // whose middle is its left edge
  const auto reds = [this](TextView keys, std::int32_t y = 2) {
    surface = Surface({6, 4});
    Draw(Text(u"[tilearea]\nplace=m-1,1\n").append(keys));
    std::vector<int> row;
    for (std::int32_t x = 0; x < 6; ++x) row.push_back(surface[(Point{x, y})].r);
    return row;
  };
  using Reds = std::vector<int>;
  EXPECT_EQ(reds(u"extent=5,3\nsize=2x1\nsource=0,0"), (Reds{11, 10, 11, 10, 0, 0}));
  EXPECT_EQ(reds(u"extent=6,3\nsize=3x2\nsource=0,0\ntiletype=1"), (Reds{10, 11, 11, 12, 12, 0}));
  EXPECT_EQ(reds(u"extent=6,3\nsize=3x2\nsource=0,0\ntiletype=1", 3), (Reds{0, 128, 128, 255, 255, 0}));
  view.sampling = Sampling::kMixed;
  EXPECT_EQ(reds(u"extent=6,3\nsize=3x2\nsource=0,0\ntiletype=1", 3), (Reds{32, 96, 160, 223, 255, 0}));
  EXPECT_EQ(reds(u"extent=6,3\nsize=3x2\nsource=0,0\ntiletype=1", 2), (Reds{21, 54, 86, 118, 134, 0}));
  view.sampling = Sampling::kNearest;
  EXPECT_EQ(reds(u"extent=6,3\nsize=4x1\nsource=-1,0\ntiletype=0"), (Reds{10, 11, 12, 0, 10, 0}));
  for (const TextView none :
       {u"extent=6,3\nsource=0,0", u"extent=6,3\nsize=2x0\nsource=0,0", u"extent=0,0\nsize=2x2\nsource=0,0",
        u"extent=6,3\nsize=3x1\nsource=0,3", u"extent=6,3\nsize=3x3"}) {
    EXPECT_EQ(reds(none), (Reds{255, 0, 0, 0, 0, 0})) << ToUtf8(none);
  }
}

TEST_F(Drawing, StaysInsideItsClipAndEndsSoon) {
  std::vector<Text> skins;
  for (const TextView kind : {u"[hstrip]", u"[vstrip]", u"[tilearea]", u"[button]", u"[indicator]"}) {
    for (const TextView corners :
         {u"topleft=-2000000000,-2000000000\nbottomright=2000000000,2000000000\n",
          u"place=1,1\nextent=-2,-2\n", u"topleft=4,3\nbottomright=2000000000,2000000000\n",
          u"place=-9,-9\nextent=32767,32767\nsize=9x9\n"}) {
      for (const TextView source :
           {u"source=0,0\n", u"source=2000000000,-2000000000\n",
            u"sourceoff=-2000000000,1900000000\nsourceoffalpha=-2000000000,2\n",
            u"striptype=2\nsolidcol=1,2,3\nalpha=9\n", u"striptype=2\nstartcol=9,9,9\n"}) {
        for (const TextView tile :
             {u"width=1\nheight=1\nsize=1x1\n", u"width=32767\nheight=32767\ntiletype=1\n"})
          skins.push_back(Text(kind).append(u"\n").append(corners).append(source).append(tile));
      }
    }
  }
  for (const Rect& clip :
       {Rect{2, 1, 4, 3}, Rect{-kFarthestCoordinate, 3, kFarthestCoordinate, kFarthestCoordinate},
        Rect{5, 0, 2, 9}, Rect{6, 4, 9, 9}}) {
    surface = Surface({6, 4});
    for (view.sampling = Sampling::kNearest; view.sampling <= Sampling::kMixed;
         view.sampling = static_cast<Sampling>(static_cast<int>(view.sampling) + 1))
      for (const Text& skin : skins) Draw(skin, clip);
    for (std::int32_t at = 0; at < 24; ++at) {
      const Point point{at % 6, at / 6};
      EXPECT_TRUE(clip.Contains(point) || surface[point] == Colour()) << point.x << "," << point.y;
    }
  }
}

TEST_F(Drawing, SetsTextsInTheirOrderWithPlaceholdersReplaced) {
  Draw(
      u"[text]\nplace=1,2\nextent=-1,2\ntext=%title%: 100% %Title%\n"
      u"[text]\ntext=%EMPTY%%NOBODY%%%TITLE\n"
      u"[text]\nnormal=0\ntext=unseen\n"
      u"[text]\ntext=50%TITLE%");
  ASSERT_EQ(texts.texts.size(), 3u);
  EXPECT_EQ(texts.texts[0].first, (Rect{1, 2, 5, 4}));
  EXPECT_EQ(texts.texts[0].second, u"100%TITLE%: 100% 100%TITLE%");
  EXPECT_EQ(texts.texts[1].second, u"%NOBODY%%%TITLE");
  EXPECT_EQ(texts.texts[2].second, u"50100%TITLE%");
}

TEST_F(Drawing, KeepsANoteOfTheKeyColourFromBeingSeenThrough) {
  const SkinData skin = ParseSkin(u"transparent=255,0,255");
  EXPECT_EQ(PaperColour(skin, kKey, false), (Colour{255, 1, 255}));
  EXPECT_EQ(PaperColour(skin, kKey, true), kKey);
  EXPECT_EQ(PaperColour(SkinData(), kKey, false), kKey);
  EXPECT_EQ(PaperColour(ParseSkin(u"transparent=9,255,9"), {9, 255, 9}, false), (Colour{9, 254, 9}));
  view.colour = kKey;
  EXPECT_EQ(Row(u"[hstrip]", u"striptype=2\nsolidcol=255,255,255"), Colours(3, {255, 1, 255}));
  EXPECT_EQ(surface[(Point{0, 0})], (Colour{255, 1, 255}));
}

TEST_F(Drawing, StopsWhereASkinWouldPaintTheWindowOverAndOver) {
  Text skin;
  for (int i = 0; i < 500; ++i) skin += u"[text]\nplace=0,0\nsize=30000x30000\ntext=x\n";
  Draw(skin);
  EXPECT_EQ(texts.texts.size(), 24u);
}

}  // namespace
}  // namespace jotlets
