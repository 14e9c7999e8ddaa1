#include <gtest/gtest.h>

#include <map>

#include "data/options.h"
#include "data/record_list.h"
#include "manage/manage_actions.h"
#include "manage/manage_list.h"

namespace jotlets {
namespace {

class Shelf final : public NoteTexts {
 public:
  std::map<Text, Text> texts;
  int reads = 0;
  Text TextOf(const ManageRow& row) override {
    ++reads;
    return texts[row.id];
  }
};

class ManageListTest : public ::testing::Test {
 protected:
  JotletData& Add(TextView id, TextView title, std::int32_t created = 0, TextView text = {}) {
    JotletData& record = notes_.emplace_back();
    record.id = id;
    record.title = title;
    record.created = created;
    shelf_.texts[record.id] = text;
    return record;
  }
  bool Refresh() {
    std::vector<const JotletData*> notes;
    for (const JotletData& record : notes_) notes.push_back(&record);
    return list_.SetNotes(
        notes,
        [](const JotletData& r, void* test) { return static_cast<ManageListTest*>(test)->unsaved_ == r.id; },
        this);
  }
  Text Ids() const {
    Text ids;
    for (std::size_t i = 0; i < list_.Size(); ++i) ids += list_.At(i).id;
    return ids;
  }
  Text Found(TextView words, std::int32_t what = 15) {
    list_.Search(words, what);
    while (list_.IsReading()) list_.ReadOne();
    list_.Settle();
    return Ids();
  }

  Shelf shelf_;
  ManageTexts texts_{shelf_, 60};
  ManageList list_{texts_};
  std::vector<JotletData> notes_;
  Text unsaved_;
};

TEST_F(ManageListTest, SortsByEachColumnBothWaysAndKeepsTheOrderOfAlikeRows) {
  Add(u"A", u"pear", 20).isImage = 1;
  Add(u"B", u"Apple", 10);
  Add(u"C", u"apple", 30).modified = 5;
  JotletData& asleep = Add(u"D", u"Zoo", 10);
  asleep.sleep.asleep = true;
  asleep.sleep.nextWake = 7;
  Add(u"E", u"awake", 40).sleep.nextWake = 9;
  EXPECT_TRUE(Refresh());
  EXPECT_EQ(Ids(), u"ABCDE");
  list_.SortBy(ManageColumn::kTitle, false);
  EXPECT_EQ(Ids(), u"BCEAD");
  list_.SortBy(ManageColumn::kTitle, true);
  EXPECT_EQ(Ids(), u"DAEBC");
  list_.SortBy(ManageColumn::kCreated, false);
  EXPECT_EQ(Ids(), u"DBACE") << "D and B are alike: as before";
  list_.SortBy(ManageColumn::kType, true);
  EXPECT_EQ(Ids(), u"ADBCE");
  list_.SortBy(ManageColumn::kNextWake, true);
  EXPECT_EQ(Ids(), u"DABCE") << "a note that is awake has no next wake";
  list_.SortBy(ManageColumn::kModified, true);
  EXPECT_EQ(Ids(), u"CDABE");
  EXPECT_FALSE(Refresh());
  notes_[1].created = 1;
  EXPECT_TRUE(Refresh());
  EXPECT_EQ(Ids(), u"CDABE") << "refreshed rows are sorted like those before";
  EXPECT_EQ(list_.PlacesOf({u"E", u"gone", u"D"}), (std::vector<std::size_t>{1, 4}));
}

TEST_F(ManageListTest, FindsAllWordsInWhatIsSearchedAndReadsEachTextOnce) {
  Add(u"A", u"Shopping \u00C4pfel", 0, u"two pounds");
  Add(u"B", u"Work", 0, u"shopping list: ROPE");
  Add(u"C", u"Picture of rope").isImage = 1;
  Add(u"D", u"Other", 0, u"nothing").userString1 = u"rope";
  notes_[3].source = u"Anna";
  Refresh();
  EXPECT_EQ(shelf_.reads, 0) << "nothing is read without need";
  EXPECT_EQ(Found(u" \u00E4PFEL  "), u"A");
  EXPECT_EQ(Found(u"rope"), u"BCD");
  EXPECT_EQ(Found(u"rope shop"), u"B");
  EXPECT_EQ(Found(u"rope"), u"BCD");
  EXPECT_EQ(Found(u"rope work"), u"B") << "one word in the title, one in the text";
  EXPECT_EQ(Found(u"shop"), u"AB");
  EXPECT_EQ(shelf_.reads, 3);
  EXPECT_EQ(Found(u"shop", kSearchTitles), u"A");
  EXPECT_EQ(Found(u"rope", kSearchTexts), u"B");
  EXPECT_EQ(Found(u"rope", kSearchUserStrings), u"D");
  EXPECT_EQ(Found(u"anna", kSearchUserStrings | kSearchTitles), u"");
  EXPECT_EQ(Found(u"anna", kSearchSources), u"D");
  EXPECT_EQ(Found(u""), u"ABCD");
  // What somebody else has found holds the words until another answer comes.
  EXPECT_EQ(Found(u"-rope", kSearchTitles), u"");
  EXPECT_TRUE(list_.SetFound({u"a", u"gone"}));
  EXPECT_EQ(Ids(), u"A");
  EXPECT_FALSE(list_.SetFound({u"a", u"gone"}));
  EXPECT_EQ(Found(u"-ropes", kSearchTitles), u"A");
  EXPECT_TRUE(list_.SetFound({}));
  EXPECT_EQ(Ids(), u"");

  // A saved change makes a text unknown, an unsaved one keeps it so.
  Found(u"pounds");
  notes_[1].modified = 9;
  shelf_.texts[u"B"] = u"pounds";
  unsaved_ = u"A";
  shelf_.texts[u"A"] = u"";
  EXPECT_TRUE(Refresh());
  EXPECT_EQ(Found(u"pounds "), u"B");
  EXPECT_TRUE(Refresh()) << "what is unsaved may be another text every time";
  shelf_.texts[u"A"] = u"pounds";
  EXPECT_EQ(Ids(), u"B");
  EXPECT_EQ(Found(u"pounds"), u"AB");
}

TEST_F(ManageListTest, RemembersNoMoreThanItsLimitAndStillFinds) {
  for (const TextView id : {u"A", u"B", u"C", u"D"}) Add(id, u"x", 0, Text(25, u'y').append(id));
  Refresh();
  EXPECT_EQ(Found(u"yd"), u"D");
  EXPECT_EQ(Found(u"yc"), u"C");
  EXPECT_EQ(shelf_.reads, 4 + 2) << "two fit";
  texts_.Clear();
  EXPECT_EQ(Found(u"ya"), u"A");
  EXPECT_EQ(shelf_.reads, 4 + 2 + 4);
}

TEST_F(ManageListTest, NotesWithoutATitleShowTheBeginningOfTheirText) {
  Add(u"A", u"middle");
  Add(u"B", u" ", 0, u"\r\n  z line\r\nmore");
  Add(u"C", u"", 0, u"a line");
  Add(u"D", Text(10000, u'M').append(u"\r\nend"));
  list_.SortBy(ManageColumn::kTitle, false);
  Refresh();
  EXPECT_TRUE(list_.IsReading());
  EXPECT_EQ(Found(u""), u"CADB");
  EXPECT_EQ(list_.At(3).title, u"z line");
  EXPECT_EQ(list_.At(2).title, Text(1000, u'M'));
  EXPECT_FALSE(Refresh()) << "a title from the text is no change, nor one that was cut";
  EXPECT_EQ(Found(u"z line"), u"B");

  StackRecord stack;
  stack.number = 3;
  stack.title = u"Home";
  EXPECT_TRUE(list_.SetStacks(std::vector{stack}));
  EXPECT_FALSE(list_.SetStacks(std::vector{stack}));
  EXPECT_EQ(Ids(), u"") << "the search holds for every view";
  EXPECT_EQ(Found(u"hom"), u"3");
}

TEST_F(ManageListTest, SortsNumbersInTitlesAsPeopleCount) {
  for (const TextView id : {u"r10", u"r9", u"r1", u"r", u"r09b", u"2", u"10", u"r100", u"s1", u"r10a", u"q"})
    Add(id, id);
  Refresh();
  list_.SortBy(ManageColumn::kTitle, false);
  EXPECT_EQ(Ids(), u"210qrr1r09br9r10r10ar100s1");
}

TEST_F(ManageListTest, AmongAllNotesThePlaceIsPartOfARow) {
  Add(u"A", u"one", 0, u"words");
  Add(u"B", u"two").sleep = {.asleep = true, .nextWake = 9};
  Add(u"C", u"three");
  std::vector<PlacedNote> notes = {
      {&notes_[0], u"Desktop"}, {&notes_[1], u"Sleeping"}, {&notes_[2], u"Closed"}};
  EXPECT_TRUE(list_.SetAll(notes));
  EXPECT_FALSE(list_.SetAll(notes));
  list_.SortBy(ManageColumn::kNextWake, false);
  EXPECT_EQ(Ids(), u"CAB");
  EXPECT_EQ(Found(u"words"), u"A");
  Found(u"");
  notes[0].place = u"Stored: x";
  EXPECT_TRUE(list_.SetAll(notes)) << "moved";
  EXPECT_EQ(Ids(), u"CBA");
}

TEST(ManageActionsTest, AsksBeforeWhatCannotBeUndoneAndBeforeManyWindows) {
  const auto ask = [](ManageAction action, ManageView view, std::size_t count, int keep = 32,
                      bool confirm = false) { return QuestionBefore(action, view, count, keep, confirm); };
  using enum ManageQuestion;
  EXPECT_EQ(ask(ManageAction::kDelete, ManageView::kClosed, 1), kForGood);
  EXPECT_EQ(ask(ManageAction::kDelete, ManageView::kDesktop, 32), kNothing);
  EXPECT_EQ(ask(ManageAction::kDelete, ManageView::kDesktop, 32, 32, true), kClose);
  EXPECT_EQ(ask(ManageAction::kDelete, ManageView::kSleeping, 33), kNoRoom)
      << "they would push each other out";
  EXPECT_EQ(ask(ManageAction::kDelete, ManageView::kDesktop, 1, -1), kNoRoom);
  EXPECT_EQ(ask(ManageAction::kWake, ManageView::kRecurring, 1), kEndsRecurrence);
  EXPECT_EQ(ask(ManageAction::kRestore, ManageView::kClosed, 19), kNothing);
  EXPECT_EQ(ask(ManageAction::kRestore, ManageView::kClosed, 20), kMany);
  EXPECT_FALSE(IsEnabled(ManageAction::kUnattach, {ManageView::kDesktop, 2, false, false}));
  EXPECT_TRUE(IsEnabled(ManageAction::kUnattach, {ManageView::kDesktop, 2, true, false}));
  EXPECT_FALSE(IsEnabled(ManageAction::kWake, {ManageView::kClosed, 1, true, true}));
  EXPECT_FALSE(IsEnabled(ManageAction::kDelete, {ManageView::kClosed, 0, true, true}));
  EXPECT_EQ(ask(ManageAction::kSaveCopies, ManageView::kDesktop, 99), kNothing);
  EXPECT_FALSE(IsEnabled(ManageAction::kSaveCopies, {ManageView::kStacks, 1, false, false}));
  EXPECT_EQ(DefaultAction(ManageView::kAttached), std::nullopt);
  EXPECT_EQ(DefaultAction(ManageView::kClosed), ManageAction::kRestore);
}

TEST(ManageActionsTest, WhatIsDroppedOnAPlaceGoesThereOrNowhere) {
  using enum ManageView;
  const auto drop = [](ManageView from, ManageView to) { return ActionOfDrop(from, {to, {}}); };
  EXPECT_EQ(drop(kDesktop, kStored), ManageAction::kStore);
  EXPECT_EQ(drop(kStored, kStored), std::nullopt);
  EXPECT_EQ(ActionOfDrop(kStored, {kStored, u""}), ManageAction::kStore) << "out of all categories";
  EXPECT_EQ(drop(kSleeping, kStored), std::nullopt) << "its time would come there";
  EXPECT_EQ(drop(kStored, kDesktop), ManageAction::kRestore);
  EXPECT_EQ(drop(kRecurring, kDesktop), ManageAction::kWake);
  EXPECT_EQ(drop(kAttached, kDesktop), ManageAction::kUnattach);
  EXPECT_EQ(drop(kDesktop, kDesktop), std::nullopt);
  EXPECT_EQ(drop(kSleeping, kClosed), ManageAction::kDelete);
  EXPECT_EQ(drop(kStored, kClosed), std::nullopt) << "it would be gone for good";
  EXPECT_EQ(drop(kStacks, kDesktop), std::nullopt);
}

TEST(ManageColumns, GiveWayWhereThereIsLittleRoom) {
  const ColumnWidths wanted{200, 46, 150, 150, 0};
  EXPECT_EQ(Options().manageWidths[0], kUsualTitleWidth);
  EXPECT_EQ(FittedColumns(wanted, 800), (ColumnWidths{274, 46, 150, 150, 180}));
  EXPECT_EQ(FittedColumns({201, 46, 150, 150, 0}, 800), (ColumnWidths{201, 46, 150, 150, 253}));
  EXPECT_EQ(FittedColumns(wanted, 636), (ColumnWidths{200, 46, 150, 150, 90}));
  EXPECT_EQ(FittedColumns(wanted, 635), (ColumnWidths{259, 46, 0, 150, 180}));
  EXPECT_EQ(FittedColumns(wanted, 440), (ColumnWidths{200, 0, 0, 150, 90}));
  EXPECT_EQ(FittedColumns(wanted, 400), (ColumnWidths{160, 0, 0, 150, 90}));
  EXPECT_EQ(FittedColumns(wanted, 10), (ColumnWidths{140, 0, 0, 90, 90}));
}

}  // namespace
}  // namespace jotlets
