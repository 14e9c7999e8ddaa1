#include "skin/skin_parts.h"

#include <gtest/gtest.h>

#include "../docs/documents.h"
#include "fakes.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

constexpr const char* kSkins[] = {"default/skin.ini", "midnight/midnight.ini", "plain/plain.ini",
                                  "paper/paper.ini",  "paper/large.ini",       "paper/bare.ini",
                                  "stack/stack.ini",  "paper/stack.ini"};

SkinData SkinIn(const char* file) {
  return ParseSkin(FromUtf8(FileBytes((std::string("../src/res/skins/") + file).c_str())));
}

PartFacts FactsFor(const SkinData& skin, const ActionFacts& actions = {}) {
  static const ResourceTexts texts = TextsOf("..");
  PartFacts facts{.title = u"Shopping", .titleAction = kActionEditTitle};
  facts.states = skin.isStack ? StatesOfStacks() : StatesOfNotes();
  if (!skin.isStack) facts.content = PartRole::kText;
  facts.stateOf = [actions](ActionCode action) { return StateOf(action, actions); };
  facts.valueOf = [](SkinState) { return Text(); };
  facts.textOf = [](std::uint32_t id) { return texts.String(static_cast<int>(id)); };
  return facts;
}

const SkinPart* PartWith(const std::vector<SkinPart>& parts, ActionCode action,
                         PartUse use = PartUse::kNothing) {
  const auto found = std::ranges::find_if(parts, [action, use](const SkinPart& part) {
    return part.role != PartRole::kTitle && part.action == action && part.use == use;
  });
  return found == parts.end() ? nullptr : &*found;
}

void ExpectSound(const std::vector<SkinPart>& parts, Size window) {
  for (const SkinPart& part : parts) {
    EXPECT_FALSE(part.name.empty());
    EXPECT_TRUE(part.area.left >= 0 && part.area.top >= 0 && part.area.right <= window.width &&
                part.area.bottom <= window.height)
        << ToUtf8(part.name);
    EXPECT_TRUE(part.invisible || part.area != Rect{}) << ToUtf8(part.name);
    const bool plain =
        part.role == PartRole::kState || part.role == PartRole::kText || part.use != PartUse::kNothing;
    EXPECT_EQ(RowOf(part.action).name.empty(), plain) << ToUtf8(part.name);
    EXPECT_EQ(std::ranges::count(parts, part), 1) << ToUtf8(part.name);
  }
}

TEST(SkinParts, OfEverySkinHaveANameAPlaceAndACommandInEveryState) {
  for (const char* const file : kSkins) {
    const SkinData skin = SkinIn(file);
    for (int tried = 0; tried < 32; ++tried) {
      SkinView view;
      view.window = (tried & 1) != 0 ? Size{320, 220} : MinimumSize(skin);
      view.focus = (tried & 2) != 0;
      view.mouseOver = (tried & 4) != 0;
      view.rolled = (tried & 8) != 0;
      for (std::size_t state = 0;
           (tried & 16) != 0 && state <= static_cast<std::size_t>(SkinState::kHighlight); ++state)
        view.states.Set(static_cast<SkinState>(state), true);
      const auto parts = PartsOf(skin, view, FactsFor(skin));
      SCOPED_TRACE(file + std::to_string(tried));
      ExpectSound(parts, view.window);
      EXPECT_EQ(parts.front().value, u"Shopping");
      for (const SkinElement& element : skin.elements) {
        if (element.kind != ElementKind::kButton || !IsShown(element, view)) continue;
        const SkinPart* part = PartWith(parts, element.action, UseOf(element));
        EXPECT_TRUE(part != nullptr && !part->invisible) << ToUtf8(element.name);
      }
    }
  }
}

TEST(SkinParts, TellsOfButtonsOnceAndWhetherTheyAreSeenPressedAndAvailable) {
  const SkinData skin = SkinIn("paper/paper.ini");
  SkinView view{.window = {280, 280}};
  auto parts = PartsOf(skin, view, FactsFor(skin));
  ASSERT_NE(PartWith(parts, kActionOnTop), nullptr);
  EXPECT_TRUE(PartWith(parts, kActionOnTop)->invisible);
  view.focus = true;
  view.states.Set(SkinState::kOnTop, true);
  view.states.Set(SkinState::kReadOnly, true);
  parts = PartsOf(skin, view, FactsFor(skin, {.readOnly = true, .onTop = true}));
  const SkinPart pin = *PartWith(parts, kActionOnTop);
  EXPECT_TRUE(pin.role == PartRole::kToggle && pin.pressed && !pin.invisible && !pin.unavailable);
  EXPECT_EQ(pin.key, u"Ctrl+Shift+T");
  EXPECT_EQ(PartWith(parts, kActionOpenJotletContext)->role, PartRole::kMenuButton);
  // Close is the last of the bar and lies on the title, the text below both.
  EXPECT_EQ(PartAt(parts, {264, 16}), PartWith(parts, kActionClose) - parts.data());
  EXPECT_EQ(parts[PartAt(parts, {20, 16}).value_or(99)].role, PartRole::kTitle);
  EXPECT_EQ(parts[PartAt(parts, {100, 100}).value_or(99)].role, PartRole::kText);
  EXPECT_EQ(PartAt(parts, {2, 279}), std::nullopt);
  // A lock has a glyph beside the buttons, being on top has none there but is still told.
  EXPECT_EQ(parts[1].name, u"Locked");
  EXPECT_EQ(parts[1].area, (Rect{170, 9, 184, 23}));
  EXPECT_TRUE(parts[2].name == u"On top" && parts[2].invisible);
}

TEST(SkinParts, OfANoteThatSoundsQuietenIt) {
  const SkinData skin = SkinIn("paper/paper.ini");
  SkinView view{.window = {280, 200}};
  EXPECT_EQ(PartWith(PartsOf(skin, view, FactsFor(skin)), kActionNone, PartUse::kDismiss), nullptr);
  view.states.Set(SkinState::kSounding, true);
  EXPECT_EQ(TextArea(skin, view).bottom, 200 - 48 - 8);
  const auto parts = PartsOf(skin, view, FactsFor(skin));
  const SkinPart* dismiss = PartWith(parts, kActionNone, PartUse::kDismiss);
  const SkinPart* snooze = PartWith(parts, kActionNone, PartUse::kSnooze);
  ASSERT_TRUE(dismiss != nullptr && snooze != nullptr);
  EXPECT_TRUE(dismiss->atFoot && snooze->atFoot && dismiss->area.right < snooze->area.left);
  EXPECT_EQ(dismiss->name, u"Dismiss");
  EXPECT_EQ(parts[1].name, u"Sounding");
  view.window.height = 119;
  EXPECT_TRUE(PartWith(PartsOf(skin, view, FactsFor(skin)), kActionNone, PartUse::kDismiss) == nullptr);
  EXPECT_EQ(TextArea(skin, view).bottom, 119 - 8) << "no foot without room for the text";
}

TEST(SkinParts, OfTheBarAtTheFootFitAndAreToldApart) {
  for (const char* const file : {"paper/paper.ini", "paper/large.ini"}) {
    const SkinData skin = SkinIn(file);
    SkinView view{.window = {320, 240}, .focus = true};
    EXPECT_EQ(PartWith(PartsOf(skin, view, FactsFor(skin)), kActionBold), nullptr);
    for (const SkinState state : {SkinState::kFormatBar, SkinState::kCheckLists, SkinState::kCheckList})
      view.states.Set(state, true);
    const auto parts = PartsOf(skin, view, FactsFor(skin));
    EXPECT_EQ(std::ranges::count(parts, true, &SkinPart::atFoot), 10);
    EXPECT_FALSE(PartWith(parts, kActionClose)->atFoot);
    const SkinPart* list = PartWith(parts, kActionNone, PartUse::kCheckList);
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->pressed && list->atFoot && list->name == u"Check list");
    EXPECT_EQ(list->key, u"Ctrl+Shift+X");
    for (view.window.width = MinimumSize(skin).width; view.window.width <= 320; ++view.window.width) {
      for (const SkinElement& element : skin.elements) {
        const Rect area = ElementRect(element, view);
        if (element.kind != ElementKind::kButton || !IsShown(element, view)) continue;
        EXPECT_LE(area.right, view.window.width) << ToUtf8(element.name);
      }
    }
  }
}

TEST(SkinParts, OfASkinFromElsewhereStayInTheWindow) {
  const SkinData skin = ParseSkin(
      u"[button]\nplace=500,2\nsize=9x9\naction=close\n[button]\nplace=-900,2\nsize=2000x9\naction=roll\n"
      u"[button]\nplace=1,1\nsize=9x9\naction=nothing\n[button]\nplace=2,2\nsize=9x9\naction=sendtopalm\n");
  const auto parts = PartsOf(skin, {.window = {100, 80}}, FactsFor(skin));
  ASSERT_EQ(parts.size(), 5u);
  EXPECT_TRUE(PartWith(parts, kActionClose)->invisible && PartWith(parts, kActionClose)->area == Rect{});
  EXPECT_EQ(PartWith(parts, kActionRoll)->area, (Rect{0, 2, 100, 11}));
  EXPECT_TRUE(PartWith(parts, kActionSendToPalm)->unavailable);
  EXPECT_EQ(PartWith(parts, kActionSendToPalm)->name, u"sendtopalm");
}

TEST(SkinParts, EveryCommandThatIsCarriedOutHasWords) {
  const PartFacts facts = FactsFor({});
  for (const NoteAction& row : kNoteActions)
    EXPECT_TRUE(row.by == ActionBy::kNobody || !ActionWords(row, facts.textOf).empty()) << ToUtf8(row.name);
}

}  // namespace
}  // namespace jotlets
