#include "desk/note_admission.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "schedule/recurrence.h"

namespace jotlets {
namespace {

class Admission : public testing::Test {
 protected:
  std::optional<AdmittedNote> Admit(TextView encoded, bool asleep = false) {
    return AdmitEncodedNote(
        {files, log, u"C:\\d\\", blank, ids, [this](TextView id) { return taken.contains(FoldCase(id)); }},
        encoded, asleep);
  }

  FakeFiles files;
  FakeLog log;
  JotletData blank;
  FreshId ids = CountingIds();
  std::set<Text> taken;
};

// A note with every flag and text that a record can hold.
JotletData FullRecord() {
  JotletData note;
  note.id = u"SOURCE", note.x = -5, note.y = 7, note.width = 300, note.height = 200;
  note.title = u"T <i> ^M \u20ac", note.source = u"a<b>", note.userString1 = u"u";
  note.onTop = note.rolled = note.readOnly = note.user1 = note.user2 = note.user3 = true;
  note.hidden = note.ghost = note.stang = true;
  note.colour = {1, 2, 3}, note.transparency = 40, note.alarm = 5, note.created = 9, note.modified = 11;
  note.scroll = {0, 30}, note.skin = u"paper", note.lastSend = u"sent\nto", note.fromRecurring = u"R";
  note.stack = 3;
  return note;
}

TEST_F(Admission, TakesWhatIsGivenForATextWithEveryFlag) {
  const JotletData note = FullRecord();
  const Text content = u"{\\rtf1 a^Mb\r\nc^\\'5e}";
  const auto admitted = Admit(MakeEncodedJotlet(note, false, content));
  ASSERT_TRUE(admitted);
  EXPECT_EQ(admitted->record, note);
  EXPECT_EQ(admitted->list, NoteList::kDesktop);
  // The user's own "^M" is no line break.
  EXPECT_EQ(files.Get(u"C:\\d\\rtf\\SOURCE.rtf"), "{\\rtf1 a\\'5eMb\r\nc^\\'5e}");
}

TEST_F(Admission, PutsANoteWhereItBelongs) {
  JotletData note = FullRecord();
  const auto list = [&](TextView front = u"", bool asleep = false) {
    const auto admitted = Admit(Text(front) + MakeEncodedJotlet(note, false, {}), asleep);
    return admitted ? admitted->list : NoteList::kDesktop;
  };
  EXPECT_EQ(list(u"", true), NoteList::kSleeping);
  EXPECT_EQ(Admit(u"<UTITLE>0041", true)->record.sleep.nextWake, kNeverAgain)
      << "without a time it stays asleep";
  EXPECT_EQ(Admit(u"<SLEEPING>1<SLEEPNEXTWAKE>7<RTF>", true)->record.sleep.nextWake, 7);
  note.attachment.className = u"Notepad";
  EXPECT_EQ(list(), NoteList::kAttached);
  note.sleep.asleep = true;
  EXPECT_EQ(list(), NoteList::kSleeping);
  EXPECT_EQ(list(u"<CLOSED>77", true), NoteList::kClosed);
  EXPECT_EQ(Admit(u"<closed>77<X>5<RTF>", true)->record.deletedTime, 77);
  EXPECT_EQ(Admit(u"<CLOSED>77")->record.deletedTime, 77);
  EXPECT_EQ(list(u"<CLOSED>-65535"), NoteList::kClosed);
}

TEST_F(Admission, NeverWritesOverAnotherNote) {
  taken.insert(u"a");
  files.Put(u"C:\\d\\rtf\\B.rtf", "old");
  files.Put(u"C:\\d\\images\\C.png", "picture");
  files.Put(u"C:\\d\\default.png", "white");
  for (const TextView id : {u"A", u"b", u"C", u"..\\..\\x", u"a/b", u"NUL", u"x,y", u"x y", u""}) {
    const auto admitted = Admit(u"<ID>" + Text(id) + u"<RTF>{\\rtf1 new}");
    ASSERT_TRUE(admitted);
    EXPECT_TRUE(admitted->record.id.starts_with(u"FRESH")) << ToUtf8(id);
  }
  EXPECT_EQ(files.Get(u"C:\\d\\rtf\\B.rtf"), "old");
  // A copy of a picture that is here shows the same; any other shows the template.
  EXPECT_EQ(files.Get(u"C:\\d\\images\\" + Admit(u"<ID>C<IMAGE><RTF>")->record.id + u".png"), "picture");
  EXPECT_EQ(files.Get(u"C:\\d\\images\\" + Admit(u"<ID>Z<IMAGE><RTF>")->record.id + u".png"), "white");
  for (const Text& path : files.Paths()) EXPECT_TRUE(path.starts_with(u"C:\\d\\"));
  files.changesUntilFailure = 0;
  EXPECT_FALSE(Admit(u"<ID>Y<RTF>{\\rtf1 new}"));
}

}  // namespace
}  // namespace jotlets
