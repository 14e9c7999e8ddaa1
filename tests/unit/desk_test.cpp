#include <gtest/gtest.h>

#include "data/text_file.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

using Lines = std::vector<Text>;

constexpr TextView kOneOfEach =
    u"[Stacks]\n<ID>9\n[Jotlets]\nkept\n<ID>A<X>5<Y>5<RTF>\n<ID>B<ATTACHTITLE>t<ATTACHCLASS>c<RTF>\n"
    u"<ID>C<SLEEPING>1<SLEEPNEXTWAKE>5<ATTACHCLASS>c<RTF>\n[Deleted jotlets]\n7|<ID>D<RTF>\n";

TEST(Desk, PutsEachNoteOfAFileWhereItBelongs) {
  FakeDesk home;
  home.Load(kOneOfEach);
  const NoteLists& lists = home.Lists();
  EXPECT_EQ(IdsOf(lists.desktop), Lines{u"A"});
  EXPECT_EQ(IdsOf(lists.attached), Lines{u"B"});
  EXPECT_EQ(IdsOf(lists.sleeping), Lines{u"C"});
  EXPECT_EQ(IdsOf(lists.closed), Lines{u"D"});
  EXPECT_TRUE(lists.verbatim.size() == 1 && lists.stacks.size() == 1);
  EXPECT_EQ(lists.WhereIs(u"d"), NoteList::kClosed);
  EXPECT_EQ(lists.WhereIs(u"E"), std::nullopt);
  EXPECT_TRUE(home.events.empty() && !home.windows.At(u"A").shown);
  EXPECT_EQ(lists.desktop.Find(u"a")->width, home.options.defaultWidth);
}

TEST(Desk, ANoteWithoutAWindowSleepsInsteadOfBeingLost) {
  FakeDesk home;
  home.windows.hasWindows = false;
  home.Load(u"[Jotlets]\n<ID>A<STACK>3<HIDDEN><RTF>\n");
  EXPECT_EQ(IdsOf(home.Lists().sleeping), Lines{u"A"});
  EXPECT_FALSE(home.Lists().sleeping.Find(u"A")->hidden) << "its stack is lost";
  home.windows.hasWindows = true;
  home.asleep.WakeSleeping();
  EXPECT_TRUE(home.IsOpen(u"A"));
}

TEST(Desk, ANewNoteIsOnTheDiskShownLoggedAndToldOf) {
  FakeDesk home;
  NewNote fresh;
  fresh.reason = Reason::kApi;
  fresh.text = u"hello";
  const Text id = home.desk.Create(fresh);
  EXPECT_EQ(home.TakeJournal(), (Lines{u"show " + id, u"created desktop jotlet api " + id}));
  EXPECT_EQ(home.files.Get(u"D:\\rtf\\" + id + u".rtf"), "{\\rtf1 new}");
  EXPECT_TRUE(home.windows.At(id).content->unsaved && home.changes > 0);
  EXPECT_TRUE(home.log.Holds(u"Created (api) " + id));
  home.windows.hasWindows = false;
  EXPECT_TRUE(home.desk.Create(fresh).empty());
}

TEST(Desk, NothingAppearsWhileNotesAreHidden) {
  FakeDesk home;
  home.Load(kOneOfEach);
  home.options.hidden = 1;
  const Text made = home.desk.Create({});
  home.asleep.WakeSleeping();
  home.desk.Restore({u"D"});
  home.desk.Arrive(u"B", std::nullopt, true);
  const Text admitted = home.desk.Admit(u"<ID>E<X>5<RTF>", false, Reason::kApi);
  for (const Text& id : {made, Text(u"C"), Text(u"D"), Text(u"B"), admitted})
    EXPECT_TRUE(home.IsOpen(id) && !home.windows.At(id).shown) << ToUtf8(id);
  for (const TextView reason : {u"user", u"waking", u"restored", u"attached", u"api"})
    EXPECT_TRUE(home.log.Holds(u"Created (" + Text(reason) + u") ")) << ToUtf8(reason);
}

TEST(Desk, WhatCannotBeWrittenStaysOpen) {
  FakeDesk home;
  home.Load(kOneOfEach);
  home.windows.Type(u"A", u"{\\rtf1 more}");
  home.files.unchangeable.insert(u"d:\\rtf\\a.rtf");
  EXPECT_FALSE(home.desk.Close(u"A", Reason::kUser) || home.desk.Sleep(u"A", home.Now() + 60, {}) ||
               home.desk.Depart(u"A"));
  EXPECT_EQ(home.desk.Rename(u"A", u"Z"), Renamed::kFailed);
  EXPECT_TRUE(home.IsOpen(u"A") && home.events.empty());
  EXPECT_TRUE(home.log.Holds(u"Unable to save the content of jotlet A: disk full"));
  home.files.unchangeable.clear();
  EXPECT_TRUE(home.desk.Close(u"a", Reason::kUser));
  EXPECT_EQ(home.files.Get(u"D:\\rtf\\A.rtf"), "{\\rtf1 more}");
  EXPECT_EQ(home.Lists().closed.Find(u"A")->deletedTime, home.Now());
}

TEST(Desk, ClosedNotesFallOffTheEndOnceTheyAreToldOf) {
  FakeDesk home;
  home.options.keepDeleted = 1;
  home.Load(kOneOfEach);
  home.desk.Close(u"A", Reason::kUser);
  EXPECT_EQ(home.TakeJournal(), (Lines{u"closed desktop jotlet user A", u"deleted closed jotlet D"}));
  EXPECT_TRUE(home.files.Exists(u"D:\\rtf\\D.rtf")) << "until the data file has forgotten it";
  EXPECT_TRUE(home.desk.Saver().SaveJotlets(u"D:\\jotlets.ini", true));
  EXPECT_FALSE(home.files.Exists(u"D:\\rtf\\D.rtf"));
  EXPECT_EQ(home.desk.CloseWaiting({u"B", u"none", u"c"}), (Lines{u"B", u"C"}));
  EXPECT_EQ(IdsOf(home.Lists().closed), Lines{u"C"});
  EXPECT_EQ(home.desk.BringBack({u"C", u"B"}, NoteList::kSleeping), 1u);
  EXPECT_TRUE(home.Lists().sleeping.Find(u"C")->deletedTime == kNotSet);
  home.options.keepDeleted = -1;
  home.desk.CloseWaiting({u"C"});
  EXPECT_TRUE(home.Lists().closed.empty());
}

TEST(Desk, WhatAListenerClosesMeanwhileFallsOffInItsTurn) {
  FakeDesk home;
  home.options.keepDeleted = 0;
  home.Load(u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n");
  home.windows.onClose = [&](const Text& id) {
    if (id == u"A") home.desk.Close(u"B", Reason::kApi);
  };
  home.desk.Close(u"A", Reason::kUser);
  EXPECT_EQ(home.TakeJournal(), (Lines{u"closed desktop jotlet api B", u"deleted closed jotlet B",
                                       u"closed desktop jotlet user A", u"deleted closed jotlet A"}));
}

TEST(Desk, AnAlarmOutOfSightIsKeptForTheNextStart) {
  FakeDesk home;
  home.Load(u"[Jotlets]\n<ID>C<SLEEPING>1<SLEEPNEXTWAKE>5<SLEEPALARM>2<RTF>\n");
  home.options.hidden = 1;
  home.asleep.WakeSleeping();
  EXPECT_EQ(home.Lists().desktop.Find(u"C")->alarm, home.Now());
}

TEST(Desk, RestoresManyBeforeItTellsOfAny) {
  FakeDesk home;
  home.Load(u"[Deleted jotlets]\n<ID>A<SLEEPING>1<HIDDEN><RTF>\n<ID>B<RTF>\n");
  home.onEvent = [&](const NoteEvent&) { EXPECT_TRUE(home.IsOpen(u"A") && home.IsOpen(u"B")); };
  EXPECT_EQ(home.desk.Restore({u"b", u"A", u"gone"}), 1u);
  ASSERT_EQ(home.events.size(), 2u);
  EXPECT_EQ(home.events[0].ids, Lines{u"A"}) << "in the order of the list";
  home.onEvent = nullptr;
  EXPECT_TRUE(home.windows.At(u"A").shown);
  home.desk.Close(u"B", Reason::kUser);
  home.TakeJournal();
  EXPECT_EQ(home.desk.Restore({u"B"}), 0u);
  EXPECT_EQ(home.TakeJournal().front(), u"focus B") << "one alone is gone on with";
}

TEST(Desk, RenamesWithoutLosingTheContent) {
  FakeDesk home;
  home.Load(kOneOfEach);
  EXPECT_EQ(home.desk.Rename(u"A", u"b"), Renamed::kTaken);
  EXPECT_EQ(home.desk.Rename(u"A", u"a,b"), Renamed::kNoName);
  EXPECT_EQ(home.desk.Rename(u"A", u"New"), Renamed::kYes);
  EXPECT_EQ(home.files.Get(u"D:\\rtf\\New.rtf"), "{\\rtf1 A}");
  EXPECT_TRUE(home.files.Exists(u"D:\\rtf\\A.rtf") && home.Lists().desktop.Find(u"new")->id == u"New");
  EXPECT_TRUE(home.desk.Saver().SaveJotlets(u"D:\\jotlets.ini", true) &&
              !home.files.Exists(u"D:\\rtf\\A.rtf"));
}

TEST(Desk, DeletingIsToldOfBeforeTheNoteGoes) {
  FakeDesk home;
  home.Load(kOneOfEach);
  home.onEvent = [&](const NoteEvent& event) {
    EXPECT_TRUE(event.kind == EventKind::kDeleted && home.IsOpen(u"A"));
    home.onEvent = nullptr;
    EXPECT_TRUE(home.desk.Close(u"A", Reason::kApi));
  };
  EXPECT_FALSE(home.desk.Delete(u"A", Reason::kDeleted)) << "a listener has closed it meanwhile";
  EXPECT_EQ(home.Lists().WhereIs(u"A"), NoteList::kClosed);
}

TEST(Desk, WhatIsDiscardedCanBeHadBackUntilItIsForgotten) {
  FakeDesk home;
  home.Load(kOneOfEach);
  home.windows.Type(u"A", u"{\\rtf1 more}");
  EXPECT_TRUE(home.desk.Discard(u"a", Reason::kDeleted));
  EXPECT_EQ(home.TakeJournal(), Lines{u"deleted desktop jotlet deleted A"});
  EXPECT_FALSE(home.IsOpen(u"A") || home.Lists().WhereIs(u"A"));
  EXPECT_TRUE(home.desk.Saver().SaveJotlets(u"D:\\jotlets.ini", true));
  EXPECT_EQ(home.files.Get(u"D:\\rtf\\A.rtf"), "{\\rtf1 more}");
  EXPECT_TRUE(home.desk.Undelete(u"A") && home.IsOpen(u"A") && !home.desk.Undelete(u"A"));
  EXPECT_TRUE(home.desk.Discard(u"A", Reason::kDeleted));
  home.desk.ForgetDiscarded();
  EXPECT_FALSE(home.desk.Undelete(u"A"));
  EXPECT_TRUE(home.desk.Saver().SaveJotlets(u"D:\\jotlets.ini", true) &&
              !home.files.Exists(u"D:\\rtf\\A.rtf"));
}

TEST(Desk, StacksThatGoLeaveNoNoteHidden) {
  FakeDesk home;
  home.Load(
      u"[Stacks]\n<ID>1\n[Jotlets]\n<ID>A<STACK>1<HIDDEN><ATTACHCLASS>c<RTF>\n<ID>B<STACK>1<HIDDEN><SLEEPING>"
      u"1<RTF>\n"
      u"<ID>C<STACK>2<HIDDEN><SLEEPING>1<RTF>\n");
  home.desk.RemoveStack(1);
  const NoteLists& lists = home.Lists();
  EXPECT_TRUE(lists.attached.Find(u"A")->stack == kNone && !lists.attached.Find(u"A")->hidden);
  EXPECT_TRUE(lists.sleeping.Find(u"B")->stack == kNone && !lists.sleeping.Find(u"B")->hidden);
  EXPECT_TRUE(lists.sleeping.Find(u"C")->stack == 2 && lists.sleeping.Find(u"C")->hidden);
  EXPECT_TRUE(lists.stacks.empty());
}

TEST(Desk, AttachedNotesComeWithTheirWindowAndGoWithIt) {
  FakeDesk home;
  struct Watcher final : WindowWatcher {
    std::vector<WindowFacts> windows;
    std::vector<WindowFacts> Look() override { return windows; }
  } watcher;
  AttachedNotes attached(home.desk, home.windows, home.options, home.clock, watcher);
  home.Load(
      u"[Jotlets]\n<ID>B<ATTACHTITLE>pad<ATTACHCLASS>c<ATTACHPOSTYPE>1<ATTACHPOSX>10<ATTACHPOSY>-900<RTF>\n");
  attached.Pass();
  EXPECT_EQ(home.Lists().WhereIs(u"B"), NoteList::kAttached);
  watcher.windows = {{u"pad", u"c", false, true, true, {100, 100, 400, 300}}};
  attached.Pass();
  EXPECT_TRUE(home.IsOpen(u"B") && home.windows.At(u"B").shown);
  EXPECT_EQ(home.windows.At(u"B").bounds.TopLeft(), (Point{110, 8})) << "not off the screen";
  EXPECT_TRUE(home.log.Holds(u"from appearing off screen (moved from 110,-800"));
  watcher.windows.clear();
  attached.Pass();
  EXPECT_EQ(home.Lists().WhereIs(u"B"), NoteList::kAttached);
  EXPECT_TRUE(home.TakeJournal().back() == u"deleted desktop jotlet unattached B");
  EXPECT_EQ(home.desk.Unattach({u"B"}), 0u);
  EXPECT_TRUE(home.IsOpen(u"B") && !home.Lists().desktop.Find(u"B")->IsAttached());
}

// Random verbs, and listeners that do more of them from inside an event, a closing or a showing window.
class RandomDesk : public FakeDesk {
 public:
  explicit RandomDesk(unsigned seed) : random_(seed) {
    options.keepDeleted = 12;
    const auto meddle = [this](const auto&) {
      if (depth_ < 3 && random_.Below(4) == 0) Act();
    };
    onEvent = [this, meddle](const NoteEvent& event) {
      if (event.kind == EventKind::kDeletedClosed || event.reason == Reason::kDeleted)
        gone_.insert(FoldCase(event.ids[0]));
      meddle(event);
    };
    windows.onClose = meddle;
    windows.onShow = meddle;
  }

  void Act() {
    ++depth_;
    ActOnce();
    --depth_;
    ExpectSound();
  }

 private:
  Text Any() {
    const NoteLists& lists = Lists();
    std::vector<Text> ids;
    switch (random_.Below(4)) {
      case 0: ids = IdsOf(lists.desktop); break;
      case 1: ids = IdsOf(lists.attached); break;
      case 2: ids = IdsOf(lists.sleeping); break;
      default: ids = IdsOf(lists.closed); break;
    }
    if (ids.empty() && !lists.desktop.empty()) ids = IdsOf(lists.desktop);
    return ids.empty() ? Text(u"none") : ids[random_.Below(ids.size())];
  }

  void ActOnce() {
    const Text id = Any();
    const WakeFlags flags{random_.Below(2) == 0, random_.Below(2) == 0, random_.Below(2) == 0};
    windows.hasWindows = random_.Below(8) != 0;
    switch (random_.Below(22)) {
      case 0:
      case 1:
        if (Lists().desktop.size() < 12) desk.Create({});
        break;
      case 2: desk.Close(id, Reason::kUser); break;
      case 3: desk.Delete(id, Reason::kDeleted); break;
      case 4: desk.Restore({id, Any()}); break;
      case 5: desk.Sleep(id, Now() + std::int64_t{random_.Below(100)}, flags); break;
      case 6: desk.Recur(id, {kEvery, 0, 1, kHours}, Now(), kNone, flags); break;
      case 7: asleep.WakeSleeping(); break;
      case 8: asleep.WakeSleeping(id); break;
      case 9: desk.Depart(id); break;
      case 10: desk.Arrive(id, Point{random_.Below(2) == 0 ? -9999 : 9, 9}, true); break;
      case 11: desk.Unattach({id, Any()}); break;
      case 12: desk.CloseWaiting({id, Any()}); break;
      case 13: desk.DeleteClosed({id}); break;
      case 14: desk.BringBack({id}, random_.Below(2) == 0 ? NoteList::kSleeping : NoteList::kAttached); break;
      case 15:
        if (desk.Rename(id, u"R" + IntText(random_.Below(40))) == Renamed::kYes) gone_.insert(FoldCase(id));
        break;
      case 16:
        desk.Admit(u"<ID>E" + IntText(random_.Below(9)) + u"<X>1<RTF>{\\rtf1 x}", random_.Below(2) == 0,
                   Reason::kApi);
        break;
      case 17: desk.Discard(id, Reason::kDeleted); break;
      case 18:
        if (!Lists().discarded.empty()) desk.Undelete(Lists().discarded.back().id);
        break;
      case 19: desk.ForgetDiscarded(); break;
      case 20: clock.Move(random_.Below(4000)); break;
      default:
        if (IsOpen(id)) windows.Type(id, u"{\\rtf1 typed}");
        // A disk that is full now and then.
        files.changesUntilFailure = random_.Below(3) == 0 ? static_cast<int>(random_.Below(3)) : -1;
        desk.Saver().SaveIfDirty();
        files.changesUntilFailure = -1;
        break;
    }
    if (Lists().sleeping.size() > 30) desk.CloseWaiting(IdsOf(Lists().sleeping));
  }

  // Each note in one list and no other, with its content; each window of an open note and of no other.
  void ExpectSound() {
    const NoteLists& lists = Lists();
    std::set<Text> ids;
    std::size_t notes = 0;
    const auto check = [&](const JotletData& record, NoteList list) {
      ++notes;
      ids.insert(FoldCase(record.id));
      ASSERT_EQ(lists.WhereIs(record.id), list) << ToUtf8(record.id);
      ASSERT_TRUE(files.Exists(Text(kFolder) + ContentPath(record))) << ToUtf8(record.id);
    };
    for (const auto& record : lists.desktop) check(*record, NoteList::kDesktop);
    for (const JotletData& record : lists.attached) check(record, NoteList::kAttached);
    for (const JotletData& record : lists.sleeping) check(record, NoteList::kSleeping);
    for (const JotletData& record : lists.closed) check(record, NoteList::kClosed);
    for (const JotletData& record : lists.discarded)
      ASSERT_TRUE(files.Exists(Text(kFolder) + ContentPath(record))) << ToUtf8(record.id);
    ASSERT_EQ(ids.size(), notes);
    // What fell off the end of the closed notes is told of last, what is deleted by the user first.
    if (depth_ > 0) return;
    for (const Text& id : known_)
      ASSERT_TRUE(ids.contains(id) || gone_.contains(id)) << ToUtf8(id) << " is lost";
    known_ = std::move(ids);
    for (const Text& id : known_) gone_.erase(id);
    ASSERT_EQ(windows.open.size(), lists.desktop.size());
    for (const auto& record : lists.desktop) ASSERT_EQ(windows.At(record->id).record.get(), record.get());
  }

  Random random_;
  int depth_ = 0;
  std::set<Text> known_, gone_;
};

TEST(Desk, NoNoteIsEverInTwoListsInNoneOrWithoutItsContent) {
  int verbs = 0;
  for (unsigned seed = 0; verbs < 100000; ++seed) {
    RandomDesk desk(seed);
    for (int i = 0; i < 500; ++i, ++verbs) {
      desk.Act();
      if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed << ", verb " << i;
    }
    desk.log.lines.clear();
  }
}

}  // namespace
}  // namespace jotlets
