#include "action/actions.h"

#include "../docs/documents.h"

#include <gtest/gtest.h>

#include <cctype>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "action/action_state.h"
#include "action/action_table.h"
#include "action/note_menus.h"
#include "base/key_text.h"
#include "fakes.h"
#include "res/resource.h"

namespace jotlets {
namespace {

TEST(Actions, AreFoundByTheirWholeNameWithoutRegardToCase) {
  for (const NoteAction& row : kNoteActions) {
    EXPECT_EQ(ActionFromName(row.name), row.code);
    EXPECT_EQ(ActionFromName(ActionName(row.code)), row.code);
  }
  EXPECT_EQ(ActionName(kActionClose), u"close");
  for (const std::int32_t code : {-1, 0, std::int32_t{kActionEnd}}) EXPECT_EQ(ActionName(code), u"");
  for (const TextView name : {u"closed", u"clos", u"", u" close", u"penwidth2", u"sendtoff10"})
    EXPECT_EQ(ActionFromName(name), kActionNone) << ToUtf8(name);
}

// The letters that choose the entries of a menu; fails when one has none, or one that another has.
void ExpectOwnKeys(const std::vector<std::string>& texts) {
  std::set<int> keys;
  for (const std::string& text : texts) {
    const std::size_t mark = text.find('&');
    ASSERT_TRUE(mark != std::string::npos && mark + 1 < text.size()) << "'" << text << "' has no key";
    EXPECT_TRUE(keys.insert(std::toupper(text[mark + 1])).second) << text;
  }
}

TEST(Menus, OfNotesGiveEveryEntryATextAndAKeyOfItsOwn) {
  const ResourceTexts texts = TextsOf("..");
  for (auto menu = NoteMenu::kJotletMenu; menu <= NoteMenu::kStylesMenu;
       menu = static_cast<NoteMenu>(static_cast<int>(menu) + 1)) {
    std::vector<std::string> entries;
    for (const MenuRow& row : RowsOf(menu)) {
      const std::int32_t id = row.action != nullptr ? IDS_ACTION + row.action->code : row.other->text;
      if (id != 0) entries.push_back(ToUtf8(texts.String(id)));
    }
    EXPECT_FALSE(entries.empty());
    ExpectOwnKeys(entries);
  }
}

TEST(Menus, OfTheScriptGiveEveryEntryAKeyOfItsOwn) {
  const std::string script = FileBytes("../src/res/jotlets.rc");
  const ResourceTexts texts = TextsOf("..");
  const std::regex item("MENUITEM \"([^\"\t]*)");
  for (const char* const menu : {"IDM_TRAY MENU", "IDM_STACK MENU"}) {
    const std::size_t from = script.find(menu);
    const std::string part = script.substr(from, script.find("\nEND", from) - from);
    for (const std::int32_t turns : {IDS_HIDE_ALL, IDS_SHOW_ALL}) {
      std::vector<std::string> entries;
      for (std::sregex_iterator at(part.begin(), part.end(), item), end; at != end; ++at) {
        const std::string text = (*at)[1];
        // Deliberately without one.
        if (text == "New Jotlet from Clipboard") continue;
        entries.push_back(text == "xxxxxxxxxxxxx" ? ToUtf8(texts.String(turns)) : text);
      }
      EXPECT_GE(entries.size(), 10u);
      ExpectOwnKeys(entries);
    }
  }
}

TEST(Shortcuts, ConsistOfTheWordsThatTranslationsHave) {
  const ResourceTexts texts = TextsOf("..");
  for (std::size_t word = 0; word < kKeyWords.size(); ++word)
    EXPECT_EQ(texts.String(IDS_KEY_WORD + static_cast<int>(word)), kKeyWords[word]);
}

TEST(Shortcuts, AreWhatMenusShowAndLeadToTheirCommands) {
  std::set<Text> texts;
  for (const NoteAction& row : kNoteActions) {
    const Text text = ShortcutText(row.code);
    EXPECT_EQ(ActionFromKey(row.key), text.empty() ? kActionNone : row.code);
    if (text.empty()) continue;
    EXPECT_TRUE(texts.insert(text).second) << ToUtf8(text) << " twice";
    const auto shows = [&text](TextView modifier) { return text.find(modifier) != Text::npos; };
    EXPECT_TRUE(shows(u"Ctrl+") == row.key.ctrl && shows(u"Alt+") == row.key.alt &&
                shows(u"Shift+") == row.key.shift);
    const std::uint16_t key = row.key.key;
    const bool isLetter = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
    EXPECT_EQ(text.back() == key, isLetter) << ToUtf8(text) << " has no name for its key";
    // Letters alone are typed, but not in a picture, and Ctrl with Alt types the third letters of many
    // keyboards.
    EXPECT_TRUE(row.key.ctrl != row.key.alt || !isLetter || row.needs == ActionNeeds::kPicture)
        << ToUtf8(text);
  }
}

TEST(Shortcuts, OfWindowsAreNoneOfTheCommands) {
  EXPECT_EQ(WindowKeyFrom({kLeftKey, false, false, true}).move, (Point{-8, 0}));
  EXPECT_EQ(WindowKeyFrom({kDownKey, false, true, true}).grow, (Size{0, 8}));
  EXPECT_EQ(WindowKeyFrom({kTabKey, true, true, false}).toNote, -1);
  EXPECT_EQ(WindowKeyFrom({kF6Key, false, false, false}).toParts, 1);
  EXPECT_EQ(WindowKeyFrom({kF6Key, false, true, false}).toParts, -1);
  // Ctrl with an arrow belongs to the text, with Alt as well to the system.
  EXPECT_EQ(WindowKeyFrom({kLeftKey, true, false, true}), WindowKey{});
  for (std::uint16_t key = 1; key < 0xFF; ++key) {
    for (int held = 0; held < 8; ++held) {
      const Shortcut pressed{key, (held & 1) != 0, (held & 2) != 0, (held & 4) != 0};
      EXPECT_TRUE(ActionFromKey(pressed) == kActionNone || WindowKeyFrom(pressed) == WindowKey{}) << key;
    }
  }
}

TEST(ActionState, OfOpacityStoresWhatRemains) {
  for (std::int32_t percent = 10; percent <= 90; percent += 10) {
    const ActionCode action = ActionFromName(u"transparent" + IntText(percent) + u"pc");
    EXPECT_EQ(RowOf(action).sets, (ActionSetting{ActionSets::kOpacity, 100 - percent}));
    EXPECT_TRUE(StateOf(action, {.transparency = 100 - percent}).checked);
    EXPECT_FALSE(StateOf(action, {.transparency = percent == 50 ? 0 : percent}).checked);
  }
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
  EXPECT_EQ(enabled(), "roll copy undo paste ");
  EXPECT_TRUE(StateOf(kActionPenDraw, facts).enabled && !StateOf(kActionPenDraw, {}).enabled);
  facts.readOnly = true;
  EXPECT_FALSE(StateOf(kActionPenDraw, facts).enabled);
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
  facts.edit.bullets = Bullets::kNormal;
  EXPECT_TRUE(StateOf(kActionBullets, facts).checked && StateOf(kActionBulletsNormal, facts).checked);
}

}  // namespace
}  // namespace jotlets
