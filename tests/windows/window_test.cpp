#include "window_test.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "app/win/program_instance.h"
#include "app/win/system_facts.h"
#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/text_file.h"
#include "note/win/jotlet.h"
#include "picture/picture.h"
#include "ui/screen.h"

namespace jotlets {
namespace fs = std::filesystem;

void PrintTo(const JotletData& record, std::ostream* out) {
  *out << ToUtf8(MakeJotletLine(record, true)) << " scroll x " << record.scroll.x << " deleted "
       << record.deletedTime;
}

JotletData NoteRecord(TextView id, Point place, TextView title) {
  JotletData record;
  record.Reset({}, 1763700000, Text(id));
  record.x = place.x;
  record.y = place.y;
  record.width = 220;
  record.height = 140;
  record.title = title;
  return record;
}

void WindowTest::SetUp() {
  ASSERT_EQ(MainWindow(), nullptr) << "another program runs";
  scratch_ = (fs::temp_directory_path() / "jotlets-window-test").u16string() + u"\\";
  folder_ = scratch_ + u"data\\";
  fs::remove_all(fs::path(scratch_));
  fs::remove_all(fs::path(ApplicationFolder()));
  DiskFiles files;
  ASSERT_TRUE(MakeDataFolders(files, folder_));
  ASSERT_TRUE(WriteRegistryPath(folder_));
  ASSERT_TRUE(client_.Open());
}

void WindowTest::TearDown() {
  program_->Kill();
  WriteRegistryPath({});
  std::error_code ignored;
  fs::remove_all(fs::path(scratch_), ignored);
  fs::remove_all(fs::path(ApplicationFolder()), ignored);
}

Text WindowTest::ApplicationFolder() {
  return WithSeparator(GatherDataFolderFacts().applicationDataFolder) + u"jotlets\\";
}

void WindowTest::Write(const Text& path, std::string_view bytes) {
  std::ofstream file(fs::path(path), std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.flush()) << ToUtf8(path);
}

void WindowTest::WriteFlatSkin() const {
  fs::create_directories(fs::path(folder_ + u"skins"));
  Write(folder_ + u"skins\\Flat.ini", "minimumwidth=40\nminimumheight=40\nbitmap=Flat.png\n");
  Write(folder_ + u"skins\\Flat.png", EncodePng({{2, 2}, std::vector<std::uint8_t>(16, 200)}));
}

std::string WindowTest::Read(const Text& path) {
  // Shared in every way, so that looking at a file never gets in the way of the one who writes it.
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const UniqueHandle file =
      OwnHandle(CreateFileW(Wide(path), GENERIC_READ, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
  std::string bytes(file ? GetFileSize(file.get(), nullptr) : 0, '\0');
  DWORD got = 0;
  if (file) ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
  return bytes.substr(0, got);
}

std::vector<Text> WindowTest::FilesBelow(const Text& folder) {
  std::vector<Text> found;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(folder))) {
    if (entry.is_regular_file()) found.push_back(entry.path().u16string().substr(folder.size()));
  }
  std::sort(found.begin(), found.end());
  return found;
}

void WindowTest::WriteData(const std::vector<JotletData>& open, TextView name, TextView options) {
  DataFileView view;
  view.installId = u"TEST";
  for (const JotletData& record : open) {
    view.jotlets.push_back(&record);
    Write(folder_ + ContentPath(record), "{\\rtf1\\ansi " + ToUtf8(record.id) + "}");
  }
  Write(folder_ + Text(name), EncodeTextFile(ComposeDataFile(view)));
  Write(folder_ + Text(kOptionsFileName), EncodeTextFile(u"[Options]\n" + Text(options) + u"\n"));
}

DataFile WindowTest::ParseData(TextView name) const {
  Options options;
  const TextFile text = DecodeTextFile(Read(folder_ + Text(name)), AnsiCodePage());
  EXPECT_FALSE(text.damaged);
  return ParseDataFile(text.text, {options, [] { return Text(u"FRESH"); }, 0});
}

JotletData WindowTest::Saved(TextView id) {
  Reply(u"do saveini");
  for (const FiledJotlet& line : ParseData().jotlets) {
    if (line.record.id == id) return line.record;
  }
  return {};
}

Text WindowTest::ProgramFile() { return ProgramFolder() + u"jotlets.exe"; }

bool WindowTest::StartProgram(const Text& arguments, const Text& file) {
  program_ = std::make_unique<Process>(file, arguments);
  const bool answered =
      WaitUntil([this] { return Reply(u"do ping").starts_with(u"000") || !program_->Running(); });
  // A start that ends by itself is a crash, or another instance is there: the code tells which.
  if (answered && !program_->Running()) {
    const std::optional<DWORD> code = program_->WaitForEnd();
    ADD_FAILURE() << (code ? "exit code " + std::to_string(*code) : std::string("not started")) << ", error "
                  << program_->StartError();
  }
  return answered && program_->Running();
}

std::optional<DWORD> WindowTest::Close() {
  PostMessageW(MainWindow(), WM_CLOSE, 0, 0);
  return program_->WaitForEnd();
}

Text WindowTest::ReplyTo(CommandClient& client, TextView command) {
  const CommandClient::Result result = client.Send(command);
  return result.outcome == CommandClient::Outcome::kReplied ? result.reply : u"(no reply)";
}

Text WindowTest::Value(TextView command, TextView status) {
  const Text reply = Reply(command);
  EXPECT_TRUE(reply.starts_with(status)) << ToUtf8(command) << ": " << ToUtf8(reply);
  return reply.starts_with(status) ? reply.substr(status.size()) : Text();
}

std::vector<Text> WindowTest::List(TextView list) {
  const Text all = Value(Text(u"get list ").append(list));
  std::vector<Text> ids;
  for (Split split{{}, all}; !split.tail.empty(); ids.emplace_back(split.head))
    split = SplitAtFirst(split.tail, u',');
  return ids;
}

std::vector<Text> WindowTest::Sent() {
  constexpr std::string_view kMark = "API sending: \"";
  const std::string log = Log();
  std::vector<Text> lines;
  while ((logRead_ = log.find(kMark, logRead_)) != std::string::npos) {
    logRead_ += kMark.size();
    lines.push_back(FromUtf8(log.substr(logRead_, log.find("\"\n", logRead_) - logRead_)));
  }
  logRead_ = log.size();
  return lines;
}

HWND WindowTest::DialogWith(int control) const {
  HWND dialog = nullptr;
  WaitUntil([&] {
    for (const HWND window : WindowsOfClass(L"#32770", program_->Id())) {
      if (IsWindowVisible(window) && GetDlgItem(window, control) != nullptr) dialog = window;
    }
    return dialog != nullptr && GetForegroundWindow() == dialog;
  });
  return dialog;
}

HWND WindowTest::DialogInFront() const {
  HWND dialog = nullptr;
  const bool there = WaitUntil([&] {
    dialog = GetForegroundWindow();
    const auto dialogs = WindowsOfClass(L"#32770", program_->Id());
    return std::find(dialogs.begin(), dialogs.end(), dialog) != dialogs.end();
  });
  return there ? dialog : nullptr;
}

std::size_t WindowTest::OpenMenus() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      WindowsOfClass(L"#32768", program_->Id()), [](HWND menu) { return IsWindowVisible(menu) != 0; }));
}

void WindowTest::ChooseInTrayMenu(std::initializer_list<WORD> keys) const {
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, kTrayIcon, true));
  for (const WORD key : keys) PressKeys({key});
}

HWND WindowTest::MainWindow() { return FindWindowW(kMainWindowClass, nullptr); }

HWND WindowTest::NoteTitled(const Text& title) {
  HWND note = nullptr;
  EXPECT_TRUE(WaitUntil([&] {
    note = FindWindowW(kJotletClass, Wide(title));
    return note != nullptr && IsWindowVisible(note);
  })) << ToUtf8(title);
  return note;
}

void WindowTest::Select(std::initializer_list<Text> titles) {
  HoldKey(VK_CONTROL, true);
  for (const Text& title : titles) {
    const HWND note = NoteTitled(title);
    Drag(note, Title(note), {0, 0});
    // Keys that follow are for the note that was pressed last.
    EXPECT_TRUE(WaitUntil([note] { return HasKeyboard(note); })) << ToUtf8(title);
  }
  HoldKey(VK_CONTROL, false);
}

}  // namespace jotlets
