#include "note/actions.h"

#include <gtest/gtest.h>

#include <set>

#include "note/action_state.h"
#include "note/shortcuts.h"

namespace jotlets {
namespace {

TEST(Actions, HaveOneCodeEachFrom1To169) {
  std::set<Text> names;
  for (std::int32_t code = 1; code <= 169; ++code) {
    names.insert(ActionName(code));
    EXPECT_EQ(ActionFromName(ActionName(code)), code);
  }
  EXPECT_EQ(names.size(), 169u);
  for (const std::int32_t code : {-1, 0, 170}) EXPECT_EQ(ActionName(code), u"");
}

// One of each stretch of the table: a name too many, missing or misplaced shifts the next of these.
TEST(Actions, KeepTheirCodes) {
  const std::pair<TextView, std::int32_t> kPlaces[] = {{u"print", 10},
                                                       {u"newjotlet", 20},
                                                       {u"rescue", 30},
                                                       {u"undo", 37},
                                                       {u"center", 46},
                                                       {u"save", 54},
                                                       {u"scrolldown", 59},
                                                       {u"bulletsnone", 61},
                                                       {u"user1", 65},
                                                       {u"lock", 69},
                                                       {u"sendtoff9", 83},
                                                       {u"applystyle0", 84},
                                                       {u"pendropper", 97},
                                                       {u"findtext", 109},
                                                       {u"penwidth1", 115},
                                                       {u"penwidth21", 125},
                                                       {u"hilitenone", 131},
                                                       {u"hiliteblue", 136},
                                                       {u"transparentopaque", 137},
                                                       {u"stang", 150},
                                                       {u"solo", 153},
                                                       {u"negative", 160},
                                                       {u"floodfill", 165},
                                                       {u"orphancheck", 169}};
  for (const auto& [name, code] : kPlaces) EXPECT_EQ(ActionFromName(name), code) << ToUtf8(name);
}

TEST(Actions, AreFoundWithoutRegardToCaseAndOnlyWhole) {
  for (const TextView name : {u"close", u"Close", u"CLOSE"}) EXPECT_EQ(ActionFromName(name), kActionClose);
  for (const TextView name : {u"closed", u"clos", u"", u" close", u"penwidth2", u"sendtoff10"})
    EXPECT_EQ(ActionFromName(name), kActionNone) << ToUtf8(name);
}

TEST(Shortcuts, AreWhatMenusShowAndLeadToOneCommandEach) {
  std::set<ActionCode> reached;
  std::set<Text> texts;
  for (unsigned each = 0; each < 8 * 256; ++each) {
    const Shortcut pressed{static_cast<std::uint16_t>(each / 8), (each & 1) != 0, (each & 2) != 0,
                           (each & 4) != 0};
    const ActionCode action = ActionFromKey(pressed);
    if (action == kActionNone) continue;
    reached.insert(action);
    const Text text = ShortcutText(action);
    EXPECT_TRUE(texts.insert(text).second) << ToUtf8(text) << " twice";
    const auto shows = [&text](TextView modifier) { return text.find(modifier) != Text::npos; };
    EXPECT_TRUE(shows(u"Ctrl+") == pressed.ctrl && shows(u"Alt+") == pressed.alt &&
                shows(u"Shift+") == pressed.shift);
    const bool isLetter =
        (pressed.key >= '0' && pressed.key <= '9') || (pressed.key >= 'A' && pressed.key <= 'Z');
    EXPECT_EQ(text.back() == pressed.key, isLetter) << ToUtf8(text) << " has no name for its key";
    // Letters alone are typed, and Ctrl with Alt types the third letters of many keyboards.
    EXPECT_TRUE(pressed.ctrl != pressed.alt || !isLetter) << ToUtf8(text);
  }
  for (int code = 1; code < kActionEnd; ++code) {
    const auto action = static_cast<ActionCode>(code);
    EXPECT_EQ(ShortcutText(action).empty(), !reached.contains(action)) << "another command has its key";
  }
}

TEST(Shortcuts, OfWindowsAreNoneOfTheCommands) {
  constexpr std::uint16_t kTab = 0x09;
  constexpr std::uint16_t kLeft = 0x25;
  constexpr std::uint16_t kDown = 0x28;
  EXPECT_EQ(WindowKeyFrom({kLeft, false, false, true}).move, (Point{-8, 0}));
  EXPECT_EQ(WindowKeyFrom({kDown, false, true, true}).grow, (Size{0, 8}));
  EXPECT_EQ(WindowKeyFrom({kTab, true, true, false}).toNote, -1);
  // Ctrl with an arrow belongs to the text, with Alt as well to the system.
  EXPECT_EQ(WindowKeyFrom({kLeft, true, false, true}), WindowKey{});
  for (std::uint16_t key = 1; key < 0xFF; ++key) {
    for (int held = 0; held < 8; ++held) {
      const Shortcut pressed{key, (held & 1) != 0, (held & 2) != 0, (held & 4) != 0};
      EXPECT_TRUE(ActionFromKey(pressed) == kActionNone || WindowKeyFrom(pressed) == WindowKey{}) << key;
    }
  }
}

TEST(ActionState, OfOpacityStoresWhatRemains) {
  EXPECT_EQ(OpacityOf(kActionTransparentOpaque), 0);
  for (std::int32_t percent = 10; percent <= 90; percent += 10) {
    const ActionCode action = ActionFromName(u"transparent" + IntText(percent) + u"pc");
    EXPECT_EQ(OpacityOf(action), 100 - percent);
    EXPECT_TRUE(StateOf(action, {.transparency = 100 - percent}).checked);
    EXPECT_FALSE(StateOf(action, {.transparency = percent == 50 ? 0 : percent}).checked);
  }
  EXPECT_TRUE(!OpacityOf(kActionLiftFormat) && !OpacityOf(kActionHiliteBlue));
}

TEST(ActionState, EnablesWhatTheNoteAndItsTextAllow) {
  ActionFacts facts;
  facts.edit.hasSelection = facts.edit.canPaste = true;
  const auto enabled = [&facts] {
    Text names;
    for (const ActionCode action :
         {kActionRoll, kActionSetSkin, kActionDefaultSkin, kActionCut, kActionCopy, kActionUndo, kActionPaste,
          kActionBold, kActionHiliteYellow, kActionFindText, kActionDummy, kActionNone, kActionEnd,
          static_cast<ActionCode>(-1)}) {
      if (StateOf(action, facts).enabled) names += ActionName(action) + u" ";
    }
    return ToUtf8(names);
  };
  EXPECT_EQ(enabled(), "roll setskin defaultskin cut copy paste bold hiliteyellow findtext ");
  facts.readOnly = true;
  EXPECT_EQ(enabled(), "roll setskin defaultskin copy findtext ");
  facts.edit.hasSelection = false, facts.skinFixed = true;
  EXPECT_EQ(enabled(), "roll findtext ");
  facts.image = true, facts.readOnly = false, facts.edit.canUndo = true;
  EXPECT_EQ(enabled(), "roll ");
}

TEST(ActionState, ChecksOneOfEachFamilyAndNoneWhereParagraphsDiffer) {
  ActionFacts facts;
  const auto checked = [&facts] {
    Text names;
    for (int code = 1; code < kActionEnd; ++code)
      if (StateOf(static_cast<ActionCode>(code), facts).checked) names += ActionName(code) + u" ";
    return ToUtf8(names);
  };
  EXPECT_EQ(checked(), "transparentopaque ");
  facts.rolled = facts.user2 = facts.edit.italic = true, facts.transparency = 33;
  facts.edit.alignment = Alignment::kCenter, facts.edit.bullets = Bullets::kLetters;
  facts.edit.highlight = Highlight::kNoHighlight;
  EXPECT_EQ(checked(), "roll center italic bulletsletters user2 hilitenone ");
}

}  // namespace
}  // namespace jotlets
