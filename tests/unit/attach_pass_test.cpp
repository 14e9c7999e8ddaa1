#include "schedule/attach_pass.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

constexpr Rect kScreen{0, 0, 2000, 1000};
constexpr std::int32_t kNow = 1000;

WindowFacts Window(Text title, Rect bounds = {100, 100, 500, 400}) {
  return {std::move(title), u"Edit", false, true, false, bounds};
}

JotletData Attached(Text title, Text className = u"Edit") {
  JotletData record;
  record.attachment.title = std::move(title);
  record.attachment.className = std::move(className);
  record.attachment.posType = 1;
  record.attachment.posX = 10;
  record.attachment.posY = -20;
  return record;
}

AttachDecision Pass(const std::vector<JotletData>& waiting, const std::vector<AttachedNote>& desktop,
                    const std::vector<WindowFacts>& windows) {
  AttachMatcher matcher(windows);
  std::vector<const JotletData*> notes;
  for (const JotletData& record : waiting) notes.push_back(&record);
  return DecideAttachPass(notes, desktop, matcher, kScreen, kNow);
}

bool Comes(const JotletData& record, const std::vector<WindowFacts>& windows) {
  return !Pass({record}, {}, windows).arrivals.empty();
}

TEST(Patterns, HaveAStarAtEitherEndOnly) {
  struct Case {
    TextView pattern, meets, fails;
  };
  for (const Case& c :
       {Case{u"*Notepad", u"notes.txt - Notepad", u"Notepad++ x"},
        Case{u"Notepad*", u"NOTEPAD++ x", u"a Notepad"}, Case{u"*pad*", u"Notepad++", u"note"},
        Case{u"Notepad", u"notePAD", u"Notepad "}, Case{u"", u"", u"x"}, Case{u"a*b", u"A*b", u"axb"},
        Case{u"*a*b", u"xa*b", u"aab"}, Case{u"*\u00C4", u"\u00E4", u"a"}, Case{u"aba*", u"aba", u"ab"},
        Case{u"*aa", u"aa", u"a"}}) {
    EXPECT_TRUE(TextPattern(c.pattern).Matches(c.meets)) << ToUtf8(c.pattern);
    EXPECT_FALSE(TextPattern(c.pattern).Matches(c.fails)) << ToUtf8(c.pattern);
  }
  for (const TextView all : {u"*", u"**"})
    EXPECT_TRUE(TextPattern(all).Matches(u"") && TextPattern(all).Matches(u"x"));
}

TEST(AttachPass, WaitingNotesComeToTheUppermostVisibleWindowThatMatches) {
  std::vector<WindowFacts> windows = {Window(u"x"), Window(u"b.txt - Pad", {1, 2, 3, 4}),
                                      Window(u"c.txt - Pad")};
  AttachDecision pass =
      Pass({Attached(u"*pad"), Attached(u"*pad", u"Other"), Attached(u"*pad*")}, {}, windows);
  EXPECT_EQ(pass.arrivals,
            (std::vector<AttachDecision::Arrival>{{0, Point{11, -18}, false}, {2, Point{11, -18}, false}}));
  windows[1].visible = false;
  EXPECT_EQ(Pass({Attached(u"*pad")}, {}, windows).arrivals[0].position, (Point{110, 80}));
  JotletData own = Attached(u"*pad");
  own.attachment.posType = 0;
  EXPECT_EQ(Pass({own}, {}, windows).arrivals[0].position, std::nullopt);
}

TEST(AttachPass, RequirementsHoldForComingAndForStaying) {
  std::vector<WindowFacts> windows = {Window(u"Pad")};
  JotletData focus = Attached(u"pad"), visible = Attached(u"pad");
  focus.attachment.onlyFocus = visible.attachment.onlyVisible = true;
  EXPECT_TRUE(!Comes(focus, windows) && Comes(visible, windows));
  windows[0].foreground = windows[0].minimised = true;
  EXPECT_TRUE(Comes(focus, windows) && !Comes(visible, windows));
  const Point there{110, 80};
  const std::vector<AttachedNote> notes = {{&focus, there}, {&visible, there}};
  EXPECT_EQ(Pass({}, notes, windows).departs, std::vector<std::size_t>{1});
  windows[0].foreground = windows[0].minimised = false;
  EXPECT_EQ(Pass({}, notes, windows).departs, std::vector<std::size_t>{0});
  // What is hidden for a moment keeps its notes, but leads them nowhere.
  windows[0].visible = false;
  windows[0].bounds = {900, 900, 999, 999};
  const AttachDecision pass = Pass({}, notes, windows);
  EXPECT_TRUE(pass.departs == std::vector<std::size_t>{0} && pass.moves.empty());
}

TEST(AttachPass, NotesFollowTheirWindowUnlessTheyAreDragged) {
  const std::vector<WindowFacts> windows = {Window(u"Pad")};
  const JotletData record = Attached(u"pad");
  JotletData own = record;
  own.attachment.posType = 2;
  const std::vector<AttachedNote> notes = {
      {&record, {0, 0}}, {&record, {110, 80}}, {&record, {0, 0}, true}, {&own, {0, 0}}};
  EXPECT_EQ(Pass({}, notes, windows).moves, (std::vector<AttachDecision::Move>{{0, {110, 80}}}));
  EXPECT_EQ(Pass({}, notes, {}).departs, (std::vector<std::size_t>{0, 1, 3}));
  // A window that is off the screen takes no note along.
  EXPECT_EQ(Pass({}, {{&record, {0, 0}}}, {Window(u"Pad", {-32000, 990, -31000, 1200})}).moves[0].to,
            (Point{8, 970}));
}

TEST(AttachPass, AlarmsBringNotesAndKeepThem) {
  JotletData due = Attached(u"pad"), later = Attached(u"pad");
  due.alarm = kNow;
  later.alarm = kNow + 1;
  EXPECT_EQ(Pass({due, later}, {}, {}).arrivals,
            (std::vector<AttachDecision::Arrival>{{0, std::nullopt, true}}));
  // Waiting alarms start once the window is in front, or gone.
  std::vector<WindowFacts> windows = {Window(u"Pad")};
  const std::vector<AttachedNote> notes = {{&due, {110, 80}, false, true, false},
                                           {&due, {110, 80}, false, false, true}};
  EXPECT_TRUE(Pass({}, notes, windows).alarms.empty());
  windows[0].foreground = true;
  EXPECT_EQ(Pass({}, notes, windows).alarms, std::vector<std::size_t>{1});
  const AttachDecision left = Pass({}, notes, {});
  EXPECT_TRUE(left.alarms == std::vector<std::size_t>{1} && left.departs.empty());
  // A note that is to be seen only in front waits for its window too, and does not come and go meanwhile.
  due.attachment.onlyFocus = true;
  windows[0].foreground = false;
  const AttachDecision behind = Pass({}, notes, windows);
  EXPECT_TRUE(behind.alarms.empty() && behind.departs.empty());
}

TEST(AttachPass, PatternsAndTitlesOfAnyLengthAreCompared) {
  const Text longTitle(100'000, u'x');
  EXPECT_TRUE(Comes(Attached(Text(kMaxWindowText, u'X')), {Window(longTitle)}));
  EXPECT_FALSE(Comes(Attached(Text(1000, u'x')), {Window(longTitle)}));
  EXPECT_TRUE(Comes(Attached(u""), {Window(u"")}));
  // Pairs of patterns that read the same when they are joined.
  const std::vector<WindowFacts> windows = {{u"a", u"bc", false, true, false, {}}};
  const AttachDecision pass = Pass({Attached(u"ab", u"c"), Attached(u"a", u"bc")}, {}, windows);
  EXPECT_TRUE(pass.arrivals.size() == 1 && pass.arrivals[0].waiting == 1);
}

TEST(AttachPass, OffsetsSaturate) {
  JotletData record = Attached(u"pad");
  HoldToTarget(record.attachment, {5, 2147483647}, {100, -9, 0, 0});
  EXPECT_TRUE(record.attachment.posX == -95 && record.attachment.posY == 2147483647);
  EXPECT_EQ(AttachedPosition(record.attachment, {100, 9, 0, 0}), (Point{5, 2147483647}));
}

}  // namespace
}  // namespace jotlets
