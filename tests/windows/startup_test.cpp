// Starting and ending, in every way there is.
#include <windows.h>

#include <shellapi.h>

#include <filesystem>

#include "app/win/program_instance.h"
#include "base/win/wide.h"
#include "data/text_file.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "ui/screen.h"
#include "window_test.h"

namespace jotlets {
namespace {

bool IsAbove(HWND upper, HWND lower) {
  HWND window = upper;
  while (window != nullptr && window != lower) window = GetWindow(window, GW_HWNDNEXT);
  return window == lower;
}

class StartupTest : public WindowTest {
 protected:
  static std::optional<DWORD> RunToEnd(const Text& arguments) {
    return Process(ProgramFile(), arguments).WaitForEnd();
  }
};

TEST_F(StartupTest, ASecondStartBringsTheNotesForwardAndEnds) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}));
  const HWND note = NoteTitled(u"One");
  const HWND cover = CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 290, 290, 300,
                                     300, nullptr, nullptr, nullptr, nullptr);
  SetWindowPos(cover, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ASSERT_TRUE(IsAbove(cover, note));
  EXPECT_EQ(RunToEnd(u"-rescue"), 0u);
  EXPECT_TRUE(WaitUntil([&] { return IsAbove(note, cover); }));
  EXPECT_EQ(RunToEnd(u""), 0u);
  DestroyWindow(cover);
  EXPECT_EQ(WindowsOfClass(kMainWindowClass).size(), 1u);
  EXPECT_EQ(WindowsOfClass(kJotletClass).size(), 1u);

  EXPECT_EQ(RunToEnd(u"-close"), 0u);
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

TEST_F(StartupTest, TheUsageTextIsShownAndNothingElse) {
  const Process process(ProgramFile(), u"-?");
  EXPECT_EQ(AnswerBox(process),
            u"jotlets.exe command line options:\n\n-close: closes existing instance of Jotlets\n"
            u"jotlet.jtl: opens filename, and sends\n                 to existing Jotlets instance");
  EXPECT_EQ(process.WaitForEnd(), 0u);
  EXPECT_EQ(FilesBelow(scratch_), std::vector<Text>());
}

TEST_F(StartupTest, TheFirstRunShowsAWelcomeNote) {
  std::filesystem::create_directories(std::filesystem::path(ApplicationFolder()));
  Write(ApplicationFolder() + u"jotlets.bye", "[Jotlets]");
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Value(u"get datapath"), ApplicationFolder());
  EXPECT_NE(ShownText(NoteTitled(u"Welcome to Jotlets")).find(u"stays on your desktop"), Text::npos);
  EXPECT_EQ(Close(), 0u);
  for (const Text name : {u"default.rtf", u"default.png", u"options.ini", u"jotlets.ini", u"jotlets.bye"}) {
    EXPECT_FALSE(Read(ApplicationFolder() + name).empty()) << ToUtf8(name);
  }
  EXPECT_EQ(FilesBelow(scratch_), std::vector<Text>());
  const std::vector<Text> files = FilesBelow(ApplicationFolder());
  EXPECT_TRUE(std::any_of(files.begin(), files.end(), [](const Text& name) {
    return name.find(u"jotlets.bye.kept-") != Text::npos;
  })) << "a copy without its data file outlives the next exit";
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(List(u"desktop").size(), 1u) << "it is no first run any more";
}

TEST_F(StartupTest, AnOlderDataFileGivesItsOptionsAndFriendsAndTheyActAtOnce) {
  const Text backups = scratch_ + u"elsewhere\\";
  std::filesystem::create_directories(std::filesystem::path(folder_ + u"backups\\202601020304"));
  WriteFlatSkin();
  Write(folder_ + Text(kFriendsFileName), EncodeTextFile(u"Friends {\nAnn=1.2.3.4||\n}\n"));
  Write(folder_ + Text(kDataFileName),
        EncodeTextFile(u"[Options]\nDebug=3\nBackupDir=" + backups +
                       u"\nSkin=Flat\n[Friends]\nFriends {\nBen=5.6.7.8||\n}\n"
                       u"[Jotlets]\n<X>300<Y>300<WIDTH>220<HEIGHT>140<ID>AA01<RTF>\n"));
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Value(u"get ipfromfriend Ben") + Value(u"get ipfromfriend Ann"), u"5.6.7.81.2.3.4");
  const std::string log = Log();
  std::size_t at = 0;
  for (const char* line : {"Most recent backup is: 202601020304", "SaveFriends started for '",
                           "SaveFriends completed OK", "SaveOptions started for '", "Started Jotlets"}) {
    at = log.find(line, at);
    EXPECT_NE(at, std::string::npos) << line << "\n" << log;
  }
  EXPECT_EQ(Value(u"get skin"), folder_ + u"skins\\Flat.ini");
  EXPECT_TRUE(WaitUntil([&] { return FilesBelow(backups).size() >= 5; })) << "the first backup";
}

TEST_F(StartupTest, ANewerDataFileEndsItWithNothingWrittenHoweverItsBoxEnds) {
  const Text path = folder_ + Text(kDataFileName);
  const std::string before = EncodeTextFile(u"[Options]\niniver=4\n[Jotlets]\n<X>10<Y>10<ID>AA01<RTF>\n");
  Write(path, before);
  Write(folder_ + Text(kExitCopyName), "copy");
  for (const bool answered : {true, false}) {
    const Process process(ProgramFile(), u"");
    if (answered) {
      EXPECT_EQ(
          AnswerBox(process),
          u"You need a newer version of Jotlets to load the data file below. Jotlets will now close.\n\n" +
              path);
    } else {
      ASSERT_TRUE(WaitUntil([] { return FindWindowW(L"#32770", nullptr) != nullptr; }));
      PostMessageW(MainWindow(), WM_CLOSE, 0, 0);
    }
    EXPECT_EQ(process.WaitForEnd(), 0u);
    EXPECT_EQ(FilesBelow(folder_), (std::vector<Text>{Text(kExitCopyName), Text(kDataFileName)}));
    EXPECT_EQ(Read(path), before);
    EXPECT_EQ(Read(folder_ + Text(kExitCopyName)), "copy");
  }
}

TEST_F(StartupTest, OneFolderHasOneProgram) {
  WriteData({NoteRecord(u"AA01", {300, 300})});
  Write(folder_ + Text(kUserFileName), EncodeTextFile(u"ann (ATTIC)"));
  const Text journal = folder_ + Text(kJournalName);
  UniqueHandle held = OwnHandle(
      CreateFileW(Wide(journal), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  ASSERT_TRUE(held);
  const std::vector<Text> before = FilesBelow(folder_);
  const Process second(ProgramFile(), u"");
  const Text words = AnswerBox(second);
  EXPECT_TRUE(words.find(folder_) != Text::npos && words.ends_with(u"ann (ATTIC)")) << ToUtf8(words);
  EXPECT_EQ(second.WaitForEnd(), 0u);
  EXPECT_EQ(FilesBelow(folder_), before);
  held.reset();
  EXPECT_TRUE(StartProgram());
}

TEST_F(StartupTest, AnEndThatCannotSaveIsAskedAbout) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}));
  const Text path = folder_ + Text(kDataFileName);
  const auto exit = [&](int button) {
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Reply(u"set desktop AA01 title Two"), u"995 problem saving");
    PostMessageW(MainWindow(), WM_CLOSE, 0, 0);
    const HWND dialog = DialogWith(IDC_CHOICE_QUESTION);
    ASSERT_NE(dialog, nullptr);
    if (button == IDOK) SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    EXPECT_TRUE(WaitUntil([dialog] { return !IsWindow(dialog); }));
  };
  exit(IDCANCEL);
  EXPECT_TRUE(WaitUntil([&] { return Reply(u"do ping") == u"000 OK pong"; })) << "it goes on";
  exit(IDOK);
  EXPECT_EQ(program_->WaitForEnd(), 0u);
  EXPECT_EQ(ParseData().jotlets.at(0).record.title, u"Two");
}

TEST_F(StartupTest, FoldersThatGoAwayAreMadeAgainWithAllThatIsOpen) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}, u"Debug=1"));
  // The data folder itself cannot go while the journal is held in it.
  for (const Text name : {u"rtf", u"images", u"jotlets.ini"})
    EXPECT_TRUE(WaitUntil([&] {
      // The search may be looking into it just now.
      std::error_code held;
      std::filesystem::remove_all(std::filesystem::path(folder_ + name), held);
      return !std::filesystem::exists(std::filesystem::path(folder_ + name));
    }));
  EXPECT_EQ(Reply(u"set desktop AA01 title Two"), u"000 OK title set");
  EXPECT_EQ(ParseData().jotlets.at(0).record.title, u"Two");
  EXPECT_NE(Read(folder_ + u"rtf\\AA01.rtf").find("AA01"), std::string::npos);
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"AA01"), u"AA01");
}

TEST_F(StartupTest, ANamedFolderThatIsNotThereIsAskedAbout) {
  std::filesystem::remove_all(std::filesystem::path(folder_));
  const Process process(ProgramFile(), u"");
  ASSERT_TRUE(WaitUntil([] { return FindWindowW(L"#32770", nullptr) != nullptr; }));
  PostMessageW(FindWindowW(L"#32770", nullptr), WM_COMMAND, IDCANCEL, 0);
  EXPECT_EQ(process.WaitForEnd(), 0u);
  EXPECT_EQ(FilesBelow(scratch_), std::vector<Text>());
}

TEST_F(StartupTest, ANoteFileBecomesANote) {
  const Text path = scratch_ + u"a note.jtl";
  Write(path, "title:Shopping\ncol:65535\nwidth:300\nSource:a shop\nMilk\r\nBread");
  ASSERT_TRUE(StartProgramWith({}));
  EXPECT_EQ(RunToEnd(u"\"" + path + u"\""), 0u);
  const std::vector<Text> ids = List(u"desktop");
  ASSERT_EQ(ids.size(), 1u);
  EXPECT_EQ(TextOf(ids[0]), u"Milk\r\nBread");
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  const JotletData record = ParseData().jotlets.at(0).record;
  EXPECT_EQ(record.title, u"Shopping");
  EXPECT_EQ(record.source, u"a shop");
  EXPECT_EQ(record.width, 300);
  EXPECT_EQ(record.colour, (Colour{255, 255, 0}));
}

TEST_F(StartupTest, AFileThatBecomesNoNoteIsOfferedOnce) {
  ASSERT_TRUE(StartProgramWith({}, u"Debug=3"));
  Write(scratch_ + u"none.jsk", "no skin");
  EXPECT_EQ(RunToEnd(u"\"" + scratch_ + u"none.jsk\""), 1u);
  const std::string log = Log();
  EXPECT_EQ(log.find("Failed to set skin"), log.rfind("Failed to set skin"));
  Write(scratch_ + u"skin.jtl", "title:T\nI like my.jsk");
  EXPECT_EQ(RunToEnd(u"\"" + scratch_ + u"skin.jtl\""), 0u);
  EXPECT_EQ(List(u"desktop").size(), 1u);
  const Process missing(ProgramFile(), u"\"" + scratch_ + u"gone.jtl\"");
  EXPECT_NE(AnswerBox(missing).find(u"gone.jtl"), Text::npos);
  EXPECT_EQ(missing.WaitForEnd(), 1u);
}

TEST_F(StartupTest, ContentWithoutANoteMayBeAdopted) {
  Write(folder_ + u"rtf\\LOST.rtf", "{\\rtf1\\ansi Found again}");
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300})}));
  EXPECT_TRUE(AnswerBox(*program_).starts_with(u"These content files belong to no Jotlet."));
  EXPECT_TRUE(WaitUntil([this] { return List(u"desktop") == std::vector<Text>{u"AA01", u"LOST"}; }));
  EXPECT_EQ(TextOf(u"LOST"), u"Found again");
  EXPECT_EQ(Close(), 0u);

  // Commands are answered and the program can be ended while the question is open.
  Write(folder_ + u"rtf\\OTHER.rtf", "{\\rtf1\\ansi Not asked for}");
  ASSERT_TRUE(StartProgram());
  ASSERT_TRUE(WaitUntil([this] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }));
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(ParseData().jotlets.size(), 2u);
}

TEST_F(StartupTest, TheTrayIconComesBackWithTheTaskbar) {
  ASSERT_TRUE(StartProgramWith({}));
  NOTIFYICONDATAW icon{};
  icon.cbSize = sizeof icon;
  icon.hWnd = MainWindow();
  icon.uID = 1;
  ASSERT_TRUE(Shell_NotifyIconW(NIM_DELETE, &icon)) << "it was not there";
  ASSERT_FALSE(Shell_NotifyIconW(NIM_MODIFY, &icon));
  SendNotifyMessageW(HWND_BROADCAST, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return Shell_NotifyIconW(NIM_MODIFY, &icon) != 0; }));
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
}

TEST_F(StartupTest, TheEndOfTheSessionSavesEverything) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}));
  const HWND note = NoteTitled(u"One");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, VK_END});
  TypeText(u" and more");
  ASSERT_TRUE(WaitUntil([&] { return ShownText(note) == u"AA01 and more"; }));

  const auto ask = [](UINT message, WPARAM ending) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(MainWindow(), message, ending, 0, SMTO_NORMAL, kPatience, &answer);
    return answer;
  };
  EXPECT_EQ(ask(WM_QUERYENDSESSION, 0), 1u);
  ask(WM_ENDSESSION, FALSE);
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong") << "another program has refused, and the session goes on";
  ask(WM_ENDSESSION, TRUE);
  // The system ends the process as soon as that has been answered.
  program_->Kill();
  EXPECT_EQ(ParseData(kExitCopyName).jotlets.size(), 1u);
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"AA01"), u"AA01 and more");
}

TEST_F(StartupTest, AFaultLeavesAReportThatTheNextStartTellsOf) {
  ASSERT_TRUE(StartProgramWith({}, u"Debug=1"));
  {
    const UniqueHandle process(OpenProcess(PROCESS_ALL_ACCESS, FALSE, program_->Id()));
    // There is no code at this address.
    const UniqueHandle thread(CreateRemoteThread(
        process.get(), nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(0x10), nullptr, 0, nullptr));
    ASSERT_TRUE(program_->WaitForEnd().has_value());
  }
  std::vector<Text> files = FilesBelow(folder_);
  std::erase_if(files, [](const Text& name) { return !name.starts_with(u"crash-"); });
  ASSERT_EQ(files.size(), 1u);
  EXPECT_TRUE(Read(folder_ + files[0]).starts_with("Jotlets v8.0c\r\ncode c0000005 at "));
  ASSERT_TRUE(StartProgram());
  EXPECT_NE(Log().find("Jotlets ended by a fault the last time: 'crashed-" + ToUtf8(files[0].substr(6))),
            std::string::npos);
  EXPECT_TRUE(Read(folder_ + files[0]).empty());
}

// What the shell sends when the tray icon is clicked.
constexpr UINT kTrayMessage = WM_APP + 1;

// Texts and menus of a translation beside the program.
class TranslationTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    translated_ = scratch_ + u"jotlets.exe";
    const auto copy = [](const Text& from, const Text& to) {
      std::filesystem::copy_file(std::filesystem::path(from), std::filesystem::path(to));
    };
    copy(ProgramFile(), translated_);
    copy(ProgramFolder() + u"translation\\language80.dll", scratch_ + u"language80.dll");
  }

  Text translated_;
};

TEST_F(TranslationTest, LibrariesOfTheSystemAreNotTakenFromBesideTheProgram) {
  const Text planted = ProgramFolder() + u"translation\\planted.dll";
  for (const TextView name : {u"msftedit.dll", u"dwmapi.dll", u"winmm.dll", u"msimg32.dll", u"uxtheme.dll",
                              u"riched20.dll", u"version.dll", u"propsys.dll", u"dbghelp.dll"})
    std::filesystem::copy_file(std::filesystem::path(planted), std::filesystem::path(scratch_ + Text(name)));
  JotletData sounding = NoteRecord(u"AA01", {300, 300}, u"One");
  sounding.alarm = 1;
  WriteData({sounding});
  ASSERT_TRUE(StartProgram(u"", translated_));
  NoteTitled(u"One");
  EXPECT_EQ(Reply(u"do alarmstart AA01"), u"000 OK alarmed");
  EXPECT_EQ(Close(), 0u);
  for (const Text& file : FilesBelow(scratch_)) EXPECT_FALSE(HasExtension(file, u".loaded")) << ToUtf8(file);
}

TEST_F(TranslationTest, WindowsAreMirroredWhereItIsReadFromRightToLeft) {
  WriteData({NoteRecord(u"AA01", {300, 300}, u"One")});
  ASSERT_TRUE(StartProgram(u"", translated_));
  const auto mirrored = [](HWND window) {
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
  };
  const HWND note = NoteTitled(u"One");
  ASSERT_TRUE(ClickIntoText(note));
  EXPECT_FALSE(mirrored(note)) << "a skin is drawn as it is";
  PressKeys({VK_MENU, VK_RETURN});
  const HWND dialog = DialogInFront();
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(mirrored(dialog) && mirrored(GetWindow(dialog, GW_CHILD)));
  PressKeys({VK_ESCAPE});
}

TEST_F(TranslationTest, TextsComeFromItAndFromTheProgramWhereItLacksThem) {
  EXPECT_EQ(AnswerBox(Process(translated_, u"-?")),
            u"Aufruf von jotlets.exe:\n\n-close: schlie\u00DFt das laufende Programm");
  Write(folder_ + Text(kDataFileName), EncodeTextFile(u"[Options]\niniver=4\n"));
  EXPECT_TRUE(AnswerBox(Process(translated_, u"")).starts_with(u"You need a newer version of Jotlets"));
}

TEST_F(TranslationTest, MenusAndTheWelcomeNoteAreTranslated) {
  ASSERT_TRUE(StartProgram(u"", translated_));
  const HWND note = NoteTitled(u"Willkommen bei Jotlets");
  EXPECT_EQ(ShownText(note),
            u"Dies ist ein Jotlet, ein kleiner Zettel f\u00FCr den Schreibtisch.\r\n\r\n"
            u"Win+Alt+S macht einen neuen.");
  const Point title{BoundsOf(note).left + 40, BoundsOf(note).top + 12};
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, title, true));
  PressKeys({'Z'});
  EXPECT_TRUE(WaitUntil([note] { return !IsWindow(note); })) << "no entry for the key of \"&Zumachen\"";

  PostMessageW(MainWindow(), kTrayMessage, 0, WM_RBUTTONUP);
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  PressKeys({'B'});
  EXPECT_EQ(program_->WaitForEnd(), 0u) << "no entry for the key of \"&Beenden\"";
}

}  // namespace
}  // namespace jotlets
