#include <gtest/gtest.h>

#include "data/text_file.h"
#include "fakes.h"
#include "friends/friend_book.h"
#include "friends/friend_editing.h"

namespace jotlets {
namespace {

FriendEntry Person(TextView name, std::int32_t level = 1, TextView address = u"") {
  FriendEntry entry;
  entry.name = name, entry.address = address, entry.level = level;
  return entry;
}

FriendEntry Group(TextView name, std::int32_t level = 1, bool home = false) {
  FriendEntry entry = Person(name, level);
  entry.isGroup = true, entry.isHome = home;
  return entry;
}

// "Anna Office{ Ben ... }": the names in order, groups with their members in braces.
Text Outline(const FriendList& list) {
  Text outline;
  std::int32_t open = 1;
  const auto close = [&](std::int32_t level) {
    for (; open > level; --open) outline.append(u"} ");
  };
  for (const FriendEntry& entry : list.entries) {
    close(entry.level);
    outline.append(entry.name).append(entry.isGroup ? u"{ " : u" ");
    open = entry.level + (entry.isGroup ? 1 : 0);
  }
  close(1);
  return Text(TrimBlanks(outline));
}

// A{ B C{ D } } - e
FriendList Nested() {
  return {
      {Group(u"A"), Person(u"B", 2), Group(u"C", 2), Person(u"D", 3), Person(u"-"), Person(u"e")}, {}, {}};
}

TEST(FriendsFile, IsWrittenInItsFormAndReadBack) {
  FriendList list{{Person(u"Anna", 1, u"192.168.1.20"), Person(u"-"), Group(u"Office", 1, true),
                   Person(u"Ben", 2, u"ben-pc"), Person(u"-", 2), Group(u"Deep", 2), Group(u"Empty", 3),
                   Person(u"FF2:x"), Person(u"Date")},
                  {},
                  u"2026-11-21"};
  list.favourites[1] = u"Anna", list.favourites[3] = u"a:b";
  list.entries[7].email = u"f@x", list.entries[7].extra = u"more|still|";
  EXPECT_EQ(ComposeFriends(list),
            u"[Friends]\nDate=2026-11-21\nFF1:Anna\nFF3:a:b\nFriends {\nAnna=192.168.1.20||\n-\n"
            u"Office { (home)\n  Ben=ben-pc||\n  -\n  Deep {\n    Empty {\n    }\n  }\n}\n"
            u"FF2:x=|f@x|more|still||\nDate=||\n}\n");
  EXPECT_EQ(ParseFriends(ComposeFriends(list)), list);
  EXPECT_EQ(ComposeFriends({}), u"[Friends]\nDate=\nFriends {\n}\n");
}

TEST(FriendsFile, LosesNoEntryToDamage) {
  const FriendList whole = Nested();
  const Text text = ComposeFriends(whole);
  // Cut anywhere, what is there is loaded.
  for (std::size_t end = 0; end <= text.size(); ++end) {
    const FriendList part = ParseFriends(text.substr(0, end));
    ASSERT_LE(part.entries.size(), whole.entries.size());
    for (std::size_t i = 0; i + 1 < part.entries.size(); ++i) ASSERT_EQ(part.entries[i], whole.entries[i]);
  }
  const auto read = [](TextView body) { return Outline(ParseFriends(Text(u"Friends {\n").append(body))); };
  EXPECT_EQ(read(u"A {\nB=b||\n}\n}\n}\nC=c||\nnothing\nD {\nE\n"), u"A{ B } C D{ E }");
  EXPECT_EQ(read(u"A{(home)\n\n   \n  {\nx\n"), u"A{ { x } }");
  EXPECT_EQ(Outline(ParseFriends(u"A=a||\nB {\nDate=1\nFriends {\n-\n")), u"-");
  // Of two home groups there is one.
  const FriendList homes = ParseFriends(u"Friends {\nA { (home)\n}\nB {  (home) \n}\n");
  EXPECT_EQ(HomeGroup(homes), 1u);
  EXPECT_FALSE(homes.entries[0].isHome);
}

TEST(FriendsFile, KeepsAnyDepthAndNoWidth) {
  FriendList deep;
  for (std::int32_t level = 1; level <= 2000; ++level) deep.entries.push_back(Group(u"g", level));
  deep.entries.push_back(Person(u"last", 1));
  EXPECT_EQ(ParseFriends(ComposeFriends(deep)), deep);
  Text hostile = u"Friends {\n";
  for (int i = 0; i < 100'000; ++i) hostile.append(u"{\n");
  const Text written = ComposeFriends(ParseFriends(hostile));
  EXPECT_LT(written.size(), 1'000'000u);
  EXPECT_EQ(ParseFriends(written), ParseFriends(hostile));
}

TEST(FriendsFile, WhatItCannotHoldBreaksNoOtherEntry) {
  FriendList list{{Person(u"a=b{\n}"), Group(u"g{}"), Person(u"c", 9, u"x|y\r\nFriends {")}, {}, u"d\nFF1:x"};
  const FriendList read = ParseFriends(ComposeFriends(list));
  EXPECT_EQ(Outline(read), u"a b( ) g(){ c }");
  EXPECT_EQ(read.entries[2].address, u"x y Friends (");
  EXPECT_TRUE(read.favourites[1].empty());
}

TEST(FriendBook, KeepsADamagedFileAndFailsWithoutLoss) {
  FakeFiles files;
  FakeLog log;
  FakeClock clock;
  const Latin1 ansi;
  FriendBook book(files, ansi, clock, log);
  const std::string damaged = EncodeTextFile(ComposeFriends(Nested())) + "x";
  files.Put(u"C:\\friends.ini", damaged);
  book.Open(u"C:\\");
  EXPECT_EQ(book.List(), Nested());
  files.unchangeable = {u"c:\\friends.ini"};
  EXPECT_FALSE(book.Replace({}));
  EXPECT_EQ(book.List(), Nested());
  files.unchangeable.clear();
  EXPECT_TRUE(book.Replace({}));
  EXPECT_TRUE(files.Keeps(damaged));
  EXPECT_TRUE(log.Holds(u"SaveFriends started for 'C:\\friends.ini'"));
  EXPECT_TRUE(log.Holds(u"SaveFriends completed OK"));
  EXPECT_EQ(files.Get(u"C:\\friends.ini"), EncodeTextFile(ComposeFriends({})));
}

TEST(FriendBook, TakesWhatAnOlderDataFileHasBesides) {
  FakeFiles files;
  FakeLog log;
  FakeClock clock;
  const Latin1 ansi;
  files.Put(u"C:\\friends.ini", EncodeTextFile(u"[Friends]\nDate=d\nFF1:Ann\nnobody's line\nFriends {\n"
                                               u"Ann=1||\nWork {\nBen=2||\n}\n}\n"));
  const std::string before = files.Get(u"C:\\friends.ini");
  FriendBook book(files, ansi, clock, log);
  const std::vector<Text> older = {u"Date=o",        u"FF1:Zoe", u"FF2:Ann", u"Friends {", u"Ann=1||", u"-",
                                   u"Work { (home)", u"Ben=3||", u"In {",    u"Cleo=4||",  u"}",       u"}",
                                   u"Home {",        u"Ann=9||", u"}",       u"}"};
  for (int start = 0; start < 2; ++start) {
    book.Open(u"C:\\");
    book.Merge(older);
    EXPECT_EQ(Outline(book.List()), u"Ann Work{ Ben Ben 2 In{ Cleo } } Home{ Ann 2 }");
    EXPECT_EQ(book.List().favourites[1] + book.List().favourites[2] + book.List().lastUpdate, u"AnnAnnd");
    EXPECT_TRUE(book.Save());
  }
  EXPECT_TRUE(files.Keeps(before)) << "a line that the list does not hold";
  EXPECT_EQ(files.Paths().size(), 2u);
}

TEST(Friends, AreFoundByNameAndAddress) {
  FriendList list{{Group(u"ben", 1), Person(u"Ben", 2, u"Ben-PC"), Person(u"ben", 1, u"2.2.2.2"),
                   Person(u"-"), Person(u"Noone")},
                  {},
                  {}};
  EXPECT_EQ(FindFriend(list, u"ben"), 2u);
  EXPECT_EQ(FindFriend(list, u"BEN"), 1u);
  EXPECT_EQ(FindFriend(list, u"-"), kNoFriend);
  EXPECT_EQ(FindFriendByAddress(list, u"ben-pc"), 1u);
  EXPECT_EQ(FindFriendByAddress(list, u""), kNoFriend);
  EXPECT_EQ(CountFriends(list), 3u);
  EXPECT_EQ(EndOfGroup(Nested(), 0), 4u);
  EXPECT_EQ(EndOfGroup(Nested(), 1), 2u);
}

TEST(FriendEditing, RefusesWhatCannotBeKept) {
  const FriendList list = Nested();
  const auto check = [&](FriendEntry entry, std::size_t at = kNoFriend) {
    return CheckEntry(list, entry, at);
  };
  EXPECT_EQ(check(Person(u" B ")), FriendRefusal::kFriendExists);
  EXPECT_EQ(check(Person(u"B"), 1), FriendRefusal::kAccepted);
  EXPECT_EQ(check(Person(u"A")), FriendRefusal::kAccepted);
  EXPECT_EQ(check(Person(u"b")), FriendRefusal::kAccepted);
  EXPECT_EQ(check(Group(u"C")), FriendRefusal::kGroupExists);
  EXPECT_EQ(check(Person(u"  ")), FriendRefusal::kNameMissing);
  for (const TextView name : {u"a=b", u"a{b", u"}", u"a\nb", u"-"})
    EXPECT_EQ(check(Person(name)), FriendRefusal::kNameNotHeld) << ToUtf8(name);
  EXPECT_EQ(check(Group(u"a=b|")), FriendRefusal::kAccepted);
  for (const TextView address : {u"a|b", u"{", u"a\rb"})
    EXPECT_EQ(check(Person(u"x", 1, address)), FriendRefusal::kAddressNotHeld) << ToUtf8(address);
  // What is not refused comes back as it was.
  FriendList held{{Person(u"x|y", 1, u"a=b"), Group(u"a=b|"), Person(u"-", 2, u"a")}, {}, {}};
  EXPECT_EQ(ParseFriends(ComposeFriends(held)), held);
}

TEST(FriendEditing, InsertsRemovesAndRenames) {
  FriendList list = Nested();
  EXPECT_EQ(InsertEntry(list, Person(u"1"), 0), 4u);
  EXPECT_EQ(InsertEntry(list, Group(u"2"), 3), 4u);
  EXPECT_EQ(InsertEntry(list, Person(u"3"), kNoFriend), 8u);
  EXPECT_EQ(Outline(list), u"A{ B C{ D 2{ } } 1 } - e 3");
  list.favourites = {u"B", u"e", u"D"};
  FriendEntry renamed = list.entries[1];
  renamed.name = u"Bob";
  ChangeEntry(list, 1, renamed);
  RemoveEntry(list, 2);
  EXPECT_EQ(Outline(list), u"A{ Bob 1 } - e 3");
  EXPECT_EQ(list.favourites[0] + u"," + list.favourites[1] + u"," + list.favourites[2], u"Bob,e,");
  SetHomeGroup(list, 0);
  EXPECT_EQ(HomeGroup(list), 0u);
  SetHomeGroup(list, 1);
  EXPECT_EQ(HomeGroup(list), kNoFriend);
}

TEST(FriendEditing, MovesEntriesWithTheirMembers) {
  const auto moved = [](std::size_t at, std::size_t target, DropPlace place) {
    FriendList list = Nested();
    const Text name = list.entries[at].name;
    const std::size_t now = MoveEntry(list, at, target, place);
    EXPECT_EQ(list.entries[now].name, name);
    FriendList corrected = list;
    CorrectLevels(corrected);
    EXPECT_EQ(corrected, list);
    return Outline(list);
  };
  EXPECT_EQ(moved(2, 5, DropPlace::kBefore), u"A{ B } - C{ D } e");
  EXPECT_EQ(moved(2, 0, DropPlace::kBehind), u"A{ B } C{ D } - e");
  EXPECT_EQ(moved(0, kNoFriend, DropPlace::kBehind), u"- e A{ B C{ D } }");
  EXPECT_EQ(moved(5, 2, DropPlace::kInto), u"A{ B C{ D e } } -");
  EXPECT_EQ(moved(5, 3, DropPlace::kInto), u"A{ B C{ D e } } -");
  EXPECT_EQ(moved(5, 1, DropPlace::kBefore), u"A{ e B C{ D } } -");
  EXPECT_EQ(moved(0, 3, DropPlace::kInto), u"A{ B C{ D } } - e");
  EXPECT_EQ(moved(3, 0, DropPlace::kBehind), u"A{ B C{ } } D - e");
}

TEST(FriendEditing, MovesStepByStepAndByDropping) {
  FriendList list = Nested();
  const auto step = [&](std::size_t at, MoveStep to) {
    StepEntry(list, at, to);
    return Outline(list);
  };
  EXPECT_EQ(step(1, MoveStep::kUp), u"A{ B C{ D } } - e");
  EXPECT_EQ(step(1, MoveStep::kDown), u"A{ C{ D } B } - e");
  EXPECT_EQ(step(3, MoveStep::kIn), u"A{ C{ D B } } - e");
  EXPECT_EQ(step(2, MoveStep::kIn), u"A{ C{ D B } } - e");
  EXPECT_EQ(step(2, MoveStep::kOut), u"A{ C{ B } D } - e");
  EXPECT_EQ(step(3, MoveStep::kDown), u"A{ C{ B } D } - e");
  EXPECT_EQ(step(0, MoveStep::kDown), u"- A{ C{ B } D } e");
  EXPECT_EQ(step(5, MoveStep::kUp), u"- e A{ C{ B } D }");
  EXPECT_EQ(step(1, MoveStep::kOut), u"- e A{ C{ B } D }");
  EXPECT_EQ(DropPlaceAt(3, 16, true), DropPlace::kBefore);
  EXPECT_EQ(DropPlaceAt(4, 16, true), DropPlace::kInto);
  EXPECT_EQ(DropPlaceAt(12, 16, true), DropPlace::kBehind);
  EXPECT_EQ(DropPlaceAt(7, 16, false), DropPlace::kBefore);
  EXPECT_EQ(DropPlaceAt(8, 16, false), DropPlace::kBehind);
}

TEST(FriendEditing, SortsWithinAGroupBetweenSeparators) {
  FriendList list{{Person(u"z"), Group(u"M"), Person(u"y", 2), Person(u"X", 2), Person(u"a"), Person(u"-"),
                   Person(u"c"), Person(u"B")},
                  {},
                  {}};
  SortGroup(list, kNoFriend);
  EXPECT_EQ(Outline(list), u"a M{ y X } z - B c");
  SortGroup(list, 1);
  EXPECT_EQ(Outline(list), u"a M{ X y } z - B c");
}

}  // namespace
}  // namespace jotlets
