// The options dialog by mouse and keys: settings of each kind, their effect on an open note and in the file.
#include <windows.h>

#include "base/win/ansi_code_page.h"
#include "data/text_file.h"
#include "desktop.h"
#include "note/papers.h"
#include "note/win/jotlet.h"
#include "note/win/note_shadow.h"
#include "res/resource.h"
#include "window_test.h"

namespace jotlets {
namespace {

class OptionsTest : public WindowTest {
 protected:
  static HWND Dialog() { return FindWindowW(L"#32770", L"Options"); }
  static bool IsOpen() { return Dialog() != nullptr && IsWindowVisible(Dialog()); }
  bool OpenByKey(HWND note) {
    if (!ClickIntoText(note)) return false;
    PressKeys({VK_CONTROL, 'O'});
    return WaitUntil([] { return IsOpen() && GetForegroundWindow() == Dialog(); });
  }
  static HWND Focus() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(Dialog(), nullptr), &info);
    return info.hwndFocus;
  }
  // Finds a setting by its words and goes there by the keyboard.
  static bool GoTo(TextView words) {
    const HWND search = GetDlgItem(Dialog(), IDC_OPTIONS_SEARCH);
    PressKeys({VK_CONTROL, 'F'});
    if (!WaitUntil([&] { return Focus() == search; })) return false;
    PressKeys({VK_CONTROL, 'A'});
    TypeText(words);
    if (!WaitUntil([&] { return TextOfWindow(search) == words; })) return false;
    PressKeys({VK_RETURN});
    return WaitUntil([&] { return Focus() != search; });
  }
  Text OptionLine(TextView key) const {
    const Text options = DecodeTextFile(Read(folder_ + Text(kOptionsFileName)), ansi_).text;
    LineReader reader(options);
    for (TextView line; reader.Next(line);)
      if (line.starts_with(Text(key) + u"=")) return Text(line);
    return {};
  }
  bool HasShadow() const { return !WindowsOfClass(kNoteShadowClass, program_->Id()).empty(); }

  AnsiCodePage ansi_;
};

TEST_F(OptionsTest, EachKindActsAtOnceAndIsWritten) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {20, 20}, u"One")}, u"Debug=1"));
  const HWND note = NoteTitled(u"One");
  ASSERT_TRUE(OpenByKey(note));
  ASSERT_TRUE(GoTo(u"throw shadows"));
  PressKeys({VK_SPACE});
  ASSERT_TRUE(GoTo(u"pape"));
  for (int i = 0; i < 5; ++i) PressKeys({VK_DOWN});
  ASSERT_TRUE(GoTo(u"defaultwidth"));
  PressKeys({VK_CONTROL, 'A'});
  TypeText(u"280");
  ASSERT_TRUE(GoTo(u"rescue"));
  PressKeys({VK_CONTROL, VK_SHIFT, VK_F9});
  EXPECT_TRUE(WaitUntil([] { return TextOfWindow(Focus()) == u"Ctrl+Shift+F9"; }));
  ASSERT_TRUE(GoTo(u"closed notes"));
  PressKeys({VK_CONTROL, 'A'});
  TypeText(u"many");
  PressKeys({VK_RETURN});
  const HWND field = Focus();
  EXPECT_TRUE(WaitUntil([&] { return TextOfWindow(field) == u"many"; }));
  EXPECT_TRUE(IsOpen()) << "what is wrong stands in the way of nothing else, but is not taken";
  EXPECT_FALSE(HasShadow());
  PressKeys({VK_CONTROL, 'A'});
  TypeText(u"7");
  // By the mouse, what has been entered takes effect with the dialog open.
  const HWND apply = GetDlgItem(Dialog(), IDC_OPTIONS_APPLY);
  ASSERT_TRUE(ClickUntil([&] { return !IsWindowEnabled(apply); },
                         {BoundsOf(apply).left + 20, BoundsOf(apply).top + 8}));
  EXPECT_TRUE(WaitUntil([this] { return HasShadow(); }));
  EXPECT_NE(Log().find("Options changed"), std::string::npos);
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([] { return !IsOpen(); }));
  const Text fresh = Create(u"fresh");
  const JotletData made = Saved(fresh);
  EXPECT_TRUE(made.width == 280 && made.colour == kPapers[4]);
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(OptionLine(u"KeepDeleted"), u"KeepDeleted=7");
  EXPECT_EQ(OptionLine(u"Hook5"), u"Hook5=0110120");
  EXPECT_EQ(OptionLine(u"Shadows"), u"Shadows=1");
}

TEST_F(OptionsTest, CancelTakesNothing) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {20, 20}, u"One")}));
  ASSERT_TRUE(OpenByKey(NoteTitled(u"One")));
  ASSERT_TRUE(GoTo(u"throw shadows"));
  PressKeys({VK_SPACE});
  const HWND apply = GetDlgItem(Dialog(), IDC_OPTIONS_APPLY);
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(apply) != FALSE; }));
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(WaitUntil([] { return !IsOpen(); }));
  EXPECT_FALSE(HasShadow());
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(OptionLine(u"Shadows"), u"");
}

}  // namespace
}  // namespace jotlets
