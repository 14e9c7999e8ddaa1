#include "command/interpreter.h"

#include <gtest/gtest.h>

#include "command/desktop_fields.h"
#include "fakes.h"

namespace jotlets {
namespace {

class Commands : public testing::Test {
 protected:
  Text Reply(TextView command) { return program.Reply(command); }
  Text Journal() {
    Text all;
    for (const Text& line : program.journal) all.append(all.empty() ? u"" : u"|").append(line);
    return all;
  }

  FakeProgram program;
};

TEST_F(Commands, AreMatchedByPrefixWithoutRegardToCase) {
  EXPECT_EQ(Reply(u"DO PING"), u"000 OK pong");
  EXPECT_EQ(program.log.lines,
            (std::vector<Text>{u"API command received: \"DO PING\"", u"API sending: \"000 OK pong\""}));
  EXPECT_EQ(Reply(u"do pingpong"), u"000 OK pong");
  EXPECT_EQ(Reply(u"get version please"), u"001 Jotlets v8.0c");
  for (const TextView unknown :
       {u"", u"do", u"do pin", u" do ping", u"do  ping", u"get desktop", u"fly", u"000 OK"}) {
    EXPECT_EQ(Reply(unknown), u"999 Not understood") << ToUtf8(unknown);
  }
}

TEST_F(Commands, ALongerKeywordIsNeverTakenByAShorterOne) {
  for (const TextView command :
       {u"do new jotlet_paste_image", u"do new jotlet_paste_plainX", u"do new jotlet_paste",
        u"do new imagejotlet x", u"do new sleeping encoded <X>", u"do new encoded <X>"}) {
    Reply(command);
    EXPECT_TRUE(program.notes.empty()) << ToUtf8(command);
  }
  const auto keywords = CommandKeywords();
  for (std::size_t later = 0; later < keywords.size(); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      EXPECT_FALSE(StartsWithIgnoreCase(keywords[later], keywords[earlier])) << ToUtf8(keywords[later]);
    }
  }
}

TEST_F(Commands, EventsSavesAndRepliesHaveTheirOrder) {
  program.listeners.Register(FakeProgram::kClient);
  Reply(u"do new jotlet  two words ");
  EXPECT_EQ(program.notes[0]->text, u" two words ");
  Reply(u"set desktop new1 position -5,7");
  EXPECT_TRUE(program.notes[0]->record.x == -5 && program.notes[0]->record.y == 7);
  Reply(u"do desktop New1 delete");
  EXPECT_TRUE(program.notes.empty());
  EXPECT_EQ(FoldCase(Journal()),
            u"500 created desktop jotlet api new1|save|000 ok created: new1|save|000 ok position set|"
            u"509 desktop jotlet moved new1|502 deleted desktop jotlet api new1|save|000 ok deleted");
}

TEST_F(Commands, AddressedOnesAreSplitAtBlanks) {
  FakeJotlet& note = program.Add(u"AB");
  note.record.title = u"old";
  EXPECT_EQ(Reply(u"get desktop   ab   TITLE  "), u"001 old");
  EXPECT_EQ(Reply(u"set desktop  Ab  Title  two  words  "), u"000 OK title set");
  EXPECT_EQ(note.record.title, u" two  words");
  EXPECT_EQ(Reply(u"set desktop AB title"), u"000 OK title set");
  EXPECT_EQ(note.record.title, u"");
}

TEST_F(Commands, UnknownNotesAndWordsChangeNothing) {
  program.Add(u"AB");
  for (const TextView command :
       {u"do desktop XY close", u"get desktop XY title", u"set desktop XY title x", u"get desktop ",
        u"do desktop A close", u"set desktop ABC title x", u"get desktop XY nonsense"}) {
    EXPECT_EQ(Reply(command), u"998 jotlet not found") << ToUtf8(command);
  }
  for (const TextView command :
       {u"do desktop AB", u"do desktop AB deletex", u"do desktop AB delete now", u"do desktop AB clos",
        u"get desktop AB titl", u"set desktop AB titlex y", u"get desktop AB", u"set desktop AB"}) {
    EXPECT_EQ(Reply(command), u"999 Not understood") << ToUtf8(command);
  }
  EXPECT_EQ(program.notes.size(), 1u);
  EXPECT_EQ(program.saves, 0);
}

TEST_F(Commands, FieldsAreReadInTheirForms) {
  FakeJotlet& note = program.Add(u"A");
  note.text = u"a\u20ac";
  note.record.title = u"Hi", note.record.colour = {1, 20, 255}, note.record.x = -5, note.record.y = 6;
  note.record.width = 100, note.record.height = 50;
  EXPECT_EQ(Reply(u"get desktop A utitle"), u"001 00480069");
  EXPECT_EQ(Reply(u"get desktop A colour"), u"001 1,20,255");
  EXPECT_EQ(Reply(u"get desktop A text"), u"001 a\u20ac");
  EXPECT_EQ(Reply(u"get desktop A utext"), u"001 006120AC");
  EXPECT_EQ(Reply(u"get desktop A position"), u"001 -5,6");
  EXPECT_EQ(Reply(u"get desktop A size"), u"001 100x50");
  EXPECT_EQ(Reply(u"get desktop A rtf"), u"001 {\\rtf1 a\u20ac}");
  EXPECT_EQ(Reply(u"get desktop A encoded"),
            u"001 " + MakeJotletLine(note.record, false) + u"<RTF>{\\rtf1 a^Mb}");
}

TEST_F(Commands, FieldsAreSetFromTheirFormsAndSavedFirst) {
  FakeJotlet& note = program.Add(u"A");
  program.Add(u"P").record.isImage = 1;
  EXPECT_EQ(Reply(u"set desktop P rtf {\\rtf1 b}"), u"997 jotlet is image");
  program.journal.clear();
  EXPECT_EQ(Reply(u"set desktop A utitle 00480069"), u"000 OK title set");
  EXPECT_EQ(note.record.title, u"Hi");
  EXPECT_EQ(Reply(u"set desktop A utext 0061000D000A0062"), u"000 OK text set");
  EXPECT_EQ(note.text, u"a\r\nb");
  EXPECT_EQ(Reply(u"set desktop A text x"), u"000 OK text set");
  EXPECT_EQ(Reply(u"set desktop A rtf {\\rtf1 b}"), u"000 OK rtf set");
  EXPECT_EQ(note.text, u"{\\rtf1 b}");
  EXPECT_EQ(Reply(u"set desktop A colour 1,300,-1"), u"000 OK colour set");
  EXPECT_TRUE(note.record.colour == (Colour{1, 255, 0}));
  EXPECT_EQ(Journal(),
            u"save|000 OK title set|save|000 OK text set|save|000 OK text set|save|000 OK rtf set|save|000 "
            u"OK colour set");
}

TEST_F(Commands, ListsEndInACommaAndEmptyOnesAreEmpty) {
  EXPECT_EQ(Reply(u"get list desktop"), u"001 ");
  for (const TextView id : {u"a", u"b", u"c"}) program.Add(id);
  program.attached = {u"d"};
  JotletData asleep;
  asleep.id = u"e";
  program.sleeping.push_back(asleep);
  program.closed = {u"f"};
  program.stacks = {2, 11};
  EXPECT_EQ(Reply(u"get list desktop"), u"001 a,b,c,");
  EXPECT_EQ(Reply(u"get list attached"), u"001 d,");
  EXPECT_EQ(Reply(u"get list sleeping"), u"001 e,");
  EXPECT_EQ(Reply(u"get list closed"), u"001 f,");
  EXPECT_EQ(Reply(u"get list stacks"), u"001 2,11,");
}

TEST_F(Commands, ReadWaitingNotesAndStacks) {
  program.waiting.id = u"w1";
  program.waiting.attachClass = u"Pad";
  EXPECT_EQ(Reply(u"GET ATTACHED W1 Encoded "),
            u"001 " + MakeJotletLine(program.waiting, false) + u"<RTF>{\\rtf1 a^Mb}");
  program.stack = {0, 0, 0, 0, 12, 0, u"Hi"};
  EXPECT_EQ(Reply(u"get stack  12 utitle"), u"001 00480069");
  for (const TextView unknown :
       {u"get stack 1 utitle", u"get stack 012 utitle", u"get stack", u"get stack 12x utitle"})
    EXPECT_EQ(Reply(unknown), unknown == u"get stack" ? u"999 Not understood" : u"998 stack not found");
  EXPECT_EQ(Reply(u"get attached w2 encoded"), u"998 jotlet not found");
  for (const TextView other : {u"get stack 12 title", u"get attached w1 text"})
    EXPECT_EQ(Reply(other), u"999 Not understood");
}

TEST_F(Commands, OfTheProgramItself) {
  EXPECT_EQ(Reply(u"get datapath"), u"001 C:\\data\\");
  EXPECT_EQ(Reply(u"get uniqueid"), u"001 INSTALL");
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  EXPECT_EQ(program.saves, 1);
  EXPECT_EQ(Reply(u"do bringforward"), u"000 OK done");
  EXPECT_EQ(program.broughtForward, 1);
}

TEST_F(Commands, FailuresAreNotTakenForSuccess) {
  program.Add(u"A");
  program.works = false;
  EXPECT_EQ(Reply(u"do saveini"), u"995 problem saving");
  EXPECT_EQ(Reply(u"do desktop A close"), u"995 problem saving");
  EXPECT_TRUE(Reply(u"do new jotlet x").starts_with(u"997 "));
  EXPECT_EQ(program.notes.size(), 1u);
}

TEST_F(Commands, RegistrationIsOncePerClient) {
  EXPECT_EQ(Reply(u"do register"), u"000 OK will send events your way");
  EXPECT_EQ(Reply(u"do register"), u"997 already registered");
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong, with events");
  EXPECT_EQ(program.Reply(u"do ping", 8), u"000 OK pong");
  Reply(u"do new jotlet");
  EXPECT_EQ(Journal().find(u"500"), Journal().rfind(u"500"));
  EXPECT_EQ(Reply(u"do deregister"), u"000 OK no more events will be sent");
  EXPECT_EQ(Reply(u"do deregister"), u"997 not registered in the first place");
}

TEST_F(Commands, MayComeFromInsideAnEventOrAReply) {
  program.Add(u"A");
  program.Add(u"B");
  program.listeners.Register(8);
  int depth = 0;
  program.transport.onSend = [&](ClientWindow, TextView line) {
    program.journal.emplace_back(line);
    if (depth++ > 0) return;
    program.Execute(u"do desktop A delete", 8);
    program.Execute(u"do new jotlet", 8);
  };
  EXPECT_EQ(Reply(u"set desktop A position 1,2"), u"000 OK position set");
  EXPECT_EQ(program.journal.back(), u"509 desktop jotlet moved A");
  depth = 0;
  EXPECT_EQ(Reply(u"do desktop B close"), u"000 OK closed");
  depth = 0;
  EXPECT_EQ(Reply(u"do new jotlet"), u"000 OK created: NEW3");
  EXPECT_EQ(program.DesktopIds(), (std::vector<Text>{u"NEW1", u"NEW2", u"NEW3", u"NEW4"}));
}

TEST(Routing, TellsCommandsSkinsAndNotes) {
  const auto routed = [](TextView text, bool fixed = false) {
    const Inbound inbound = RouteInbound(text, fixed);
    const TextView kinds[] = {u"command:", u"skin:", u"note:"};
    return Text(kinds[static_cast<int>(inbound.kind)]).append(inbound.text);
  };
  EXPECT_EQ(routed(u"API do ping"), u"command:do ping");
  EXPECT_EQ(routed(u"api  do"), u"command: do");
  EXPECT_EQ(routed(u"api load x.jsk"), u"command:load x.jsk");
  EXPECT_EQ(routed(u"C:\\my.skins\\a.JSK"), u"skin:C:\\my.skins\\a.JSK");
  EXPECT_EQ(routed(u"C:\\a.jsk", true), u"note:C:\\a.jsk");
  EXPECT_EQ(routed(u"C:\\a.jsk.txt"), u"note:C:\\a.jsk.txt");
  EXPECT_EQ(routed(u"#jotlet FORM="), u"note:FORM=");
  EXPECT_EQ(routed(u"#Jotlet FORM="), u"note:#Jotlet FORM=");
  EXPECT_EQ(routed(u"api"), u"note:api");
  EXPECT_EQ(routed(u""), u"note:");
}

}  // namespace
}  // namespace jotlets
