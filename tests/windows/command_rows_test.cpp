// Every command with the program behind it, from two clients at once, and what such clients can do to it.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <random>
#include <thread>

#include "base/win/wide.h"
#include "command/command_table.h"
#include "data/text_file.h"
#include "friends/friends_file.h"
#include "note/win/jotlet.h"
#include "picture/picture.h"
#include "picture/picture_file.h"
#include "picture/win/picture_clipboard.h"
#include "res/resource.h"
#include "ui/clipboard.h"
#include "ui/screen.h"
#include "window_test.h"

namespace jotlets {
namespace {

std::string Png(std::uint8_t shade) { return EncodePng({{2, 2}, std::vector<std::uint8_t>(16, shade)}); }

class RowsTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    Write(folder_ + Text(kFriendsFileName),
          EncodeTextFile(
              u"[Friends]\nDate=\nFriends {\nAnna=192.168.1.20||\nOffice {\n  Ben=ben-pc||\n}\n}\n"));
    Write(scratch_ + u"a.png", Png(255));
    ASSERT_TRUE(
        StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One"), NoteRecord(u"AA02", {600, 300})},
                         u"Debug=3\nTakeBackups=0\nStyle00=-19|0|0|0|700|0|0|0|0|3|2|1|34|Arial|0|0|0|"
                         u"255|0|0"));
    ASSERT_TRUE(second_.Open());
  }

  CommandClient second_;
};

TEST_F(RowsTest, TwoClientsUseTheRowsAndGetExactlyTheirRepliesAndAllEvents) {
  const auto clip = [](TextView plain, const std::string& rtf) {
    return [=] { ASSERT_TRUE(PutTextOnClipboard(nullptr, plain, rtf)); };
  };
  struct Step {
    Text command;
    std::vector<Text> lines;  // "%" stands for the id of the note that was made last
    std::function<void()> before = [] {};
  };
  const Text made = u"500 created desktop jotlet api %";
  const auto picture = [] { ASSERT_TRUE(PutPictureOnClipboard(nullptr, Png(255))); };
  const Step steps[] = {
      {u"do register", {u"000 OK will send events your way"}},
      {u"do register", {u"000 OK will send events your way"}},
      {u"do bringforward", {u"000 OK done"}},
      {u"do new jotlet_paste_plain",
       {made, u"000 OK created: % and pasted text"},
       clip(u"clip", "{\\rtf1 {\\b clip}}")},
      {u"do desktop % appendpasteplain", {u"000 OK pasted plain at end"}},
      {u"get desktop % text", {u"001 clipclip"}},
      {u"set desktop % title Gr\u00FC\u00DFe", {u"000 OK title set"}},
      {u"get desktop % title", {u"001 Gr\u00FC\u00DFe"}},
      {u"set desktop % utitle 00480069D83DDE00", {u"000 OK title set"}},
      {u"get desktop % utitle", {u"001 00480069D83DDE00"}},
      {u"set desktop % utext 0041000D000A20AC", {u"000 OK text set"}},
      {u"get desktop % utext", {u"001 0041000D000A20AC"}},
      {u"set desktop % rtf {\\rtf1\\ansi plain {\\b bold}}", {u"000 OK rtf set"}},
      {u"get desktop % text", {u"001 plain bold"}},
      {u"set desktop % position 111,222", {u"000 OK position set", u"509 desktop jotlet moved %"}},
      {u"get desktop % position", {u"001 111,222"}},
      {u"get desktop % size", {u"001 232x405"}},
      {u"set desktop % colour 1,20,255", {u"000 OK colour set"}},
      {u"get desktop % colour", {u"001 1,20,255"}},
      {u"get list desktop", {u"001 AA01,AA02,%,"}},
      {u"do desktop % delete", {u"502 deleted desktop jotlet api %", u"000 OK deleted"}},
      {u"get list desktop", {u"001 AA01,AA02,"}},
      {u"do new jotlet_paste", {made, u"000 OK created: % and pasted clipboard"}},
      {u"do new jotlet_paste_image", {made, u"000 OK created: % but no image in clipboard"}},
      {u"do new jotlet_paste_image", {made, u"000 OK created: % and pasted image"}, picture},
      {u"get desktop % type", {u"001 image"}},
      {u"do desktop % copycontent", {u"000 OK content copied"}},
      {u"set desktop % rtf {\\rtf1 x}", {u"997 jotlet is image"}},
      {u"set desktop % image " + scratch_ + u"a.png", {u"000 OK image set"}},
      {u"set desktop % image " + scratch_ + u"none.png", {u"997 unable to load file"}},
      {u"do new imagejotlet " + scratch_ + u"a.png", {made, u"000 OK created: %"}},
      {u"do new imagejotlet " + folder_ + u"jotlets.ini", {u"997 unable to load file"}},
      {u"do manage close", {u"997 it's already closed"}},
      {u"do manage open", {u"000 OK opened"}},
      {u"do manage open", {u"997 it's already open"}},
      {u"do manage close", {u"000 OK closed"}},
      {u"do recreateicon", {u"000 OK recreated"}},
      {u"do saveini", {u"000 OK saved"}},
      {u"do backup " + scratch_ + u"taken", {u"000 OK backup taken"}},
      {u"do hideall", {u"000 OK hidden"}},
      {u"do showall", {u"000 OK shown"}},
      {u"set skin " + scratch_ + u"none.jsk", {u"997 unable to load file"}},
      {u"get skin", {u"001 "}},
      {u"get snap", {u"001 1,10,2"}},
      {u"get datapath", {u"001 " + folder_}},
      {u"get uniqueid", {u"001 TEST"}},
      {u"get friendfromip BEN-PC", {u"001 Ben"}},
      {u"do desktop AA01 rolled", {u"000 OK rolled"}},
      {u"get desktop AA01 rolled", {u"001 1"}},
      {u"do desktop AA01 unrolled", {u"000 OK unrolled"}},
      {u"set desktop AA01 userstring1 mine", {u"000 OK userstring1 set"}},
      {u"get desktop AA01 userstring1", {u"001 mine"}},
      {u"set desktop AA01 ontop 1", {u"000 OK ontop set"}},
      {u"get desktop AA01 ontop", {u"001 1"}},
      {u"set desktop AA01 ghost 1", {u"000 OK ghost set"}},
      {u"get desktop AA01 ghost", {u"001 1"}},
      {u"set desktop AA01 hidden 1", {u"000 OK hidden set"}},
      {u"get desktop AA01 hidden", {u"001 1"}},
      {u"set desktop AA01 transparency 50", {u"000 OK transparency set"}},
      {u"get desktop AA01 transparency", {u"001 50"}},
      {u"set desktop AA01 text some words", {u"000 OK text set"}},
      {u"set desktop AA01 style Style00", {u"000 OK style set"}},
      {u"set desktop AA01 style Style07", {u"997 style not found"}},
      {u"set desktop AA01 modified 1000000000", {u"000 OK modified set"}},
      {u"set desktop AA01 skinpath <default>", {u"000 OK skin set"}},
      {u"get desktop AA01 skinpath", {u"001 <default>"}},
      {u"set desktop AA01 skinpath ..\\none", {u"997 unable to set skin"}},
      {u"set desktop AA01 id aa02", {u"996 id already exists"}},
      {u"set desktop AA01 id Renamed", {u"000 OK id set"}},
      {u"get desktop RENAMED text", {u"001 some words"}},
      {u"do desktop aa02 close", {u"501 closed desktop jotlet api AA02", u"000 OK closed"}},
      {u"get list closed", {u"001 AA02,"}},
  };
  std::vector<Text> heard[2];
  client_.OnEvent([&](TextView line) { heard[0].emplace_back(line); });
  second_.OnEvent([&](TextView line) { heard[1].emplace_back(line); });
  Sent();
  Text id;
  int turn = 0;
  for (const Step& step : steps) {
    SCOPED_TRACE(ToUtf8(step.command));
    ASSERT_NO_FATAL_FAILURE(step.before());
    CommandClient& sender = turn++ % 2 == 0 ? client_ : second_;
    const CommandClient& other = &sender == &client_ ? second_ : client_;
    const std::optional<Text> othersReply = other.LastReply();
    for (auto& lines : heard) lines.clear();
    const Text reply = ReplyTo(sender, ReplaceAll(step.command, u"%", id));
    if (reply.starts_with(u"000 OK created: ")) id = SplitAtFirst(TextView(reply).substr(16), u' ').head;
    EXPECT_EQ(other.LastReply(), othersReply) << "a reply went to the wrong client";
    std::vector<Text> events, sent;
    for (const Text& line : step.lines) {
      const Text told = ReplaceAll(line, u"%", id);
      const bool isEvent = told.starts_with(u"5");
      sent.insert(sent.end(), isEvent ? 2 : 1, told);
      if (isEvent) {
        events.push_back(told);
      } else {
        EXPECT_EQ(reply, told);
      }
    }
    for (const auto& lines : heard) EXPECT_EQ(lines, events);
    EXPECT_EQ(Sent(), sent) << "each event to each listener, the reply before or behind them";
  }
  EXPECT_TRUE(Value(u"get desktop Renamed rtf").find(u"Arial") != Text::npos) << "the style's font";
  EXPECT_TRUE(Value(u"get desktop Renamed modified").starts_with(u"1000000000 0 2001 9 9 "));
  const Text handle = Value(u"get desktop Renamed handle");
  EXPECT_EQ(Reply(u"do findhandle " + handle), u"001 Renamed");
  EXPECT_EQ(Read(folder_ + ContentPath(ParseData().jotlets.back().record)), Png(255))
      << "the picture's bytes";
  EXPECT_TRUE(std::filesystem::exists(scratch_ + u"taken\\jotlets.ini"));
  // The content has moved with the id, and the next start finds it.
  EXPECT_FALSE(std::filesystem::exists(folder_ + u"rtf\\AA01.rtf"));
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"Renamed"), u"some words");
}

TEST_F(RowsTest, AnEncodedNoteIsTakenBackAsItWas) {
  JotletData full = NoteRecord(u"FULL", {40, 50}, u"T <b> ^M");
  full.onTop = full.rolled = full.readOnly = full.user1 = full.user3 = full.ghost = full.stang = true;
  full.userString1 = u"u", full.source = u"a<b>", full.transparency = 70, full.colour = {1, 2, 3};
  full.lastSend = u"x\ny", full.fromRecurring = u"R", full.alarm = 3, full.created = 77;
  ASSERT_EQ(Close(), 0u);
  Write(folder_ + u"images\\PIC.png", Png(255));
  JotletData picture = NoteRecord(u"PIC", {300, 50});
  picture.isImage = 1;
  ASSERT_TRUE(StartProgramWith({full, picture}, u"Debug=0"));
  Write(folder_ + u"images\\PIC.png", Png(255));
  ASSERT_EQ(Reply(u"set desktop FULL rtf {\\rtf1\\ansi one^M\\par {\\b two}\\u8364?}"), u"000 OK rtf set");
  for (const TextView source : {u"FULL", u"PIC"}) {
    SCOPED_TRACE(ToUtf8(source));
    const Text encoded = Value(Text(u"get desktop ").append(source).append(u" encoded"));
    const Text copy = Value(u"do new encoded " + encoded, u"000 OK created: ");
    ASSERT_FALSE(copy.empty());
    EXPECT_EQ(TextOf(copy), TextOf(Text(source)));
    const Text again = Value(u"get desktop " + copy + u" encoded");
    EXPECT_EQ(ReplaceAll(again, copy, source), encoded);
  }
  EXPECT_EQ(TextOf(u"FULL"), u"one^M\r\ntwo\u20ac");
  // A closed note is handed out as one, and one that is to sleep does.
  ASSERT_EQ(Reply(u"do desktop FULL close"), u"000 OK closed");
  const Text closed = Value(u"get closed FULL encoded");
  EXPECT_TRUE(closed.starts_with(u"<CLOSED>1")) << ToUtf8(closed);
  const std::size_t shown = List(u"desktop").size();
  const Text asleep = Value(u"do new sleeping encoded <UTITLE>0048<RTF>{\\rtf1 z}", u"000 OK created: ");
  EXPECT_EQ(List(u"sleeping"), std::vector<Text>{asleep});
  EXPECT_EQ(List(u"desktop").size(), shown);
  EXPECT_EQ(Close(), 0u);
}

TEST_F(RowsTest, MenusShowWhatProgramsAddAndTellThem) {
  std::vector<Text> events;
  client_.OnEvent([&](TextView line) {
    if (line.starts_with(u"504") || line.starts_with(u"505")) events.emplace_back(line);
  });
  ASSERT_EQ(Reply(u"do register"), u"000 OK will send events your way");
  EXPECT_EQ(Reply(u"do jotletsmenuadd today &Zzz today"), u"000 OK added");
  EXPECT_EQ(Reply(u"do jotletmenuadd translate &Zzz this"), u"000 OK added");
  ChooseInTrayMenu({'Z'});
  EXPECT_TRUE(WaitUntil([&] { return events == std::vector<Text>{u"504 custom Jotlets command: today"}; }));
  const HWND note = NoteTitled(u"One");
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, Title(note), true));
  PressKeys({'Z'});
  EXPECT_TRUE(WaitUntil([&] { return events.size() == 2; }));
  EXPECT_EQ(events.back(), u"505 custom jotlet command: translate AA01");

  // Left by the keyboard out of a menu below; then what is chosen has been removed meanwhile.
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, Title(note), true));
  for (const int key : {VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_RIGHT, VK_ESCAPE, VK_ESCAPE})
    PressKeys({static_cast<WORD>(key)});
  EXPECT_TRUE(WaitUntil([this] { return !MenuIsOpen(); }));
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, Title(note), true));
  EXPECT_EQ(Reply(u"do jotletmenudel translate"), u"000 OK removed");
  PressKeys({'Z'});
  EXPECT_TRUE(WaitUntil([&] { return events.size() == 3; }));
  EXPECT_EQ(events.back(), u"505 custom jotlet command: translate AA01");
}

// What a fuzzer would send: rows cut, joined, doubled and filled with anything.
TEST_F(RowsTest, ThousandsOfMalformedCommandsFromTwoThreadsAllGetTheirReply) {
  std::atomic<int> replies{0};
  const auto send = [&replies](unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t end) { return random() % end; };
    CommandClient client;
    if (!client.Open()) return;
    const auto rows = CommandRows();
    constexpr TextView kOdd[] = {u"AA01", u"%s%n", u"..\\..\\x", u"-99999999999",
                                 u",,,",  u"<",    u"\u00FF",    u"  "};
    for (int i = 0; i < 1500; ++i) {
      const CommandRow& row = rows[below(rows.size())];
      // These would write files or replace what is on the clipboard of the machine.
      if (row.example.starts_with(u"do backup") || row.example.starts_with(u"do new")) {
        replies += ReplyTo(client, row.example.substr(0, below(7))).starts_with(u"999") ? 1 : 0;
        continue;
      }
      Text command(row.keyword.substr(0, row.keyword.size() - below(3)));
      for (std::size_t parts = below(5); parts > 0; --parts)
        command.append(u" ").append(kOdd[below(std::size(kOdd))]);
      if (below(10) == 0) command.append(5000, u'x');
      const Text reply = ReplyTo(client, command);
      replies += reply.size() >= 4 && reply[0] <= u'9' && reply[3] == u' ' ? 1 : 0;
    }
  };
  std::thread other(send, 1u);
  send(2u);
  // The thread's window needs no help of ours, but the listeners among us do.
  WaitUntil([&] { return replies.load() >= 3000; }, 120000);
  other.join();
  EXPECT_EQ(replies.load(), 3000);
  EXPECT_TRUE(Reply(u"do ping").starts_with(u"000 OK pong"));
  EXPECT_EQ(Close(), 0u);
}

// Its window is gone while the program is answering it.
TEST_F(RowsTest, ASenderMayDieWhileItIsAnswered) {
  const wchar_t* const name = L"DyingSender";
  WNDCLASSW windowClass{};
  windowClass.lpszClassName = name;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
    DestroyWindow(window);
    return TRUE;
  };
  RegisterClassW(&windowClass);
  for (std::string command :
       {"api do register", "api do ping", "api do new jotlet x", "api get list desktop"}) {
    const HWND sender =
        CreateWindowExW(0, name, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    COPYDATASTRUCT record{1, static_cast<DWORD>(command.size()), command.data()};
    EXPECT_NE(SendMessageTimeoutW(MainWindow(), WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                                  reinterpret_cast<LPARAM>(&record), SMTO_NORMAL, kPatience, nullptr),
              0)
        << command;
    EXPECT_FALSE(IsWindow(sender)) << command;
  }
  EXPECT_EQ(Reply(u"do new jotlet heard by nobody").substr(0, 4), u"000 ");
  EXPECT_EQ(Close(), 0u);
}

class FriendsTest : public RowsTest {
 protected:
  static void Press(HWND dialog, int control) {
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(control),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, control)));
  }
  void Name(TextView name, TextView address = u"") {
    const HWND dialog = DialogWith(IDC_FRIEND_NAME);
    ASSERT_NE(dialog, nullptr);
    SendMessageW(GetDlgItem(dialog, IDC_FRIEND_NAME), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(Wide(Text(name))));
    SendMessageW(GetDlgItem(dialog, IDC_FRIEND_ADDRESS), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(Wide(Text(address))));
    Press(dialog, IDOK);
  }
  // What the box says that has come over the dialogs; it is closed.
  Text AnswerRefusal() {
    HWND box = nullptr;
    const bool there = WaitUntil([&] {
      box = GetForegroundWindow();
      const auto dialogs = WindowsOfClass(L"#32770", program_->Id());
      return std::count(dialogs.begin(), dialogs.end(), box) > 0 &&
             GetDlgItem(box, IDC_FRIEND_NAME) == nullptr && GetDlgItem(box, IDC_FRIEND_TREE) == nullptr;
    });
    if (!there) return u"(no box)";
    Text text;
    for (HWND part = nullptr; (part = FindWindowExW(box, part, L"Static", nullptr)) != nullptr;)
      text += TextOfWindow(part);
    PressKeys({VK_RETURN});
    return WaitUntil([box] { return !IsWindow(box); }) ? text : u"(stays open) " + text;
  }
  Text File() const { return DecodeTextFile(Read(folder_ + Text(kFriendsFileName)), AnsiCodePage()).text; }
};

TEST_F(FriendsTest, AreEditedAsATreeAndWrittenOnOk) {
  ChooseInTrayMenu({'F'});
  const HWND dialog = DialogWith(IDC_FRIEND_TREE);
  ASSERT_NE(dialog, nullptr);
  const HWND tree = GetDlgItem(dialog, IDC_FRIEND_TREE);
  const auto count = [&] { return SendMessageW(tree, TVM_GETCOUNT, 0, 0); };
  EXPECT_EQ(count(), 3);
  EXPECT_EQ(TextOfWindow(GetDlgItem(dialog, IDC_FRIEND_STATUS)), u"Total Friends: 2");
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_FRIEND_GET_NEW)));
  Press(dialog, IDC_FRIEND_NEW);
  ASSERT_NO_FATAL_FAILURE(Name(u"Anna", u"1.2.3.4"));
  EXPECT_TRUE(AnswerRefusal().find(u"That friend name already exists") != Text::npos);
  ASSERT_NO_FATAL_FAILURE(Name(u"Car=l"));
  EXPECT_TRUE(AnswerRefusal().find(u"cannot be kept") != Text::npos);
  ASSERT_NO_FATAL_FAILURE(Name(u"Carl", u"1.2.3.4"));
  ASSERT_TRUE(WaitUntil([&] { return count() == 4; }));
  // Behind Anna, who was selected; now he is dragged into the group.
  const LRESULT row = SendMessageW(tree, TVM_GETITEMHEIGHT, 0, 0);
  const Rect bounds = BoundsOf(tree);
  const auto middle = [&](LRESULT line) {
    return Point{bounds.left + 40, bounds.top + 2 + static_cast<std::int32_t>(line * row + row / 2)};
  };
  const auto isDragged = [dialog] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info) && info.hwndCapture == dialog;
  };
  const auto drag = [&](LRESULT from, LRESULT to) {
    const Point start = middle(from);
    const Point end = middle(to);
    SetCursorPos(start.x, start.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    int step = 0;
    ASSERT_TRUE(WaitUntil([&] {
      SetCursorPos(start.x + ++step % 8, start.y);
      mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
      return isDragged();
    }));
    SetCursorPos(end.x, end.y);
    mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !isDragged(); }));
  };
  drag(1, 2);
  Press(dialog, IDC_FRIEND_SET_HOME);  // refused: a friend is selected
  Press(dialog, IDC_FRIEND_NEW_GROUP);
  ASSERT_NO_FATAL_FAILURE(Name(u"Inner"));
  ASSERT_TRUE(WaitUntil([&] { return count() == 5; }));
  Press(dialog, IDC_FRIEND_SET_HOME);
  Press(dialog, IDC_FRIEND_NEW_SEPARATOR);
  ASSERT_TRUE(WaitUntil([&] { return count() == 6; }));
  const HWND favourite = GetDlgItem(dialog, IDC_FRIEND_FAVOURITE + 3);
  EXPECT_EQ(SendMessageW(favourite, CB_GETCOUNT, 0, 0), 4) << "nobody, and three friends";
  SendMessageW(favourite, CB_SETCURSEL, 3, 0);
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_FRIEND_FAVOURITE + 3, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(favourite));
  Press(dialog, IDOK);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  EXPECT_EQ(ToUtf8(File()),
            ToUtf8(u"[Friends]\nDate=\nFF3:Carl\nFriends {\nAnna=192.168.1.20||\nOffice {\n  Ben=ben-pc||\n"
                   u"  Carl=1.2.3.4||\n  Inner { (home)\n    -\n  }\n}\n}\n"));
  EXPECT_EQ(Reply(u"get friendfromip 1.2.3.4"), u"001 Carl");
  // Without the check mark, and on Cancel, the list stays as it was.
  for (const bool ok : {true, false}) {
    ChooseInTrayMenu({'F'});
    const HWND again = DialogWith(IDC_FRIEND_TREE);
    ASSERT_NE(again, nullptr);
    Press(again, IDC_FRIEND_DELETE);
    if (ok) SendMessageW(GetDlgItem(again, IDC_FRIEND_TAKE_LIST), BM_CLICK, 0, 0);
    Press(again, ok ? IDOK : IDCANCEL);
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(again); }));
    EXPECT_EQ(Reply(u"get ipfromfriend Anna"), u"001 192.168.1.20");
  }
}

}  // namespace
}  // namespace jotlets
