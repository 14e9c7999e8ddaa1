#include "data/hot_key.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "base/key_text.h"
#include "fakes.h"

namespace jotlets {
namespace {

constexpr std::int32_t kShiftKey = 0x10;
constexpr std::int32_t kTab = 0x09;
constexpr std::int32_t kDelete = 0x2E;
constexpr std::int32_t kF4 = 0x73;
constexpr std::int32_t kF9 = 0x78;

HotKey Plain(std::int32_t key) { return {false, false, false, false, key}; }
HotKey WithAlt(std::int32_t key) { return {false, false, false, true, key}; }
HotKey WithShift(std::int32_t key) { return {false, true, false, false, key}; }

TEST(HotKeyText, NamesEveryKeyAndItsModifiersInTheirOrder) {
  EXPECT_EQ(HotKeyText({true, false, false, true, 'S'}), u"Win+Alt+S");
  EXPECT_EQ(HotKeyText({true, true, true, true, kF9}), u"Win+Ctrl+Alt+Shift+F9");
  EXPECT_EQ(HotKeyText({false, true, true, false, 0xBC}), u"Ctrl+Shift+<");
  EXPECT_EQ(HotKeyText({false, false, true, false, 0xBC}), u"Ctrl+,");
  EXPECT_EQ(HotKeyText({false, false, true, false, 0xAD}), u"Ctrl+Key 173");
  for (const std::int32_t none : {0, -1, 0xFF, 0x7FFFFFFF})
    EXPECT_EQ(HotKeyText({true, true, true, true, none}), u"");
  // Two keys of one text could not be told apart.
  std::set<Text> texts;
  for (std::int32_t key = 1; key < 0xFF; ++key) {
    const Text text = HotKeyText(Plain(key));
    EXPECT_TRUE(!text.empty() && texts.insert(text).second) << key << " is " << ToUtf8(text);
  }
}

TEST(TranslatedKey, HasTheWordsOfTheLanguageAndEverySignAsItIs) {
  const auto german = [](std::size_t word) {
    return kKeyWords[word] == u"Ctrl" ? Text(u"Strg") : kKeyWords[word] == u"Key" ? Text(u"Taste") : Text();
  };
  for (const auto& [key, shown] : {std::pair{u"Ctrl+Alt+Del", u"Strg+Alt+Del"},
                                   {u"Ctrl++", u"Strg++"},
                                   {u"Ctrl+Key 173", u"Strg+Taste 173"},
                                   {u"Ctrl", u"Strg"},
                                   {u"F1", u"F1"},
                                   {u"", u""}})
    EXPECT_EQ(TranslatedKey(key, german), shown);
  // A name that is a word of English is one that other languages have a word for.
  for (std::int32_t key = 1; key < 0xFF; ++key) {
    const Text name = KeyText({}, key);
    const bool isWord = name.size() > 2 && !name.starts_with(u"Num ") && name[0] != u'F';
    EXPECT_TRUE(!isWord || std::ranges::find(kKeyWords, name) != kKeyWords.end()) << ToUtf8(name);
  }
}

TEST(HotKeyPress, IsTakenOnlyWhenTypingAndTheDialogDoNotNeedIt) {
  for (const HotKey& taken :
       {HotKey{true, false, false, false, 'S'}, HotKey{false, true, false, true, 'S'},
        HotKey{false, false, true, false, kTab}, Plain(kF9), HotKey{false, false, true, false, kDelete}})
    EXPECT_EQ(MeaningOfPress(taken), HotKeyPress::kTake) << ToUtf8(HotKeyText(taken));
  for (const HotKey& ignored :
       {Plain('S'), WithShift('S'), Plain(0x26), WithShift(kDelete), WithAlt(kShiftKey),
        HotKey{false, false, true, false, 0x11}, WithAlt(0), WithAlt(0xFF)})
    EXPECT_EQ(MeaningOfPress(ignored), HotKeyPress::kIgnore) << ToUtf8(HotKeyText(ignored));
  for (const HotKey& passed :
       {Plain(kTab), WithShift(kTab), Plain(0x0D), Plain(0x1B), WithAlt(kF4), WithAlt('S'), WithAlt('1')})
    EXPECT_EQ(MeaningOfPress(passed), HotKeyPress::kPassOn) << ToUtf8(HotKeyText(passed));
  for (const HotKey& clears : {Plain(kDelete), Plain(0x08)})
    EXPECT_EQ(MeaningOfPress(clears), HotKeyPress::kClear) << ToUtf8(HotKeyText(clears));
}

TEST(HotKeyPress, IsDoubtedWhereOtherProgramsHaveTheKey) {
  for (const HotKey& common : {Plain(kF9), HotKey{false, false, true, false, 'S'}, WithAlt(kF9)})
    EXPECT_TRUE(IsCommonKey(common)) << ToUtf8(HotKeyText(common));
  for (const HotKey& own :
       {HotKey{true, false, false, false, 'S'}, HotKey{false, false, true, true, 'N'}, HotKey{}})
    EXPECT_FALSE(IsCommonKey(own)) << ToUtf8(HotKeyText(own));
}

}  // namespace
}  // namespace jotlets
