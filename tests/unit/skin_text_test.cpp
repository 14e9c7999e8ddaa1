#include "skin/skin_text.h"

#include <gtest/gtest.h>

#include <set>

namespace jotlets {
namespace {

Coordinate C(TextView text) { return ParseCoordinate(text); }

SkinElement Element(TextView keys) { return ParseSkin(u"[text]\n" + Text(keys)).elements.at(0); }

TEST(ParseSkin, PutsEverySkinWideKeyIntoItsPlace) {
  const SkinData s = ParseSkin(
      u"skinname=A skin\r\nnotes= by A, http://b \r\nauthorname=C\r\nauthoremail=d@e\r\nauthorurl=f=g\r\n"
      u"version=8\r\ntop=20\r\nbottom=12\r\nleft=10\r\nright=11\r\nrolledheight=19\r\nbitmap=skin.png \r\n"
      u"transparent=255,0,254\r\nregion=7\r\nminimumwidth=150\r\nminimumheight=45\r\n"
      u"minimumthumbtrackheight=15\r\ntitlebar=21,1,-20,m17\r\ntitletooltip=1\r\ndarkpapers="
      u"1\r\ntooltipfontname=Arial\r\n"
      u"tooltipfontsize=9\r\nusescrollbar=1\r\nscrollbar=-9,30,-24,7\r\nscrollbardrawwidthminimum=1\r\n"
      u"scrollbardrawwidthmaximum=2\r\nscrollbardrawheightminimum=3\r\nscrollbardrawheightmaximum=4\r\n"
      u"drawonrtfbg=1\r\nmode=stack\r\nrowheight=36\r\ndefaultstyle=-12|0|Tahoma\r\nstackfilename=stack."
      u"ini\r\n");
  EXPECT_EQ((std::vector{s.skinName, s.notes, s.authorName, s.authorEmail, s.authorUrl, s.bitmap,
                         s.tooltipFontName, s.defaultStyle, s.stackFileName}),
            (std::vector<Text>{u"A skin", u" by A, http://b ", u"C", u"d@e", u"f=g", u"skin.png", u"Arial",
                               u"-12|0|Tahoma", u"stack.ini"}));
  const DrawBounds& bounds = s.scrollbarDrawBounds;
  EXPECT_EQ((std::vector{s.version, s.top, s.bottom, s.left, s.right, s.rolledHeight, s.minimumWidth,
                         s.minimumHeight, s.minimumThumbTrackHeight, s.tooltipFontSize, bounds.widthMinimum,
                         bounds.widthMaximum, bounds.heightMinimum, bounds.heightMaximum, s.rowHeight}),
            (std::vector{8, 20, 12, 10, 11, 19, 150, 45, 15, 9, 1, 2, 3, 4, 36}));
  EXPECT_EQ(s.transparent, (Colour{255, 0, 254}));
  EXPECT_EQ(s.region, std::vector{C(u"7")});
  EXPECT_EQ(s.titlebar, (CoordinateCorners{{C(u"21"), C(u"1")}, {C(u"-20"), C(u"m17")}}));
  EXPECT_EQ(s.scrollbar, (CoordinateTrack{C(u"-9"), C(u"30"), C(u"-24"), 7}));
  EXPECT_TRUE(s.titleTooltip && s.darkPapers && s.useScrollbar && s.drawOnRtfBg && s.isStack);
  EXPECT_TRUE(s.elements.empty());
}

TEST(ParseSkin, PutsEveryElementKeyIntoItsPlace) {
  const SkinElement e = Element(
      u"name=zap\nplace=-19,50%\ntopleft=1,m2\nbottomright=tl3,br4\nextent=-5,sc6\nsize=18X19\nwidth=20\n"
      u"height=21\ndrawwidthminimum=22\ndrawwidthmaximum=23\ndrawheightminimum=24\ndrawheightmaximum=25\n"
      u"source=0,1\nsourcealpha=2,3\nsourceoff=4,5\nsourceoffalpha=6,7\nsourcerollover=8,9\n"
      u"sourcerolloveralpha=10,11\nalpha=76\naction= CLOSE\ntype=ontop\nstriptype=2\ntiletype=1\n"
      u"startcol=1,2,3\nendcol=4,5,6\nsolidcol=7,8,9\nshade=160\ntint= "
      u"Quiet\nfont=Tahoma\npoint=8\ncol=10,11,12\n"
      u"text= %TITLE%=\nalignment=middle\nsetcase=3\nformat=Bold,no_aa,nonsense,\ngiveway=1\npack=22\n"
      u"condition=instack\nconditionvalue=30\nnormal=0\nrolled=1\nfocus=0\nmouseover=1\n");
  EXPECT_EQ((std::vector{e.name, e.type, e.font, e.text, e.condition}),
            (std::vector<Text>{u"zap", u"ontop", u"Tahoma", u" %TITLE%=", u"instack"}));
  EXPECT_EQ(e.place, (CoordinatePoint{C(u"-19"), C(u"50%")}));
  EXPECT_EQ(e.topLeft, (CoordinatePoint{C(u"1"), C(u"m2")}));
  EXPECT_EQ(e.bottomRight, (CoordinatePoint{C(u"tl3"), C(u"br4")}));
  EXPECT_EQ(e.extent, (CoordinatePoint{C(u"-5"), C(u"sc6")}));
  EXPECT_EQ(e.size, (Size{18, 19}));
  const DrawBounds& bounds = e.drawBounds;
  EXPECT_EQ((std::vector{e.width, e.height, bounds.widthMinimum, bounds.widthMaximum, bounds.heightMinimum,
                         bounds.heightMaximum, e.stripType, e.tileType, e.point, e.setCase, e.conditionValue,
                         std::int32_t{e.action}, e.pack}),
            (std::vector{20, 21, 22, 23, 24, 25, 2, 1, 8, 3, 30, 1, 22}));
  EXPECT_EQ((std::vector{e.source.picture, e.source.mask, e.sourceOff.picture, e.sourceOff.mask,
                         e.sourceRollover.picture, e.sourceRollover.mask}),
            (std::vector<std::optional<Point>>{Point{0, 1}, Point{2, 3}, Point{4, 5}, Point{6, 7},
                                               Point{8, 9}, Point{10, 11}}));
  EXPECT_EQ(e.alpha, 76);
  EXPECT_EQ(e.shade, 100);
  EXPECT_EQ(e.tint, SkinTint::kQuiet);
  EXPECT_EQ((std::vector{*e.startColour, *e.endColour, *e.solidColour, e.colour}),
            (std::vector<Colour>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}}));
  EXPECT_EQ(e.alignment, TextAlignment::kMiddle);
  EXPECT_TRUE(e.format.bold && e.format.noAa && e.giveWay);
  EXPECT_FALSE(e.format.italic || e.format.underline || e.format.transparent);
  EXPECT_EQ((std::vector{e.normal, e.rolled, e.focus, e.mouseOver}),
            (std::vector<std::optional<bool>>{false, true, false, true}));
  const TextFormat others = Element(u"format=italic,underline, transparent").format;
  EXPECT_TRUE(others.italic && others.underline && others.transparent && !others.bold && !others.noAa);
}

TEST(ParseSkin, StartsElementsOnlyAtTheSixSections) {
  const SkinData s = ParseSkin(
      u"top=1\n[tilearea]\nname=a\n\n[slider]\nname=b\ntop=2\n[indicator]\r\nname=c\nplace\n=5,5\nNAME=d\n"
      u"[text]\ntop=3\n[vstrip]\n[hstrip]\n[button] \nname=e\n[BUTTON]\nname=f\n[button]\nname=g");
  std::vector<std::pair<ElementKind, Text>> found;
  for (const SkinElement& e : s.elements) found.emplace_back(e.kind, e.name);
  EXPECT_EQ(found, (std::vector<std::pair<ElementKind, Text>>{{ElementKind::kTilearea, u"a"},
                                                              {ElementKind::kIndicator, u"c"},
                                                              {ElementKind::kText, u""},
                                                              {ElementKind::kVstrip, u""},
                                                              {ElementKind::kHstrip, u""},
                                                              {ElementKind::kButton, u"g"}}));
  EXPECT_EQ(s.top, 1);
}

TEST(ParseSkin, TakesNoNumberAs0AndBringsNumbersIntoRange) {
  const SkinData s = ParseSkin(
      u"top=x\nminimumwidth=-5\nminimumheight=99999999999\ntransparent=-1,300,x\nmode=note\n"
      u"scrollbardrawheightmaximum=-1\ntitlebar=1,2,3\nscrollbar=\ntitletooltip=2\nregion=0,0,-1,0,m0,-1");
  EXPECT_EQ((std::vector{s.top, s.minimumWidth, s.minimumHeight}), (std::vector{0, 0, kLongestLength}));
  EXPECT_EQ(s.transparent, (Colour{0, 255, 0}));
  EXPECT_TRUE(s.scrollbarDrawBounds.Hold({5000, 5000}));
  EXPECT_FALSE(s.titlebar || s.scrollbar || s.titleTooltip || s.isStack);
  EXPECT_EQ(s.region.size(), 6u);

  const SkinElement e = Element(
      u"alpha=5\nalpha=-1\nsource=3,4\nsource=-1,-1\nsourceoff=-1,0\nsize=18\naction=closed\nplace=5\n"
      u"solidcol=1,2\nsourcealpha=1");
  EXPECT_FALSE(e.alpha || e.source.picture || e.source.mask || e.size || e.solidColour || e.normal);
  EXPECT_EQ(e.sourceOff.picture, (Point{-1, 0}));
  EXPECT_EQ(e.action, kActionNone);
  EXPECT_EQ(e.place, CoordinatePoint());
  EXPECT_EQ(Element(u"alpha=300").alpha, 255);
  EXPECT_FALSE(Element(u"drawwidthminimum=150\ndrawheightmaximum=40").drawBounds.Hold({149, 40}));
  EXPECT_TRUE(Element(u"drawwidthminimum=150\ndrawheightmaximum=40").drawBounds.Hold({150, 40}));
  EXPECT_FALSE(Element(u"drawwidthmaximum=150\ndrawheightminimum=40").drawBounds.Hold({150, 39}));
  EXPECT_FALSE(Element(u"drawwidthmaximum=150\ndrawheightmaximum=40").drawBounds.Hold({150, 41}));
}

TEST(ParseSkin, LeavesOutElementsBeyondTheMost) {
  Text text;
  for (std::size_t i = 0; i <= kMaxElements; ++i)
    text.append(u"[text]\nname=").append(IntText(int(i))) += u'\n';
  const SkinData s = ParseSkin(text);
  ASSERT_EQ(s.elements.size(), kMaxElements);
  EXPECT_EQ(s.elements.back().name, IntText(kMaxElements - 1));
}

TEST(ParseSkin, BoundsTheKindsOfLetters) {
  Text text = u"[text]\nfont=First\npoint=9\n";
  for (int i = 0; i < 100; ++i)
    text.append(u"[text]\nformat=bold,transparent\npoint=99999\nfont=").append(IntText(i)) += u'\n';
  const SkinData s = ParseSkin(text);
  std::set<Text> fonts;
  for (const SkinElement& element : s.elements) fonts.insert(element.font);
  EXPECT_EQ(fonts.size(), kMaxLetters);
  EXPECT_EQ(s.elements[1].point, kMaxPoint);
  EXPECT_EQ(s.elements[100].font, u"First");
  EXPECT_EQ(s.elements[100].point, 9);
  EXPECT_TRUE(s.elements[100].format.transparent && !s.elements[100].format.bold);
}

}  // namespace
}  // namespace jotlets
