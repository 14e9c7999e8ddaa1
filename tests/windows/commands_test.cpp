// The text commands and events as other programs and scripts have them, and programs that behave badly.
#include <atomic>
#include <thread>

#include "command/interpreter.h"
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
  std::atomic<bool> registered{false};
  std::vector<Text> late;
  const UniqueHandle release(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::thread hanging([&] {
    CommandClient client;
    client.OnEvent([&](TextView line) {
      if (late.empty()) WaitForSingleObject(release.get(), kPatience);
      late.emplace_back(line);
    });
    registered = client.Open() && ReplyTo(client, u"do register").starts_with(u"000");
    WaitUntil([&] { return late.size() >= 12; });
  });
  EXPECT_TRUE(WaitUntil([&] { return registered.load(); }));
  // It is waited for once, and handed the rest when it looks at its messages again.
  const ULONGLONG start = GetTickCount64();
  std::vector<Text> created;
  created.reserve(12);
  for (int i = 0; i < 12; ++i) created.push_back(u"500 created desktop jotlet api " + Create(u"note"));
  EXPECT_LT(GetTickCount64() - start, 8000u);
  EXPECT_EQ(heard, 12) << "the other listener hears everything";
  SetEvent(release.get());
  // Messages of this thread are none of the other's; it is the program that goes on.
  hanging.join();
  EXPECT_EQ(late, created);
}

TEST_F(CommandTest, AClientThatIsBusyGetsItsRepliesLaterAndALargeMessageEndsNothing) {
  const HWND client = client_.Handle();
  Reply(u"get version");
  const UniqueHandle sent(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::thread busy([&] {
    // In the name of a window whose thread looks at no messages meanwhile.
    for (std::string command : {"api do new jotlet first", "api do ping"}) {
      COPYDATASTRUCT record{7, static_cast<DWORD>(command.size()), command.data()};
      SendMessageW(MainWindow(), WM_COPYDATA, reinterpret_cast<WPARAM>(client),
                   reinterpret_cast<LPARAM>(&record));
    }
    SetEvent(sent.get());
  });
  Sent();
  WaitForSingleObject(sent.get(), kPatience);
  EXPECT_TRUE(WaitUntil([&] { return client_.LastReply() == u"000 OK pong"; }));
  EXPECT_EQ(client_.LastTag(), 7u);
  busy.join();
  const std::vector<Text> replies = Sent();
  ASSERT_EQ(replies.size(), 2u);
  EXPECT_TRUE(replies[0].starts_with(u"000 OK created: "));

  // What the system itself cannot hand over, or what we do not take, leaves the program as it was.
  std::string large = "API do ping" + std::string(2 * kLargestInbound, 'x');
  COPYDATASTRUCT record{7, static_cast<DWORD>(large.size()), large.data()};
  SendMessageTimeoutW(MainWindow(), WM_COPYDATA, reinterpret_cast<WPARAM>(client),
                      reinterpret_cast<LPARAM>(&record), SMTO_NORMAL, 1000, nullptr);
  EXPECT_EQ(Reply(u"get version"), u"001 Jotlets v8.0c");
  EXPECT_EQ(Close(), 0u);
}

TEST_F(CommandTest, ListenersMaySendCommandsFromInsideAnEvent) {
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
  EXPECT_EQ(List(u"desktop"), std::vector<Text>{u"AA01"});
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
