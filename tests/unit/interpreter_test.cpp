#include "command/interpreter.h"

#include <gtest/gtest.h>

#include "command/command_table.h"
#include "command/commands_page.h"
#include "fakes.h"
#include "friends/friends_file.h"

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
  EXPECT_EQ(Reply(u"do new jotlet_paste_image"), u"000 OK created: NEW1 but no image in clipboard");
  program.clipboard = u"clip";
  EXPECT_EQ(Reply(u"do new jotlet_paste_image"), u"000 OK created: NEW2 and pasted image");
  EXPECT_EQ(Reply(u"do new jotlet_paste_plainX"), u"000 OK created: NEW3 and pasted text");
  EXPECT_EQ(Reply(u"do new jotlet_paste"), u"000 OK created: NEW4 and pasted clipboard");
  EXPECT_EQ(Reply(u"do new imagejotlet C:\\a b.png"), u"000 OK created: NEW5");
  EXPECT_EQ(Reply(u"do new imagejotlet bad"), u"997 unable to load file");
  EXPECT_EQ(program.notes[2]->text + program.notes[3]->text + program.notes[4]->text,
            u"clip plainclip richC:\\a b.png");
  EXPECT_EQ(Reply(u"do new sleeping encoded <X>1"), u"000 OK created: ENC6");
  EXPECT_EQ(Reply(u"do new encoded  <X>2 "), u"000 OK created: ENC7");
  EXPECT_EQ(program.encoded, (std::vector<Text>{u"asleep:<X>1", u" <X>2 "}));
  const auto rows = CommandRows();
  for (std::size_t later = 0; later < rows.size(); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      EXPECT_FALSE(StartsWithIgnoreCase(rows[later].keyword, rows[earlier].keyword))
          << ToUtf8(rows[later].keyword);
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
  const auto record = [](TextView id) {
    JotletData made;
    made.id = id;
    return made;
  };
  program.sleeping.push_back(record(u"e"));
  program.attached.push_back(record(u"d"));
  program.closed.push_back(record(u"f"));
  program.stacks = {2, 11};
  EXPECT_EQ(Reply(u"get list desktop"), u"001 a,b,c,");
  EXPECT_EQ(Reply(u"get list attached"), u"001 d,");
  EXPECT_EQ(Reply(u"get list sleeping"), u"001 e,");
  EXPECT_EQ(Reply(u"get list closed"), u"001 f,");
  EXPECT_EQ(Reply(u"get list stacks"), u"001 2,11,");
  EXPECT_EQ(Reply(u"get list stored work"), u"001 ");
  program.stored.emplace_back(u"G", u"work");
  program.works = false;
  EXPECT_EQ(Reply(u"do fetch 1"), u"997 unable to fetch");
  EXPECT_EQ(Reply(u"do fetch 2"), u"995 not found");
  program.works = true;
  EXPECT_EQ(Reply(u"do find two words"), u"001 A1,two words,");
  EXPECT_EQ(Reply(u"do find  "), kNotUnderstood);
  program.closed.FindToChange(u"f")->deletedTime = 77;
  EXPECT_EQ(Reply(u"get closed F encoded"),
            u"001 <CLOSED>77" + MakeJotletLine(program.closed.back(), false) + u"<RTF>{\\rtf1 a^Mb}");
  EXPECT_EQ(Reply(u"get closed F title"), u"999 Not understood");
  EXPECT_EQ(Reply(u"get closed d encoded"), u"998 closed jotlet not found");
}

TEST_F(Commands, ReadWaitingNotesAndStacks) {
  JotletData waiting;
  waiting.id = u"w1";
  waiting.attachment.className = u"Pad";
  program.attached.push_back(waiting);
  EXPECT_EQ(Reply(u"GET ATTACHED W1 Encoded "),
            u"001 " + MakeJotletLine(waiting, false) + u"<RTF>{\\rtf1 a^Mb}");
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
  EXPECT_EQ(Reply(u"DO HIDEALL now"), u"000 OK hidden");
  EXPECT_TRUE(program.hidden);
  EXPECT_EQ(Reply(u"do showallx"), u"000 OK shown");
  EXPECT_FALSE(program.hidden);
  EXPECT_EQ(Reply(u"do recreateicon"), u"000 OK recreated");
  EXPECT_EQ(Reply(u"do backup D:\\backups\\before-the-move"), u"000 OK backup taken");
  EXPECT_EQ(Reply(u"do backup x"), u"997 Failure during backup");
  EXPECT_EQ(Reply(u"get snap"), u"001 1,10,2");
  EXPECT_EQ(Reply(u"set skin C:\\a b.jsk"), u"000 OK set");
  EXPECT_EQ(Reply(u"get skin"), u"001 C:\\a b.jsk");
  EXPECT_EQ(Reply(u"set skin bad"), u"997 unable to load file");
  program.skinFixed = true;
  EXPECT_EQ(Reply(u"set skin x"), u"997 forbidden by GPO");
  program.Add(u"A");
  EXPECT_EQ(Reply(u"set desktop A skinpath x"), u"997 forbidden by GPO");
  EXPECT_EQ(Reply(u"do manage open"), u"999 Not understood");
  program.manageOpen = false;
  EXPECT_EQ(Reply(u"do manage close"), u"997 it's already closed");
  EXPECT_EQ(Reply(u"do manage open"), u"000 OK opened");
  EXPECT_EQ(Reply(u"do manage open"), u"997 it's already open");
}

TEST_F(Commands, MenusOfOtherProgramsHoldEachWordOnce) {
  EXPECT_EQ(Reply(u"do jotletmenuadd  go  Go on "), u"000 OK added");
  EXPECT_EQ(Reply(u"do jotletmenuadd GO x"), u"996 Menu command already exists");
  EXPECT_EQ(Reply(u"do jotletsmenuadd go"), u"000 OK added");
  EXPECT_EQ(Reply(u"do jotletmenuadd "), u"999 Not understood");
  const std::vector<CustomCommand> shown = program.menus[0].Number(40);
  EXPECT_EQ(shown[0].caption, u"Go on");
  EXPECT_EQ(program.menus[1].List()[0].caption, u"go");
  EXPECT_EQ(Reply(u"do jotletmenudel Go"), u"000 OK removed");
  EXPECT_EQ(Reply(u"do jotletmenudel Go"), u"997 Not found to remove");
  EXPECT_EQ(WordOf(shown, 40) + WordOf(shown, -1), u"go") << "a menu that is open keeps its entries";
  EXPECT_FALSE(program.menus[1].List().empty());
  for (std::size_t i = 0; i < CustomCommands::kMax; ++i)
    Reply(u"do jotletmenuadd w" + IntText(static_cast<std::int64_t>(i)));
  EXPECT_EQ(Reply(u"do jotletmenuadd more"), u"997 unable to add");
}

TEST_F(Commands, ActionsAnswerForTheNotesState) {
  FakeJotlet& note = program.Add(u"A");
  program.Add(u"P").record.isImage = 1;
  EXPECT_EQ(Reply(u"do desktop A rolled"), u"000 OK rolled");
  EXPECT_EQ(Reply(u"get desktop A rolled"), u"001 1");
  EXPECT_EQ(Reply(u"do desktop A unrolled"), u"000 OK unrolled");
  note.rolls = false;
  EXPECT_EQ(Reply(u"do desktop A rolled"), u"997 unable to roll up");
  note.text = u"t";
  EXPECT_EQ(Reply(u"do desktop A appendpaste"), u"000 OK pasted at end");
  EXPECT_EQ(Reply(u"do desktop A appendpasteplain"), u"000 OK pasted plain at end");
  EXPECT_EQ(Reply(u"do desktop A copycontentplain"), u"000 OK plain content copied");
  EXPECT_EQ(note.clipboard, u"t+rich+plain");
  EXPECT_EQ(Reply(u"do desktop A copycontent"), u"000 OK content copied");
  EXPECT_EQ(note.clipboard, note.Rtf());
  note.record.readOnly = true;
  EXPECT_EQ(Reply(u"do desktop A appendpaste"), u"996 jotlet is read only");
  EXPECT_EQ(Reply(u"set desktop A style Style00"), u"996 jotlet is read only");
  EXPECT_EQ(Reply(u"do desktop P appendpasteplain"), u"997 jotlet is image");
  EXPECT_EQ(Reply(u"do desktop P copycontentplain"), u"997 jotlet is image");
  EXPECT_EQ(Reply(u"do desktop P copycontent"), u"000 OK content copied");
}

TEST_F(Commands, EveryFieldThatIsSetIsReadBack) {
  FakeJotlet& note = program.Add(u"A");
  const auto round = [&](TextView field, TextView value, TextView word) {
    const int saves = program.saves;
    EXPECT_EQ(Reply(Text(u"set desktop A ").append(field).append(u" ").append(value)),
              Text(u"000 OK ").append(word).append(u" set"));
    EXPECT_EQ(Reply(Text(u"get desktop A ").append(field)), Text(u"001 ").append(value));
    EXPECT_EQ(program.saves, saves + 1);
  };
  round(u"userstring1", u"<u> 1", u"userstring1");
  round(u"source", u"from afar", u"source");
  for (const TextView flag : {u"ontop", u"ghost", u"hidden"}) {
    round(flag, u"1", flag);
    round(flag, u"0", flag);
  }
  round(u"transparency", u"60", u"transparency");
  round(u"modified", u"1795251907 0 2026 11 21 9 5 7", u"modified");
  EXPECT_EQ(note.contentSaves, 1);
  round(u"skinpath", u"<default>", u"skin");
  Reply(u"set desktop A transparency 3");
  EXPECT_EQ(Reply(u"get desktop A transparency"), u"001 10");
  Reply(u"set desktop A modified 9 1");
  EXPECT_EQ(note.record.modified, INT32_MAX);
  Reply(u"set desktop A modified -2");
  EXPECT_EQ(Reply(u"get desktop A modified"), u"001 -2 -1 1969 12 31 23 59 58");
  note.record.modified = kNone;
  EXPECT_EQ(Reply(u"get desktop A modified"), u"997 no data");
  EXPECT_EQ(Reply(u"set desktop A skinpath paper"), u"000 OK skin set");
  EXPECT_EQ(Reply(u"get desktop A skinpath"), u"001 C:\\skins\\paper");
  EXPECT_EQ(Reply(u"set desktop A skinpath bad"), u"997 unable to set skin");
  EXPECT_EQ(Reply(u"set desktop A style Style00"), u"000 OK style set");
  EXPECT_EQ(Reply(u"set desktop A style none"), u"997 style not found");
  EXPECT_EQ(Reply(u"get desktop A type"), u"001 text");
  EXPECT_EQ(Reply(u"get desktop A handle"), u"001 65812");
  EXPECT_EQ(Reply(u"do findhandle 65812"), u"001 A");
  EXPECT_EQ(Reply(u"do findhandle 1"), u"995 not found");
  EXPECT_EQ(Reply(u"set desktop A image x.png"), u"997 jotlet is not image");
  note.record.isImage = 1;
  EXPECT_EQ(Reply(u"get desktop A type"), u"001 image");
  EXPECT_EQ(Reply(u"set desktop A image x.png"), u"000 OK image set");
  EXPECT_EQ(Reply(u"set desktop A image bad"), u"997 unable to load file");
}

TEST_F(Commands, AnIdIsNeverSharedAndAlwaysAName) {
  program.Add(u"A");
  program.Add(u"B");
  EXPECT_EQ(Reply(u"set desktop A id b"), u"996 id already exists");
  for (const TextView id : {u"", u"..\\x", u"a:b", u"nul"})
    EXPECT_EQ(Reply(Text(u"set desktop A id ").append(id)), u"997 unable to set id") << ToUtf8(id);
  EXPECT_EQ(Reply(u"set desktop A id C"), u"000 OK id set");
  EXPECT_EQ(Reply(u"get desktop A title"), u"998 jotlet not found");
  program.works = false;
  EXPECT_EQ(Reply(u"do find words"), u"997 still reading the notes");
  program.canFind = false;
  EXPECT_EQ(Reply(u"do find words"), u"997 the search cannot be used");
  EXPECT_EQ(Reply(u"set desktop C id D"), u"995 problem saving");
}

TEST_F(Commands, OfFriendsAndTheNet) {
  program.Add(u"A");
  program.friends = ParseFriends(u"Friends {\nAnna Lee=10.0.0.1||\n");
  EXPECT_EQ(Reply(u"get friendfromip 10.0.0.1 "), u"001 Anna Lee");
  EXPECT_EQ(Reply(u"get ipfromfriend Anna Lee"), u"001 10.0.0.1");
  EXPECT_EQ(Reply(u"get ipfromfriend nobody"), u"001 ");
  EXPECT_EQ(Reply(u"do netsend A address 10.0.0.1"), u"994 Unable to send");
  EXPECT_EQ(Reply(u"do netsend A pigeon x"), u"997 Unrecognised netsend method");
  EXPECT_EQ(Reply(u"do netsend X address y"), u"995 not found");
}

TEST_F(Commands, ExamplesOfTheTableAreUnderstood) {
  for (const CommandRow& row : CommandRows()) {
    if (row.run == NotYet) continue;
    FakeProgram fresh;
    fresh.manageOpen = false;
    fresh.Add(u"A1");
    fresh.stack.number = 1;
    JotletData note;
    for (auto [list, id] :
         {std::pair{&fresh.closed, u"C1"}, {&fresh.attached, u"T1"}, {&fresh.sleeping, u"S1"}}) {
      note.id = id;
      list->push_back(note);
    }
    const Text reply = fresh.Reply(row.example);
    EXPECT_TRUE(StartsWithIgnoreCase(row.example, row.keyword)) << ToUtf8(row.example);
    EXPECT_FALSE(reply.starts_with(u"999") || reply.starts_with(u"998")) << ToUtf8(row.example);
  }
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
  EXPECT_EQ(routed(u"\\\\host\\share\\a.jsk"), u"skin:\\\\host\\share\\a.jsk");
  for (const Text note :
       {u"C:\\a.jsk.txt", u"I like my.jsk", u"TEXT=a\nb.jsk", u"C:\\a\nb.jsk", u"\\\\.\\a.jsk"})
    EXPECT_EQ(routed(note), u"note:" + note);
  EXPECT_EQ(routed(u"#jotlet TEXT=C:\\a.jsk"), u"note:TEXT=C:\\a.jsk");
  EXPECT_EQ(routed(u"#jotlet FORM="), u"note:FORM=");
  EXPECT_EQ(routed(u"#Jotlet FORM="), u"note:#Jotlet FORM=");
  EXPECT_EQ(routed(u"api"), u"note:api");
  EXPECT_EQ(routed(u""), u"note:");
}

}  // namespace
}  // namespace jotlets
