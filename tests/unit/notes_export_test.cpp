#include "desk/notes_export.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/text_import.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

// What the program's windows would have is in the files.
class FakeCopies final : public NoteCopies {
 public:
  explicit FakeCopies(FakeFiles& files) : files_(files) {}

  Text RichTextOf(const JotletData& record) const override {
    return FromUtf8(files_.Read(Text(kFolder) + ContentPath(record)).bytes);
  }
  Text TitleOf(const JotletData& record) const override { return record.title; }
  FileStatus WriteCopy(const JotletData& record, TextView path) override {
    return files_.Copy(Text(kFolder) + ContentPath(record), path);
  }

 private:
  FakeFiles& files_;
};

class NotesExportTest : public ::testing::Test {
 protected:
  NotesExportTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    home.store.Open(folder_);
    home.Load(
        u"[Jotlets]\n<TITLE>a \"b\" \\c<CREATED>1602324610<ID>OPEN<RTF>\n<TITLE>p<IMAGE><ID>PIC<RTF>\n"
        u"<TITLE>kept<ID>KEPT<RTF>\n<ID>DARK<RTF>\n<TITLE>kept<ID>GONE<RTF>\n");
    home.files.Put(u"D:\\rtf\\OPEN.rtf", "{\\rtf1 do #this and\\par #that}");
    EXPECT_TRUE(home.desk.Close(u"GONE", Reason::kUser));
    EXPECT_TRUE(home.desk.Store(u"KEPT", u"wo\"rk"));
    home.files.unreadable.insert(u"d:\\rtf\\dark.rtf");
  }
  ~NotesExportTest() override {
    home.store.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::unique_ptr<NotesExport> Job(TextView path, std::vector<Text> ids = {u"OPEN", u"KEPT", u"GONE", u"PIC",
                                                                           u"DARK", u"none"}) {
    return std::make_unique<NotesExport>(NotesExport::Context{home.files, home.Lists(), home.store, copies_},
                                         std::move(ids), path);
  }
  std::size_t FilesThere() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(home.files.Paths(), [](const Text& path) { return path.starts_with(u"E:"); }));
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets notes export/";
  FakeDesk home;
  FakeCopies copies_{home.files};
};

TEST_F(NotesExportTest, MakesFilesOfNotesWhereverTheyAre) {
  home.files.Put(u"E:\\out\\kept.md", "mine");
  const auto job = Job(u"E:\\out\\first.md");
  EXPECT_EQ(job->Finish(), Job::State::kFailed);
  EXPECT_EQ(job->Left(), 2u);
  ASSERT_EQ(job->Faults().size(), 2u);
  EXPECT_EQ(job->Faults()[0].id + u": " + job->Faults()[0].reason, u"DARK: its text cannot be read");
  EXPECT_EQ(job->Faults()[1].id, u"none");
  const std::string first = home.files.Get(u"E:\\out\\first.md");
  EXPECT_EQ(first,
            "---\ntitle: \"a \\\"b\\\" \\\\c\"\ncreated: 2020-10-10T10:10:10Z\ntags: [\"this\", \"that\"]\n"
            "colour: \"#ffffb4\"\n---\n\ndo #this and\n\n#that\n");
  EXPECT_EQ(TextOfMarkdown(FromUtf8(first)).title, u"a \"b\" \\c") << "as it is read back";
  EXPECT_EQ(home.files.Get(u"E:\\out\\kept.md"), "mine");
  EXPECT_NE(home.files.Get(u"E:\\out\\kept (2).md").find("category: \"wo\\\"rk\"\n"), std::string::npos);
  EXPECT_NE(home.files.Get(u"E:\\out\\kept (3).md").find("GONE"), std::string::npos);
  EXPECT_TRUE(home.files.Exists(u"E:\\out\\p.png"));

  const auto page = Job(u"E:\\out\\kept.md", {u"OPEN"});
  EXPECT_EQ(page->Finish(), Job::State::kDone);
  EXPECT_EQ(home.files.Get(u"E:\\out\\kept.md"), "mine") << "not even the first replaces one";
}

TEST_F(NotesExportTest, MakesOneJsonFileOfNotes) {
  home.windows.At(u"OPEN").record->title = u"\x01\"\xD800\u00E9";
  home.files.Put(u"E:\\out\\all.json.new", "what a kill left");
  const auto job = Job(u"E:\\out\\all.json");
  EXPECT_EQ(job->Step(3), Job::State::kRunning);
  EXPECT_EQ(job->Percent(), 50);
  EXPECT_FALSE(home.files.Exists(u"E:\\out\\all.json")) << "not before it is whole";
  EXPECT_EQ(job->Finish(), Job::State::kFailed);
  EXPECT_EQ(job->Left(), 3u);
  EXPECT_EQ(job->Faults()[0].reason, u"it is a picture");
  const std::string open =
      "{\"id\":\"OPEN\",\"title\":\"\\u0001\\\"\\ud800\xC3\xA9\",\"state\":\"desktop\","
      "\"created\":\"2020-10-10T10:10:10Z\",\"colour\":\"#ffffb4\",\"text\":\"do #this and\\u000a#that\","
      "\"rtf\":\"{\\\\rtf1 do #this and\\\\par #that}\"}";
  const std::string all = home.files.Get(u"E:\\out\\all.json");
  EXPECT_TRUE(all.starts_with("[\n" + open +
                              ",\n{\"id\":\"KEPT\",\"key\":1,\"title\":\"kept\",\"state\":"
                              "\"stored\",\"category\":\"wo\\\"rk\""))
      << all;
  EXPECT_NE(all.find("\"state\":\"closed\""), std::string::npos);
  EXPECT_TRUE(all.ends_with("}\n]\n"));
  EXPECT_EQ(FilesThere(), 1u);

  EXPECT_EQ(Job(u"E:\\out\\all.json", {u"OPEN"})->Finish(), Job::State::kDone);
  EXPECT_EQ(home.files.Get(u"E:\\out\\all.json"), all);
  EXPECT_EQ(home.files.Get(u"E:\\out\\all (2).json"), "[\n" + open + "\n]\n");
}

// Large enough for what is written on the way.
TEST_F(NotesExportTest, LeavesNoHalfJsonFileWhateverFails) {
  home.files.Put(u"D:\\rtf\\OPEN.rtf", "{\\rtf1 " + std::string(300'000, 'x') + "}");
  const std::vector<Text> many(4, u"OPEN");
  {
    const auto stopped = Job(u"E:\\out\\all.json", many);
    stopped->Step(2);
    EXPECT_TRUE(home.files.Exists(u"E:\\out\\all.json.new"));
  }
  EXPECT_EQ(FilesThere(), 0u);
  int failed = 0;
  for (int at = 0;; ++at) {
    home.files.changesUntilFailure = at;
    const auto job = Job(u"E:\\out\\all.json", many);
    const bool done = job->Finish() == Job::State::kDone;
    home.files.changesUntilFailure = -1;
    EXPECT_EQ(job->Left(), done ? 0u : many.size()) << at;
    EXPECT_EQ(home.files.Exists(u"E:\\out\\all.json"), done) << at;
    if (done) break;
    ++failed;
    EXPECT_FALSE(job->Reason().empty()) << at;
    EXPECT_EQ(FilesThere(), 0u) << at;
  }
  EXPECT_GE(failed, 6);
}

}  // namespace
}  // namespace jotlets
