// Texts that were made to end or to hang the program, or to have it start something.
#include <random>

#include "data/journal_frames.h"
#include "data/text_file.h"
#include "editor/win/edit.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr ULONGLONG kAtOnce = 2000;

std::string Times(std::size_t count, std::string_view what) {
  std::string all;
  while (count-- > 0) all += what;
  return all;
}

std::string Noise() {
  std::mt19937 random(1);
  std::string noise = "{\\rtf1 ";
  for (int i = 0; i < 10'000; ++i) noise += static_cast<char>(random() % 256);
  return noise;
}

const std::string kHostile[] = {
    "{\\rtf1 " + Times(100, "{") + "x" + Times(100, "}") + "}",
    Noise(),
    "{\\rtf1 " + Times(50'000, "x") + "}",
    "{\\rtf1 " + Times(20'000, "http://a.b ") + "}",
    "{\\rtf1 " + Times(20'000, "\\u-10179?\\u-8704?") + "}",
    "{\\rtf1 " + Times(20'000, "word ") + "}",
    "{\\rtf1 \\trowd\\cellx1000\\intbl a\\cell b\\cell c\\cell\\row x\\par }",
    Times(50'000, "x"),
    "{\\rtf1 \\" + Times(9'000, "a") + "5 x}",
    "{\\rtf1 \\b" + Times(9'000, "9") + " x}",
    "{\\rtf1 \\u1576?{\\b \\u1611?} a\\u1456?}",
};

class HostileTest : public WindowTest {
 protected:
  // A command that is answered at once.
  Text Quick(TextView command) {
    const ULONGLONG start = GetTickCount64();
    Text reply = Reply(command);
    EXPECT_LT(GetTickCount64() - start, kAtOnce) << ToUtf8(command.substr(0, 60));
    return reply;
  }
  void PutOnClipboard(UINT format, const void* bytes, std::size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size + 2);
    memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    ASSERT_TRUE(WaitUntil([&] { return OpenClipboard(client_.Handle()) != 0; }));
    EmptyClipboard();
    SetClipboardData(format, memory);
    CloseClipboard();
  }
};

TEST_F(HostileTest, ContentFilesAreShownAsFarAsTheEditorCanAndStayAsTheyAre) {
  std::vector<JotletData> notes;
  for (std::size_t i = 0; i < std::size(kHostile); ++i)
    notes.push_back(NoteRecord(u"AA0" + IntText(static_cast<int>(i)), {100 + 20 * static_cast<int>(i), 100}));
  WriteData(notes, kDataFileName, u"Debug=1");
  for (std::size_t i = 0; i < std::size(kHostile); ++i) Write(folder_ + ContentPath(notes[i]), kHostile[i]);
  const ULONGLONG start = GetTickCount64();
  ASSERT_TRUE(StartProgram());
  EXPECT_LT(GetTickCount64() - start, std::size(kHostile) * kAtOnce);
  EXPECT_NE(TextOf(u"AA02").find(Text(100, u'x')), Text::npos);
  EXPECT_NE(Log().find("The content of jotlet AA00: its groups are nested too deep"), std::string::npos);
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  EXPECT_EQ(Close(), 0u);
  for (std::size_t i = 0; i < std::size(kHostile); ++i)
    EXPECT_TRUE(Read(folder_ + ContentPath(notes[i])) == kHostile[i]) << i;
}

TEST_F(HostileTest, ATextWhoseLoadingEndedTheProgramIsNotTriedAgain) {
  const JotletData note = NoteRecord(u"AA01", {300, 300});
  const std::string content = "{\\rtf1 deadly once}";
  char mark[18];
  snprintf(mark, sizeof mark, "%016llx\n", static_cast<unsigned long long>(FingerprintOf(content)));
  WriteData({note}, kDataFileName, u"Debug=1");
  Write(folder_ + ContentPath(note), content);
  Write(folder_ + Text(kTrialsName), mark);
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"AA01"), u"deadly once");
  EXPECT_TRUE(
      ShownText(NoteTitled(u"deadly once")).starts_with(u"Jotlets ended while it was loading this text."));
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(Read(folder_ + ContentPath(note)), content);
  Write(folder_ + ContentPath(note), "{\\rtf1 mended}");
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"AA01"), u"mended");
}

TEST_F(HostileTest, CommandsAndTheClipboardBringNothingInThatHangs) {
  const JotletData note = NoteRecord(u"AA01", {300, 300}, u"One");
  ASSERT_TRUE(StartProgramWith({note}));
  for (const std::string& rtf : kHostile) {
    const Text text = FromUtf8(rtf);
    if (rtf.find('\0') == std::string::npos) {
      EXPECT_EQ(Quick(u"set desktop AA01 rtf " + FromAscii(rtf)).substr(0, 3), u"000");
      EXPECT_TRUE(Quick(u"do new encoded <ID>BB01<RTF>" + FromAscii(rtf)).starts_with(u"000 OK created: "));
    }
    PutOnClipboard(RegisterClipboardFormatW(L"Rich Text Format"), rtf.data(), rtf.size());
    EXPECT_TRUE(Quick(u"do desktop AA01 appendpaste").starts_with(u"000"));
  }
  // What cannot be shown is kept all the same.
  const Text word(50'000, u'x');
  EXPECT_EQ(Quick(u"set desktop AA01 text " + word), u"000 OK text set");
  EXPECT_NE(Read(folder_ + ContentPath(note)).find(std::string(50'000, 'x')), std::string::npos);
  EXPECT_TRUE(Quick(u"do new jotlet " + word).starts_with(u"000 OK created: "));
  EXPECT_EQ(Quick(u"set desktop AA01 utext 0061064B"), u"000 OK text set");
  EXPECT_EQ(Quick(u"set desktop AA01 text short"), u"000 OK text set");
  EXPECT_EQ(TextOf(u"AA01"), u"short");
  PutOnClipboard(CF_UNICODETEXT, word.data(), word.size() * 2);
  Quick(u"do desktop AA01 appendpaste");
  EXPECT_EQ(TextOf(u"AA01"), u"short") << "what would hang the editor is not pasted";
  // A bulleted paragraph comes as it can.
  const std::string list =
      "{\\rtf1{\\fonttbl{\\f0 "
      "Arial;}}{\\pntext\\f0\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf0\\pnindent360{\\pntxtb\\'B7}}"
      "\\fi-360\\li360 a\\par {\\pntext\\f0\\'B7\\tab}b\\par }";
  PutOnClipboard(RegisterClipboardFormatW(L"Rich Text Format"), list.data(), list.size());
  Quick(u"do desktop AA01 appendpaste");
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
  EXPECT_EQ(Close(), 0u);
}

TEST_F(HostileTest, ALinkToAFileAsksFirstAndNotAtAllInANoteFromOutside) {
  JotletData own = NoteRecord(u"AA01", {300, 100}, u"Own");
  JotletData mailed = NoteRecord(u"AA02", {300, 400}, u"Mailed");
  own.readOnly = mailed.readOnly = true;
  mailed.source = u"a friend";
  WriteData({own, mailed});
  const std::string link = "file:///C:/windows/system32/winver.exe";
  for (const JotletData& note : {own, mailed}) Write(folder_ + ContentPath(note), "{\\rtf1 " + link + "}");
  ASSERT_TRUE(StartProgram());
  for (const Text title : {u"Own", u"Mailed"}) {
    const Rect text = BoundsOf(GetDlgItem(NoteTitled(title), BEdit::kControlId));
    const auto boxIsThere = [this] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); };
    ASSERT_TRUE(ClickUntil(boxIsThere, {text.left + 30, text.top + 8}));
    const Text box = AnswerBox(*program_);
    EXPECT_TRUE(box.ends_with(u"\n\n" + FromUtf8(link))) << ToUtf8(box);
    EXPECT_EQ(box.starts_with(u"This Jotlet came from outside."), title == u"Mailed") << ToUtf8(box);
  }
  EXPECT_EQ(Log().find("Unable to"), std::string::npos);
  EXPECT_EQ(FindWindowW(nullptr, L"About Wine"), nullptr);
}

}  // namespace
}  // namespace jotlets
