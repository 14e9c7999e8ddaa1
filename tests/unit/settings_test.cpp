#include "settings/settings_draft.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "data/options_file.h"
#include "data/options_table.h"
#include "data/text_file.h"
#include "fakes.h"
#include "settings/settings_search.h"

namespace jotlets {
namespace {

std::vector<Text> Lines(TextView text) {
  std::vector<Text> lines;
  LineReader reader(text);
  for (TextView line; reader.Next(line);) lines.emplace_back(line);
  return lines;
}

const SettingRow& Row(std::uint16_t id) { return *FindSetting(id); }

TEST(Settings, EveryOptionHasItsPlaceOrIsState) {
  std::set<Text> placed;
  for (const SettingRow& row : SettingRows())
    if (!row.option.empty()) placed.emplace(row.option);
  std::set<Text> state;
  for (const TextView option : OptionsThatAreState()) state.emplace(option);
  std::set<Text> known;
  for (const OptionRow& option : OptionRows()) {
    known.emplace(option.key);
    EXPECT_NE(placed.contains(Text(option.key)), state.contains(Text(option.key))) << ToUtf8(option.key);
  }
  for (const auto& names : {placed, state})
    EXPECT_TRUE(std::ranges::includes(known, names)) << "an option that is none";
}

TEST(Settings, RowsStandUnderTheirHeadingsAndHaveTheirTexts) {
  const std::string texts = FileBytes("../src/res/settings.rc");
  const auto isSaid = [&](int number) {
    return texts.find("\n  " + std::to_string(number) + " \"") != std::string::npos;
  };
  std::set<std::uint16_t> ids;
  auto group = SettingGroup::kNewNotes;
  const SettingRow* before = nullptr;
  for (const SettingRow& row : SettingRows()) {
    SCOPED_TRACE(row.id);
    EXPECT_TRUE(ids.insert(row.id).second);
    EXPECT_LE(group, row.group) << "a heading would stand twice";
    EXPECT_TRUE(!row.continues || before->group == row.group);
    EXPECT_TRUE(isSaid(5000 + row.id));
    EXPECT_EQ(isSaid(5200 + row.id), row.hasUnit);
    EXPECT_TRUE(isSaid(5500 + static_cast<int>(row.group)));
    const int choices = row.control == SettingControl::kChoice ? row.maximum - row.minimum + 1 : 0;
    for (int i = 0; i < choices; ++i) EXPECT_TRUE(isSaid(5400 + row.choices + i));
    EXPECT_NE(row.access.get == nullptr, row.task == SettingTask::kNothing);
    EXPECT_TRUE(row.needs == 0 || PageOf(Row(row.needs).group) == PageOf(row.group));
    group = row.group;
    before = &row;
  }
}

// Another value than the present one, of the kind that the control gives.
SettingValue OtherValue(const SettingRow& row, const SettingValue& now) {
  switch (row.control) {
    case SettingControl::kText:
    case SettingControl::kFolder:
    case SettingControl::kSound:
    case SettingControl::kSkin: return {0, u"other"};
    case SettingControl::kWebAddress: return {0, u"https://example.org/?q=%s"};
    case SettingControl::kHotKey: return {HotKeyNumber({true, false, true, false, 'Q'}), {}};
    default: return {now.number == row.maximum ? row.minimum : row.maximum, {}};
  }
}

TEST(Settings, EachChangesItsOwnOptionOnly) {
  const std::vector<Text> plain = Lines(ComposeOptions(Options()));
  for (const SettingRow& row : SettingRows()) {
    if (row.access.get == nullptr) continue;
    SCOPED_TRACE(row.id);
    Options options;
    SettingsDraft draft(options, {});
    const SettingValue other = OtherValue(row, draft.Value(row));
    draft.Set(row, other);
    EXPECT_TRUE(options == Options()) << "nothing is written before it is applied";
    EXPECT_TRUE(draft.IsChanged() && draft.Value(row) == other);
    draft.Apply(options);
    EXPECT_FALSE(draft.IsChanged());
    Options read;
    LoadOptions(read, ComposeOptions(options));
    EXPECT_TRUE(row.access.get(read) == other) << "it survives being written";
    for (const Text& line : Lines(ComposeOptions(options)))
      EXPECT_TRUE(std::ranges::count(plain, line) > 0 || line.starts_with(Text(row.option) + u"="));
  }
}

TEST(SettingsDraft, TakesNothingThatIsWrong) {
  Options options;
  SettingsDraft draft(options, {});
  const SettingRow& width = Row(4);
  EXPECT_EQ(draft.Enter(width, u" 280 "), SettingFault::kNothing);
  EXPECT_EQ(draft.Value(width).number, 280);
  for (const auto& [text, fault] : {std::pair(u"", SettingFault::kNotANumber),
                                    {u"12a", SettingFault::kNotANumber},
                                    {u"- 1", SettingFault::kNotANumber},
                                    {u"99999999999999999999", SettingFault::kNotANumber},
                                    {u"0", SettingFault::kTooSmall},
                                    {u"-5", SettingFault::kTooSmall},
                                    {u"4294967297", SettingFault::kTooLarge}}) {
    EXPECT_EQ(draft.Enter(width, text), fault) << ToUtf8(text);
    EXPECT_EQ(draft.FirstFault(), &width);
    EXPECT_EQ(draft.Value(width).number, 280);
  }
  draft.Enter(width, u"300");
  EXPECT_EQ(draft.FirstFault(), nullptr);
  const SettingRow& address = Row(41);
  for (const TextView bad : {u"calc.exe", u"file:///c:/windows/system32/calc.exe", u"javascript:alert(1)",
                             u"mailto:a@b.c", u"\\\\server\\share", u"ftp://a.b"})
    EXPECT_EQ(draft.Enter(address, bad), SettingFault::kNoWebAddress) << ToUtf8(bad);
  EXPECT_EQ(draft.Enter(address, u"HTTPS://example.org/?q=%s"), SettingFault::kNothing);
  EXPECT_EQ(draft.Enter(Row(98), u"two\nHidden=1"), SettingFault::kLineBreak);
  // What is wrong behind something that is switched off stands in nobody's way.
  draft.Enter(Row(98), u"one");
  EXPECT_EQ(draft.Enter(Row(2), u"x"), SettingFault::kNotANumber);
  EXPECT_EQ(draft.FirstFault(), nullptr);
  // Only one of two equal hot keys would ever be heard.
  draft.Set(Row(141), draft.Value(Row(142)));
  EXPECT_TRUE(draft.SameHotKey(Row(141)) == &Row(142) && draft.FirstFault() == &Row(141));
  draft.Set(Row(141), {0, {}});
  EXPECT_EQ(draft.FirstFault(), nullptr) << "two without a key are not the same";
}

TEST(SettingsDraft, LeavesWhatIsFixedAndWhatChangedMeanwhile) {
  Options options;
  options.netPort = 1111;
  Policy policy;
  policy.port = 2222;
  policy.useNetworking = true;
  SettingsDraft draft(options, policy);
  EXPECT_TRUE(draft.IsFixed(Row(81)) && !draft.IsEnabled(Row(81)));
  EXPECT_EQ(draft.Value(Row(81)).number, 2222);
  EXPECT_TRUE(draft.IsEnabled(Row(82))) << "networking is on, by policy";
  draft.Set(Row(81), {3333, {}});
  draft.Reset(SettingsPage::kNetwork, {});
  draft.Set(Row(22), {1, {}});
  options.hidden = 1;
  options.makeAllVisible = 0;
  draft.Follow(options, policy);
  EXPECT_EQ(draft.Value(Row(23)).number, 0) << "changed elsewhere";
  draft.Apply(options);
  EXPECT_TRUE(options.netPort == 1111 && !options.networking && options.hidden == 1 &&
              options.makeAllVisible == 0 && options.confirmClosure);
  // The policy is lifted while the dialog is open.
  draft.Follow(options, {});
  EXPECT_EQ(draft.Value(Row(81)).number, 1111);
  draft.Set(Row(8), {1, {}});
  draft.Reset(SettingsPage::kNetwork, {});
  draft.Apply(options);
  EXPECT_TRUE(options.netPort == Options().netPort && options.defaultImage) << "only the page is reset";
}

TEST(SettingsSearch, FindsEveryWordInAnyCase) {
  const SettingWords said[] = {
      {1, u"Notes throw shadows Looks"}, {2, u"Snap to notes Moving"}, {3, u"Öffnen"}};
  using Ids = std::vector<std::uint16_t>;
  EXPECT_EQ(FindSettings(u" NOTES  shad", said), Ids{1});
  EXPECT_EQ(FindSettings(u"notes", said), (Ids{1, 2}));
  EXPECT_EQ(FindSettings(u"o", said), (Ids{1, 2})) << "inside of words";
  EXPECT_EQ(FindSettings(u"to", said), (Ids{2}));
  EXPECT_EQ(FindSettings(u"s", said), (Ids{1, 2}));
  EXPECT_EQ(FindSettings(u"m", said), (Ids{2}));
  EXPECT_EQ(FindSettings(u"öff", said), Ids{3});
  EXPECT_EQ(FindSettings(u"notes nowhere", said), Ids{});
  EXPECT_EQ(FindSettings(u"  ", said), Ids{});
}

}  // namespace
}  // namespace jotlets
