// The text commands and events as other programs and scripts have them, and programs that behave badly.
#include <algorithm>
#include <atomic>
#include <thread>

#include "data/jotlet_id.h"
#include "data/text_file.h"
#include "ui/screen.h"
#include "window_test.h"

namespace jotlets {
namespace {

class CommandTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}, u"Debug=3"));
  }
};

TEST_F(CommandTest, EveryCommandRepliesAndTellsItsListenersInOrder) {
  struct Step {
    Text command;
    std::vector<Text> lines;  // "%" stands for the id of the new note
  };
  const Step steps[] = {
      {u"do ping", {u"000 OK pong"}},
      {u"do deregister", {u"997 not registered in the first place"}},
      {u"do register", {u"000 OK will send events your way"}},
      {u"DO REGISTER now", {u"997 already registered"}},
      {u"do ping", {u"000 OK pong, with events"}},
      {u"do new jotlet", {u"500 created desktop jotlet api %", u"000 OK created: %"}},
      {u"set desktop % title Gr\u00FC\u00DFe", {u"000 OK title set"}},
      {u"get desktop % title", {u"001 Gr\u00FC\u00DFe"}},
      {u"set desktop % utitle 00480069D83DDE00", {u"000 OK title set"}},
      {u"get desktop % utitle", {u"001 00480069D83DDE00"}},
      {u"set desktop % text  two  blanks", {u"000 OK text set"}},
      {u"get desktop % text", {u"001  two  blanks"}},
      {u"set desktop % utext 0041000D000A20AC", {u"000 OK text set"}},
      {u"get desktop % utext", {u"001 0041000D000A20AC"}},
      {u"set desktop % rtf {\\rtf1\\ansi plain {\\b bold}}", {u"000 OK rtf set"}},
      {u"get desktop % text", {u"001 plain bold"}},
      {u"set desktop % position 111,222", {u"000 OK position set", u"509 desktop jotlet moved %"}},
      {u"get desktop % position", {u"001 111,222"}},
      {u"get desktop % size", {u"001 232x405"}},
      {u"set desktop % colour 1,20,255", {u"000 OK colour set"}},
      {u"get desktop % colour", {u"001 1,20,255"}},
      {u"get desktop % nonsense", {u"999 Not understood"}},
      {u"get desktop NONE text", {u"998 jotlet not found"}},
      {u"get list desktop", {u"001 AA01,%,"}},
      {u"do bringforward", {u"000 OK done"}},
      {u"do saveini", {u"000 OK saved"}},
      {u"get version", {u"001 Jotlets v8.0c"}},
      {u"get datapath", {u"001 " + folder_}},
      {u"get uniqueid", {u"001 TEST"}},
      {u"do desktop aa01 close", {u"501 closed desktop jotlet api AA01", u"000 OK closed"}},
      {u"get list closed", {u"001 AA01,"}},
      {u"do desktop % delete", {u"502 deleted desktop jotlet api %", u"000 OK deleted"}},
      {u"do desktop % delete", {u"998 jotlet not found"}},
      {u"get list desktop", {u"001 "}},
      {u"make coffee", {u"999 Not understood"}},
      {u"do deregister", {u"000 OK no more events will be sent"}},
      {u"do ping", {u"000 OK pong"}},
  };
  Text id;
  std::vector<Text> events;
  client_.OnEvent([&](TextView line) { events.emplace_back(line); });
  Sent();
  for (const Step& step : steps) {
    SCOPED_TRACE(ToUtf8(step.command));
    events.clear();
    const Text reply = Reply(ReplaceAll(step.command, u"%", id));
    if (step.command == u"do new jotlet") id = reply.substr(reply.rfind(u' ') + 1);
    std::vector<Text> lines;
    for (const Text& line : step.lines) lines.push_back(ReplaceAll(line, u"%", id));
    EXPECT_EQ(Sent(), lines);
    std::erase(lines, reply);
    EXPECT_EQ(events, lines) << "what is left when the reply is taken out";
  }
  EXPECT_EQ(FilesBelow(folder_ + u"rtf\\"), std::vector<Text>{u"AA01.rtf"});

  const Text encoded = Value(u"get desktop " + Create(u"copy me") + u" encoded");
  EXPECT_TRUE(encoded.starts_with(u"<X>") && encoded.find(u"<RTF>{\\rtf1") != Text::npos) << ToUtf8(encoded);
  EXPECT_EQ(encoded.find(u'\n'), Text::npos);
}

TEST_F(CommandTest, NoPayloadDoesHarm) {
  const auto replyTo = [this](const std::string& bytes) {
    Reply(u"get version");
    EXPECT_TRUE(client_.SendBytes(bytes.data(), static_cast<DWORD>(bytes.size()), true, 0xFEDC1234));
    return client_.LastReply().value_or(u"");
  };
  const Text none = u"001 Jotlets v8.0c";  // the reply that was there before
  const std::string megabyte(1 << 20, 'x');
  EXPECT_EQ(replyTo("API do ping"), u"000 OK pong");
  EXPECT_EQ(client_.LastTag(), 0xFEDC1234u);
  for (const char* bytes : {"", "a", "api", "apido ping"}) EXPECT_EQ(replyTo(bytes), none) << bytes;
  EXPECT_EQ(replyTo("api "), u"999 Not understood");
  EXPECT_EQ(replyTo(std::string("api do ping\0do saveini", 22)), u"000 OK pong");
  EXPECT_EQ(replyTo(std::string("api \0do ping", 12)), u"999 Not understood");
  EXPECT_EQ(replyTo(std::string("\0api do ping", 12)), none);
  EXPECT_EQ(replyTo("api do ping" + megabyte), u"000 OK pong");
  EXPECT_EQ(replyTo("api set desktop AA01 title " + megabyte), u"000 OK title set");
  EXPECT_TRUE(Value(u"get desktop AA01 title") == FromAscii(megabyte));
  EXPECT_EQ(replyTo(megabyte), none);
  // What lies behind the given length does not belong to the text.
  EXPECT_TRUE(client_.SendBytes("api do ping", 10, true));
  EXPECT_EQ(client_.LastReply(), u"999 Not understood");
  client_.SendBytes(nullptr, 0, true);
  client_.SendBytes(nullptr, 500, true);

  // Without a sender, with one that never was, and with the program's own window as one.
  for (const HWND sender : {HWND{}, reinterpret_cast<HWND>(0x7FFFFFF0), MainWindow()}) {
    for (std::string command : {"api do register", "api do new jotlet Odd"}) {
      COPYDATASTRUCT record{0, static_cast<DWORD>(command.size()), command.data()};
      SendMessageTimeoutW(MainWindow(), WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                          reinterpret_cast<LPARAM>(&record), SMTO_NORMAL, kPatience, nullptr);
    }
  }
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
  EXPECT_EQ(List(u"desktop").size(), 4u);
  EXPECT_EQ(Close(), 0u);
}

TEST_F(CommandTest, AHangingListenerCannotHangTheProgram) {
  int heard = 0;
  client_.OnEvent([&](TextView) { ++heard; });
  ASSERT_EQ(Reply(u"do register"), u"000 OK will send events your way");
  std::atomic<bool> registered{false}, hung{false}, dropped{false};
  const UniqueHandle release(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::thread hanging([&] {
    CommandClient client;
    client.OnEvent([&](TextView) {
      hung = true;
      WaitForSingleObject(release.get(), kPatience);
    });
    registered = client.Open() && ReplyTo(client, u"do register").starts_with(u"000");
    WaitUntil([&] { return WaitForSingleObject(release.get(), 0) == WAIT_OBJECT_0; });
    dropped = ReplyTo(client, u"do ping") == u"000 OK pong";
  });
  EXPECT_TRUE(WaitUntil([&] { return registered.load(); }));
  // Two deliveries of two seconds each, and none from then on.
  const ULONGLONG start = GetTickCount64();
  for (int i = 0; i < 12; ++i) Create(u"note");
  EXPECT_LT(GetTickCount64() - start, 15000u);
  EXPECT_EQ(heard, 12) << "the other listener hears everything";
  SetEvent(release.get());
  hanging.join();
  EXPECT_TRUE(hung);
  EXPECT_TRUE(dropped);
}

TEST_F(CommandTest, ListenersMayGoAwayOrSendCommandsFromInsideAnEvent) {
  {
    CommandClient brief;
    ASSERT_TRUE(brief.Open());
    ASSERT_EQ(ReplyTo(brief, u"do register"), u"000 OK will send events your way");
  }
  Sent();
  const Text unheard = Create(u"nobody listens");
  EXPECT_EQ(Sent(), std::vector<Text>{u"000 OK created: " + unheard}) << "an event to a window that is gone";

  // This one deletes each note as it comes, before its creator knows of it.
  CommandClient deleting;
  ASSERT_TRUE(deleting.Open());
  Text inside;
  deleting.OnEvent([&](TextView line) {
    if (line.starts_with(u"500"))
      inside = ReplyTo(deleting, u"do desktop " + Text(line.substr(31)) + u" delete");
  });
  ASSERT_EQ(ReplyTo(deleting, u"do register"), u"000 OK will send events your way");
  Sent();
  const Text id = Create(u"short-lived");
  EXPECT_EQ(inside, u"000 OK deleted");
  EXPECT_EQ(Sent(),
            (std::vector<Text>{u"500 created desktop jotlet api " + id,
                               u"502 deleted desktop jotlet api " + id, inside, u"000 OK created: " + id}));
  EXPECT_EQ(Reply(u"get desktop " + id + u" text"), u"998 jotlet not found");
  EXPECT_EQ(List(u"desktop").size(), 2u);
}

TEST_F(WindowTest, IdsFromOutsideNeverBecomePaths) {
  const Text hostile[] = {u"..\\evil", u"CON",     u"a/b",          u"C:\\evil",
                          u"x*y",      u"NUL.txt", Text(250, u'E'), u"evil."};
  Text lines;
  for (const Text& id : hostile) {
    lines += u"<X>0100<Y>0100<WIDTH>200<HEIGHT>100<ID>" + id + u"<TRANSPARENCY>0<RTF>{\\rtf1\\ansi evil}\n";
  }
  Write(folder_ + Text(kDataFileName),
        EncodeTextFile(u"[Options]\niniver=3\nID=TEST\nTakeBackups=0\n\n[Jotlets]\n" + lines +
                       u"\n[Deleted jotlets]\n" + lines));
  ASSERT_TRUE(StartProgram());
  std::vector<Text> allowed = {u"data\\jotlets.ini", u"data\\options.ini"};
  for (const TextView list : {u"desktop", u"closed"}) {
    const std::vector<Text> ids = List(list);
    EXPECT_EQ(ids.size(), std::size(hostile));
    for (const Text& id : ids) {
      EXPECT_TRUE(IsPlainFileName(id)) << ToUtf8(id);
      allowed.push_back(u"data\\rtf\\" + id + u".rtf");
      Reply(u"set desktop " + id + u" text mine");
    }
  }
  std::sort(allowed.begin(), allowed.end());
  EXPECT_EQ(FilesBelow(scratch_), allowed);
  EXPECT_EQ(Reply(u"do desktop ..\\evil delete"), u"998 jotlet not found");
}

// The command-line client, as a script uses it.
class JotletctlTest : public WindowTest {
 protected:
  Process Start(const Text& arguments, std::string_view input = {}) const {
    Write(scratch_ + u"in.txt", input);
    return Process(ProgramFolder() + u"jotletctl.exe", arguments, scratch_ + u"in.txt",
                   scratch_ + u"out.txt");
  }
  std::string Output() const { return Read(scratch_ + u"out.txt"); }

  // Its exit code, a colon and what it printed.
  std::string Run(const Text& arguments, std::string_view input = {}) const {
    const std::optional<DWORD> code = Start(arguments, input).WaitForEnd();
    return (code ? std::to_string(*code) : "none") + ":" + Output();
  }
};

TEST_F(JotletctlTest, PrintsRepliesAndEndsWithTheirOutcome) {
  const Text greeting = u"Gr\u00FC\u00DFe aus K\u00F6ln";
  EXPECT_TRUE(Run(u"do ping").starts_with("2:jotletctl: Jotlets is not running"));
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, greeting)}));
  EXPECT_EQ(Run(u"do ping"), "0:000 OK pong\n");
  EXPECT_EQ(Run(u"get desktop AA01 title"), "0:001 " + ToUtf8(greeting) + "\n");
  EXPECT_EQ(Run(u"get desktop NONE title"), "1:998 jotlet not found\n");
  EXPECT_EQ(Run(u"set desktop AA01 text a " + greeting), "0:000 OK text set\n");
  EXPECT_EQ(TextOf(u"AA01"), u"a " + greeting);
  EXPECT_TRUE(Run(u"do new jotlet \U0001F600").starts_with("3:"));
  EXPECT_EQ(Run(u"", "get version\r\n\nmake coffee\nset desktop AA01 text " + ToUtf8(greeting) +
                         "\nget desktop AA01 text"),
            "1:001 Jotlets v8.0c\n999 Not understood\n000 OK text set\n001 " + ToUtf8(greeting) + "\n");
}

TEST_F(JotletctlTest, ListensUntilTheProgramEnds) {
  ASSERT_TRUE(StartProgramWith({}));
  const Process listener = Start(u"--listen");
  std::string expected = "000 OK will send events your way\n";
  ASSERT_TRUE(WaitUntil([&] { return Output() == expected; })) << Output();
  const std::string id = ToUtf8(Create(u"heard"));
  expected += "500 created desktop jotlet api " + id + "\n";
  EXPECT_TRUE(WaitUntil([&] { return Output() == expected; })) << Output();
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(listener.WaitForEnd(), 0u);
  EXPECT_EQ(Output(),
            expected + "501 closed desktop jotlet appExit " + id + "\n503 jotlets is exiting, so long\n");
}

TEST_F(JotletctlTest, WaitsPrintsJsonAndCompletes) {
  // A start takes commands when its notes are loaded; until then the first client waits.
  Process waiting = Start(u"--wait=25 --json get desktop AA01 position");
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 310})}));
  EXPECT_EQ(waiting.WaitForEnd(), 0u);
  EXPECT_EQ(Output(), "{\"code\":1,\"ok\":true,\"text\":\"300,310\",\"x\":300,\"y\":310}\n");
  EXPECT_EQ(Run(u"--json get desktop NONE title"),
            "1:{\"code\":998,\"ok\":false,\"text\":\"jotlet not found\"}\n");
  EXPECT_EQ(Run(u"--complete get desktop \"\""), "0:AA01\n");
  EXPECT_EQ(Run(u"--complete --json do desktop AA01 cl"), "0:close\n");
  EXPECT_EQ(Run(u"--complete do jotletsmenu"), "0:jotletsmenuadd\njotletsmenudel\n");
  EXPECT_TRUE(Run(u"--completion bash").starts_with("0:_jotletctl"));
  EXPECT_TRUE(Run(u"--nonsense do ping").starts_with("3:"));
  Close();
  EXPECT_TRUE(Run(u"--wait=0 do ping").starts_with("2:"));
}

}  // namespace
}  // namespace jotlets
