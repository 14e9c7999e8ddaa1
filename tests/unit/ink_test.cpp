// What is written on notes can be read: every skin that comes with the program, but for the two whose colours
// are given once and for all, on every paper and in every state, as it is drawn.
#include "looks/ink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "data/rtf_ink.h"
#include "fakes.h"
#include "note/papers.h"
#include "skin/skin_contrast.h"
#include "skin/skin_drawing.h"
#include "skin/skin_layout.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

std::vector<Colour> Papers() {
  std::vector<Colour> papers(kPapers.begin(), kPapers.end());
  papers.insert(papers.end(), kDarkPapers.begin(), kDarkPapers.end());
  for (const Colour own : {Colour{255, 255, 255}, Colour{0, 0, 0}, Colour{72, 104, 152}, Colour{0, 160, 160}})
    papers.push_back(own);
  return papers;
}

TEST(Ink, CanBeReadOnEveryColour) {
  for (int at = 0; at < 16 * 16 * 16; ++at) {
    const auto channel = [at](int shift) { return static_cast<std::uint8_t>((at >> shift & 15) * 17); };
    const Colour paper{channel(8), channel(4), channel(0)};
    ASSERT_GE(Contrast(InkOn(paper), paper), 4.5) << at;
    ASSERT_GE(Contrast(QuietInk(paper), paper), 4.5) << at;
    ASSERT_GE(Contrast(AccentOn(paper), paper), 3) << at;
  }
  EXPECT_NEAR(Contrast({255, 255, 255}, {0, 0, 0}), 21, 0.01);
  EXPECT_EQ(InkOn({43, 43, 43}), kLightInk);
  EXPECT_NEAR(Contrast(TitleInk({240, 229, 173}), {240, 229, 173}), 7.2, 0.2);
  const Colour title = TitleInk({195, 216, 240});
  EXPECT_TRUE(title.b > title.g && title.g > title.r) << "a blue bar has a blue title";
}

class Pixels {
 public:
  explicit Pixels(Size size) : size_(size), bytes_(static_cast<std::size_t>(size.width * size.height) * 4) {}
  Canvas MakeCanvas() { return {bytes_.data(), size_, static_cast<std::size_t>(size_.width) * 4}; }
  Colour At(std::int32_t x, std::int32_t y) const {
    const std::uint8_t* pixel = &bytes_[static_cast<std::size_t>(y * size_.width + x) * 4];
    return {pixel[2], pixel[1], pixel[0]};
  }

 private:
  Size size_;
  std::vector<std::uint8_t> bytes_;
};

struct Least {
  double title = 21;
  double rest = 21;
};

class NoWords final : public SkinWords {
 public:
  std::optional<Text> Find(TextView) const override { return Text(u"x"); }
};

// Compares the ink of each text with what lies behind its letters: the middle half of its area.
class TextContrasts final : public SkinTextSetter {
 public:
  TextContrasts(const Pixels& pixels, Size size, Least& least)
      : pixels_(pixels), size_(size), least_(least) {}
  void SetText(const SkinElement& element, const Rect& area, const Text&, Colour ink) override {
    const bool title = element.text == u"%TITLE%" || (element.text == u"%STACKNAME%" && element.format.bold);
    double& least = title ? least_.title : least_.rest;
    for (std::int32_t y = area.top + area.Height() / 4; y < area.bottom - area.Height() / 4; ++y) {
      for (std::int32_t x = std::max(area.left, 0); x < std::min(area.right, size_.width); ++x)
        if (y >= 0 && y < size_.height) least = std::min(least, Contrast(ink, pixels_.At(x, y)));
    }
  }
  std::int32_t WidthOf(const SkinElement&, const Text& words) override {
    return static_cast<std::int32_t>(words.size()) * 6;
  }

 private:
  const Pixels& pixels_;
  Size size_;
  Least& least_;
};

class NoTexts final : public SkinTextSetter {
  void SetText(const SkinElement&, const Rect&, const Text&, Colour) override {}
  std::int32_t WidthOf(const SkinElement&, const Text&) override { return 0; }
};

// What the last element of the skin adds to the picture: the contrast within its area, 1 when it changes
// nothing.
double ContrastOfLast(const SkinData& skin, const Picture& sheet, const SkinView& view, const Rect& area) {
  SkinData without = skin;
  without.elements.pop_back();
  Pixels before(view.window);
  Pixels after(view.window);
  NoTexts texts;
  for (auto& [pixels, data] : {std::pair<Pixels&, const SkinData&>(before, without), {after, skin}}) {
    Canvas canvas = pixels.MakeCanvas();
    canvas.SetClip(area);
    DrawSkin(canvas, data, sheet, view, NoWords(), texts);
  }
  double changed = 1;
  double lightest = 0;
  double darkest = 1;
  for (std::int32_t y = std::max(area.top, 0); y < std::min(area.bottom, view.window.height); ++y) {
    for (std::int32_t x = std::max(area.left, 0); x < std::min(area.right, view.window.width); ++x) {
      changed = std::max(changed, Contrast(before.At(x, y), after.At(x, y)));
      lightest = std::max(lightest, Luminance(after.At(x, y)));
      darkest = std::min(darkest, Luminance(after.At(x, y)));
    }
  }
  return changed < 1.2 ? changed : (lightest + 0.05) / (darkest + 0.05);
}

void MeasureGlyphs(const SkinData& skin, const Picture& sheet, SkinView view, Least& least) {
  SkinData part = skin;
  for (std::size_t count = skin.elements.size(); count > 0; --count) {
    const ElementKind kind = skin.elements[count - 1].kind;
    if (kind == ElementKind::kButton || kind == ElementKind::kIndicator) {
      for (const std::size_t hot : {kNoElement, count - 1}) {
        view.hotButton = hot;
        const ArrangedElement made = ArrangeElements(part, view).back();
        if (made.shown && made.picture != nullptr)
          least.rest = std::min(least.rest, ContrastOfLast(part, sheet, view, made.area));
      }
    }
    part.elements.pop_back();
  }
}

Least Measured(const SkinData& skin, const Picture& sheet, Colour paper,
               const std::optional<ContrastColours>& contrast = {}) {
  Least least;
  for (int state = 0; state < 32; ++state) {
    SkinView view{{240, 120}, paper};
    view.contrast = contrast;
    view.focus = (state & 1) != 0;
    view.mouseOver = (state & 2) != 0;
    view.rolled = (state & 4) != 0;
    if (view.rolled) view.window.height = skin.rolledHeight;
    for (int each = 0; each < static_cast<int>(SkinState::kScrollbarRequired); ++each)
      view.states.Set(static_cast<SkinState>(each), (state & 8) != 0);
    view.states.Set(SkinState::kSounding, (state & 16) != 0);
    view.states.Set(SkinState::kRolled, view.rolled);
    Pixels pixels(view.window);
    Canvas canvas = pixels.MakeCanvas();
    TextContrasts texts(pixels, view.window, least);
    DrawSkin(canvas, skin, sheet, view, NoWords(), texts);
    if (!view.rolled) MeasureGlyphs(skin, sheet, view, least);
  }
  return least;
}

TEST(Ink, OfEverySkinCanBeReadOnEveryPaperInEveryState) {
  for (const char* name : {"paper/paper.ini", "paper/stack.ini", "paper/large.ini", "paper/bare.ini",
                           "midnight/midnight.ini", "plain/plain.ini"}) {
    const std::filesystem::path path = std::string("../src/res/skins/") + name;
    const SkinData skin = ParseSkin(FromUtf8(FileBytes(path.string().c_str())));
    const auto sheet = DecodePng(FileBytes((path.parent_path() / ToUtf8(skin.bitmap)).string().c_str()));
    ASSERT_TRUE(sheet && !skin.elements.empty()) << name;
    for (const Colour paper : Papers()) {
      const Least least = Measured(skin, *sheet, paper);
      const auto on = [&] {
        return std::string(name) + " on " + std::to_string(paper.r) + "," + std::to_string(paper.g) + "," +
               std::to_string(paper.b);
      };
      // Between light and dark no ink has more than the contrast of texts.
      EXPECT_GE(least.title, PaperOf(paper) ? kTitleContrast : kTextContrast) << on();
      EXPECT_GE(least.rest, kTextContrast) << on();
    }
  }
}

TEST(Ink, InHighContrastIsThatOfTheSystemAndFramesTellStates) {
  const ContrastColours colours{{0, 0, 0}, {255, 255, 255}, {26, 235, 255}, {0, 0, 0}, {255, 255, 0}};
  for (const char* name : {"paper/paper.ini", "paper/stack.ini", "paper/large.ini", "paper/bare.ini"}) {
    const std::filesystem::path path = std::string("../src/res/skins/") + name;
    const SkinData skin = ParseSkin(FromUtf8(FileBytes(path.string().c_str())));
    const auto sheet = DecodePng(FileBytes((path.parent_path() / ToUtf8(skin.bitmap)).string().c_str()));
    ASSERT_TRUE(sheet && CanShowContrast(skin)) << name;
    const SkinData made = ContrastSkin(skin);
    const Least least = Measured(made, *sheet, colours.paper, colours);
    EXPECT_GE(std::min(least.title, least.rest), 14) << name;
    for (const bool active : {false, true}) {
      SkinView view{{240, 120}, colours.paper};
      view.contrast = colours;
      view.focus = active;
      for (const SkinState state : {SkinState::kFormatBar, SkinState::kBold}) view.states.Set(state, active);
      Pixels pixels(view.window);
      Canvas canvas = pixels.MakeCanvas();
      NoTexts texts;
      DrawSkin(canvas, made, *sheet, view, NoWords(), texts);
      for (const auto& [x, y] :
           {std::pair{0, 0}, {239, 0}, {0, 119}, {239, 119}, {120, 1}, {1, 60}, {238, 60}})
        EXPECT_EQ(pixels.At(x, y), active ? colours.chosen : colours.ink) << name << x << "," << y;
      EXPECT_EQ(pixels.At(2, 60), active ? colours.chosen : colours.paper) << name;
      EXPECT_EQ(pixels.At(120, skin.titlebar->bottomRight.y.value), colours.ink)
          << name << ": line of the bar";
      if (!active || skin.formatBar == 0) continue;
      EXPECT_EQ(pixels.At(230, 84), colours.ink) << name << ": line of the bar at the foot";
      EXPECT_EQ(pixels.At(230, 100), colours.paper) << name << ": on which its buttons are seen";
      EXPECT_EQ(pixels.At(10, 92), colours.chosen) << name << ": bold holds";
    }
  }
  const SkinData own = ParseSkin(FromUtf8(FileBytes("../src/res/skins/default/skin.ini")));
  EXPECT_FALSE(CanShowContrast(own)) << "its pictures have colours of their own";
}

TEST(Ink, IsNotWrittenIntoRichText) {
  constexpr Colour kInk{240, 240, 240};
  const std::string entry = "\\red240\\green240\\blue240;";
  const std::string without = "{\\rtf1{\\fonttbl{\\f0 A;}}\\pard a\\plain b\\\\cf0 \\'e4}";
  const std::string with =
      "{\\rtf1{\\colortbl;" + entry + "}{\\fonttbl{\\f0 A;}}\\pard a\\plain\\cf1 b\\\\cf0 \\'e4}";
  const auto same = [](Colour own) { return own; };
  ShownColours shown;
  EXPECT_EQ(WithInk(without, kInk, same, shown), with);
  EXPECT_EQ(WithoutInk(with, kInk, shown).find("240"), std::string::npos);
  const std::string marks = "\\red0\\green0\\blue1;";
  EXPECT_EQ(WithInk("{\\rtf1{\\colortbl;\\red1\\green2\\blue3;;}\\cf2 a\\cf0 b\\cf1 c}", kInk, same, shown),
            "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;" + entry + entry + marks + "}\\cf2 a\\cf3 b\\cf1 c}");
  EXPECT_EQ(
      WithoutInk("{\\rtf1{\\colortbl;" + entry + marks + "\\red1\\green2\\blue3;}\\cf1 a}", kInk, shown),
      "{\\rtf1{\\colortbl;;;\\red1\\green2\\blue3;}\\cf1 a}");
  // Whatever the bytes are.
  for (const std::string rtf :
       {"", "{", "{\\rtf", "{\\rtf1{\\colortbl", "{\\rtf1{\\colortbl;{}}", "\\", "{\\rtf1\\bin3 \\cf",
        "{\\rtf1{\\colortbl\\red300\\green;\\red}\\cf99999999 \\highlight-1 }}}"})
    EXPECT_LE(WithoutInk(WithInk(rtf, kInk, same, shown), kInk, shown).size(), rtf.size() + 96) << rtf;
  // More of it than any editor makes stays as it is.
  std::string colours = "{\\rtf1{\\colortbl";
  for (int i = 0; i < 5000; ++i) colours += ';';
  for (const std::string& rtf :
       {colours + "}a}", std::string(100'000, '{'), "{\\rtf1" + std::string(100'000, '{')})
    EXPECT_EQ(WithInk(rtf, kInk, same, shown), rtf);
}

TEST(Ink, OfMarkedAndColouredWordsCanBeReadOnDarkPaperAndComesBack) {
  constexpr Colour kInk{240, 240, 240};
  constexpr Colour kPaper{34, 49, 68};
  const auto legible = [&](Colour own) { return LegibleOn(kPaper, own); };
  ShownColours shown;
  const std::string table =
      "{\\colortbl;\\red255\\green224\\blue102;\\red176\\green42\\blue30;\\red177\\green42\\blue30;"
      "\\red0\\green0\\blue60;}";
  const std::string rtf =
      "{\\rtf1" + table + "a{\\highlight1 b\\cf2 c}d\\cf2 e\\highlight1 f\\highlight4 g\\cf0 h\\plain i}";
  const std::string made = WithInk(rtf, kInk, legible, shown);
  // 5 is the ink, 6 that on marks, 7 and 8 are the lighter reds, 9 the lighter blue.
  EXPECT_TRUE(made.ends_with(
      "}a{\\highlight1\\cf6 b\\cf2 c}d\\cf7 e\\highlight1\\cf2 f\\highlight4\\cf7 g\\cf5 h\\plain\\cf5 i}"))
      << made;
  // Read back, the inks stand as empty entries in the table, which are no colours.
  EXPECT_TRUE(WithInk("{\\rtf1{\\colortbl;;\\red255\\green224\\blue102;}\\cf1 a\\highlight2\\cf1 b}", kInk,
                      legible, shown)
                  .ends_with("}\\cf1 a\\highlight2\\cf4\\cf4 b}"));
  WithInk(rtf, kInk, legible, shown);
  ASSERT_EQ(shown.size(), 3u);
  for (const auto& [colour, own] : shown) EXPECT_GE(Contrast(colour, kPaper), 4.4) << made;
  EXPECT_NE(shown[0].first, shown[1].first) << "each goes back to its own";
  const std::string back = WithoutInk(made, kInk, shown);
  EXPECT_NE(back.find(table.substr(0, table.size() - 1) +
                      ";;\\red176\\green42\\blue30;\\red177\\green42\\blue30;\\red0\\green0\\blue60;}"),
            std::string::npos)
      << back;
}

// As in high contrast, which has one colour for all text.
TEST(Ink, OfManyColoursThatAreShownAlikeEachComesBack) {
  constexpr Colour kInk{255, 255, 255};
  std::string table = "{\\colortbl;";
  for (int grey = 10; grey < 110; ++grey) {
    const std::string channel = std::to_string(grey);
    table += "\\red" + channel + "\\green" + channel + "\\blue" + channel + ";";
  }
  ShownColours shown;
  const std::string made = WithInk(
      "{\\rtf1" + table + "}\\cf1 a}", kInk, [&](Colour) { return kInk; }, shown);
  ASSERT_EQ(shown.size(), 100u);
  std::set<int> numbers;
  for (const auto& [colour, own] : shown) {
    numbers.insert(colour.r << 16 | colour.g << 8 | colour.b);
    EXPECT_GE(Contrast(colour, Colour{}), 17);
  }
  EXPECT_EQ(numbers.size(), shown.size());
  const std::string back = WithoutInk(made, kInk, shown);
  EXPECT_NE(back.rfind(table.substr(table.find("\\red"))), std::string::npos) << back;
}

}  // namespace
}  // namespace jotlets
