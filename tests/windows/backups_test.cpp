// Backups, restore, options, policy and log as they meet a person and what is on the disk.
#include <algorithm>
#include <filesystem>
#include <map>

#include "app/win/program_instance.h"
#include "backup/backup.h"
#include "base/win/ansi_code_page.h"
#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/loading.h"
#include "data/text_file.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "window_test.h"

namespace jotlets {
namespace {

namespace fs = std::filesystem;

class BackupsTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    backups_ = folder_ + Text(kBackupsFolder);
  }
  // A restore ends the program and starts another one, which would outlive a failed test.
  void TearDown() override {
    if (const DWORD left = MainProcess(); left != 0) Process(left).Kill();
    WindowTest::TearDown();
  }

  static DWORD MainProcess() {
    DWORD process = 0;
    GetWindowThreadProcessId(MainWindow(), &process);
    return process;
  }

  void PutBackup(const Text& name) {
    ASSERT_TRUE(MakeContentFolders(files_, backups_ + name + u"\\"));
    const JotletData record = NoteRecord(u"AA09", {10, 10});
    DataFileView view;
    view.jotlets.push_back(&record);
    Write(backups_ + name + u"\\" + Text(kDataFileName), EncodeTextFile(ComposeDataFile(view)));
  }
  std::vector<Text> Kept() const { return files_.ListFolders(backups_); }
  // The backups that could be put back.
  std::vector<Text> Whole(const Text& folder) const { return ListBackups(files_, AnsiCodePage(), folder); }
  bool WaitForBackups(std::size_t count) {
    return WaitUntil([&] { return Whole(backups_).size() == count; });
  }
  std::size_t Logged(const std::string& line) const {
    const std::string log = Log();
    std::size_t count = 0;
    for (std::size_t at = 0; (at = log.find(line, at)) != std::string::npos; ++at) ++count;
    return count;
  }

  // Takes the offered backup of this place in the list, and follows the program into its next start.
  void Choose(LRESULT row) {
    const HWND list = GetDlgItem(DialogWith(IDC_RESTORE_LIST), IDC_RESTORE_LIST);
    ASSERT_NE(list, nullptr) << "no backups were offered";
    for (LRESULT i = 0; i < row; ++i) PressKeys({VK_DOWN});
    ASSERT_TRUE(WaitUntil([&] { return SendMessageW(list, LB_GETCURSEL, 0, 0) == row; }));
    PressKeys({VK_RETURN});
  }
  void Restore(LRESULT row) {
    ChooseInTrayMenu({'E'});
    ASSERT_NO_FATAL_FAILURE(Choose(row));
    ASSERT_EQ(program_->WaitForEnd(), 0u);
    ASSERT_TRUE(WaitUntil([] { return MainProcess() != 0; })) << "it did not start again";
    program_ = std::make_unique<Process>(MainProcess());
    ASSERT_TRUE(WaitUntil([this] { return Reply(u"do ping").starts_with(u"000"); }));
  }

  DiskFiles files_;
  Text backups_;
};

TEST_F(BackupsTest, ADamagedFolderComesBackWholeAndTheDamageIsKept) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}), NoteRecord(u"AA02", {600, 300})}));
  ASSERT_TRUE(WaitForBackups(1)) << "the program's own";
  EXPECT_EQ(Reply(u"set desktop AA02 text changed since"), u"000 OK text set");
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  const Text dataFile = folder_ + Text(kDataFileName);
  const auto damage = [&] {
    fs::remove(fs::path(folder_ + u"rtf\\AA01.rtf"));
    const std::string bytes = Read(dataFile);
    const std::string second = EncodeTextFile(u"AA02").substr(2);
    Write(dataFile, std::string_view(bytes).substr(0, bytes.find(second) + 4));
    return Read(dataFile);
  };
  const auto expectRestored = [this] {
    EXPECT_EQ(List(u"desktop"), (std::vector<Text>{u"AA01", u"AA02"}));
    EXPECT_EQ(TextOf(u"AA01"), u"AA01");
    EXPECT_EQ(TextOf(u"AA02"), u"AA02");
  };

  // Under the running program.
  std::string damaged = damage();
  ASSERT_NO_FATAL_FAILURE(Restore(0));
  expectRestored();
  ASSERT_EQ(Kept().size(), 2u);
  EXPECT_TRUE(Kept()[1].ends_with(kDamagedBackup));
  EXPECT_EQ(Read(backups_ + Kept()[1] + u"\\jotlets.ini"), damaged);
  EXPECT_NE(Read(backups_ + Kept()[1] + u"\\rtf\\AA02.rtf").find("changed since"), std::string::npos);

  // Before the start, which asks about content without a note: the box stays open all the while.
  EXPECT_EQ(Close(), 0u);
  damage();
  fs::remove(fs::path(folder_ + Text(kExitCopyName)));  // which would have what is missing
  ASSERT_TRUE(StartProgram());
  ASSERT_NE(DialogWith(IDC_ORPHAN_LIST), nullptr);
  const std::vector<Text> left = List(u"desktop");
  const Text placeholder = TextOf(u"AA01");
  ASSERT_NE(left, (std::vector<Text>{u"AA01", u"AA02"}));
  ASSERT_NO_FATAL_FAILURE(Restore(0));
  expectRestored();

  // What was there can be read, and so gone back to.
  ASSERT_TRUE(WaitForBackups(2));
  ASSERT_NO_FATAL_FAILURE(Restore(0));
  EXPECT_EQ(List(u"desktop"), left);
  EXPECT_EQ(TextOf(u"AA01"), placeholder);

  // A start without the data file offers the backups, newest first.
  program_->Kill();
  fs::remove(fs::path(dataFile));
  Write(folder_ + Text(kStoreFileName), "a folder that is known by its store");
  program_ = std::make_unique<Process>(ProgramFile(), u"");
  ASSERT_NO_FATAL_FAILURE(Choose(2));
  ASSERT_TRUE(WaitUntil([this] { return Reply(u"do ping").starts_with(u"000"); }));
  expectRestored();
}

TEST_F(BackupsTest, FilesOfAnySizeAreComparedToTheirLastByte) {
  const std::string large(700000, 'x');
  const Text path = scratch_ + u"one";
  Write(path, large);
  for (const auto& [other, same] : std::map<std::string, bool>{
           {large, true}, {large + "x", false}, {large.substr(1), false}, {large.substr(1) + "y", false}}) {
    Write(scratch_ + u"other", other);
    EXPECT_EQ(files_.SameContent(path, scratch_ + u"other"), same) << other.size();
  }
  EXPECT_FALSE(files_.SameContent(path, scratch_ + u"missing"));
}

TEST_F(BackupsTest, AStartFinishesARestoreThatWasKilled) {
  PutBackup(u"202001010000");
  Write(backups_ + u"202001010000\\rtf\\AA09.rtf", "{\\rtf1\\ansi of old}");
  WriteData({NoteRecord(u"AA01", {300, 300})}, kDataFileName, u"Debug=1");
  Write(folder_ + u"restore.ini", EncodeTextFile(backups_ + u"202001010000\\"));
  fs::remove(fs::path(folder_ + u"rtf\\AA01.rtf"));
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(List(u"desktop"), std::vector<Text>{u"AA09"});
  EXPECT_EQ(TextOf(u"AA09"), u"of old");
  ASSERT_GE(Kept().size(), 2u);
  EXPECT_TRUE(Kept()[1].ends_with(kDamagedBackup)) << ToUtf8(Kept()[1]);
  EXPECT_FALSE(files_.Exists(folder_ + u"restore.ini"));
}

TEST_F(BackupsTest, OneTakenByHandHoldsWhatIsOnTheScreen) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}, u"TakeBackups=0"));
  const HWND note = NoteTitled(u"One");
  ASSERT_TRUE(ClickIntoText(note));
  TypeText(u"typed");
  ASSERT_TRUE(WaitUntil([&] { return ShownText(note).find(u"typed") != Text::npos; }));
  ChooseInTrayMenu({'B'});
  // The folder that it begins with, the desktop: not every picker takes a path that is typed.
  EXPECT_EQ(AnswerBox(*program_), u"Choose a folder for the backup:");
  constexpr TextView kSaid = u"The backup is in:\n\n";
  const Text said = AnswerBox(*program_);
  ASSERT_TRUE(said.starts_with(kSaid)) << ToUtf8(said);
  const Text folder = said.substr(kSaid.size());
  EXPECT_TRUE(BackupTime(folder.substr(folder.rfind(u'\\') + 1)));
  EXPECT_TRUE(HasReadableData(files_, AnsiCodePage(), folder + u"\\"));
  EXPECT_NE(Read(folder + u"\\rtf\\AA01.rtf").find("typed"), std::string::npos);
  EXPECT_EQ(FilesBelow(folder + u"\\").size(), 4u);
  EXPECT_TRUE(files_.RemoveFolder(folder));
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
  EXPECT_EQ(Kept(), std::vector<Text>());
}

TEST_F(BackupsTest, WhereNoneCanBeWrittenTheProgramSaysSoAndWorksOn) {
  const Text blocked = scratch_ + u"blocked";
  Write(blocked, "a file");
  const auto balloons = [] {
    const auto all = WindowsOfClass(L"tooltips_class32");
    return std::count_if(all.begin(), all.end(), [](HWND window) { return IsWindowVisible(window) != 0; });
  };
  ASSERT_EQ(balloons(), 0);
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300})}, u"Debug=1\nBackupDir=" + blocked));
  EXPECT_TRUE(WaitUntil([&] { return Logged("The backup failed: ") == 1; })) << Log();
  EXPECT_TRUE(WaitUntil([&] { return balloons() == 1; }));
  EXPECT_FALSE(Create(u"still works").empty());
  ChooseInTrayMenu({'E'});
  EXPECT_TRUE(AnswerBox(*program_).starts_with(u"There are no backups in:"));
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(ParseData().jotlets.size(), 2u);
  EXPECT_EQ(Read(blocked), "a file");
}

class PolicyTest : public BackupsTest {
 protected:
  static constexpr wchar_t kKey[] = L"Software\\Policies\\Brask\\Jotlets";

  void TearDown() override {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kKey);
    BackupsTest::TearDown();
  }
  static void Fix(const wchar_t* name, DWORD number) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, name, REG_DWORD, &number, sizeof number), 0);
  }
  static void Fix(const wchar_t* name, const Text& text) {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, name, REG_SZ, Wide(text), bytes), 0);
  }
};

TEST_F(PolicyTest, WinsOverTheOptionsAndLeavesThemAlone) {
  // Whatever becomes of it is seen in the log.
  const auto sendSkin = [] { SendToRunningInstance(u"C:\\a.jsk"); };
  constexpr TextView kOptions = u"Debug=3\nSkin=mine\nNetworking=1\nNetPort=1234\nSMTPServer=mail";
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300})}, kOptions));
  sendSkin();
  EXPECT_EQ(Logged("Failed to set skin:C:\\a.jsk"), 1u) << "without a policy a skin is the user's to choose";
  EXPECT_EQ(Logged("GPO"), 0u);
  EXPECT_EQ(Close(), 0u);
  const std::string options = Read(folder_ + Text(kOptionsFileName));

  Fix(L"SkinFile", u"theirs");
  Fix(L"UseNetworking", 0);
  Fix(L"Port", 8080);
  Fix(L"UseDNS", u"1");
  Fix(L"SMTPServerName", 7);
  ASSERT_TRUE(StartProgram());
  sendSkin();
  EXPECT_EQ(Logged("Failed to set skin:C:\\a.jsk"), 1u) << "the skin is fixed";
  EXPECT_EQ(Logged("GPO network:no\n"), 1u);
  EXPECT_EQ(Logged("GPO port 8080\n"), 1u);
  EXPECT_EQ(Logged("GPO ignored, a value of the wrong type: UseDNS\n"), 1u);
  EXPECT_EQ(Logged("GPO ignored, a value of the wrong type: SMTPServerName\n"), 1u);
  EXPECT_EQ(Logged("GPO"), 4u);
  ChooseInTrayMenu({VK_UP, VK_UP, VK_RETURN});  // "Hide all": its letter is also that of the help
  EXPECT_TRUE(WaitUntil([] { return !IsWindowVisible(FindWindowW(kJotletClass, nullptr)); }));
  EXPECT_EQ(Close(), 0u);
  const Text saved = DecodeTextFile(Read(folder_ + Text(kOptionsFileName)), AnsiCodePage()).text;
  EXPECT_EQ(saved, ReplaceAll(DecodeTextFile(options, AnsiCodePage()).text, u"\nHidden=0", u"\nHidden=1"));
}

}  // namespace
}  // namespace jotlets
