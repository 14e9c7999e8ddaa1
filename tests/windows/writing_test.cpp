// Writing in a note of the running program: what is looked for, styles, and copies as other kinds of files.
#include "base/win/wide.h"
#include "data/text_file.h"
#include "note/win/find_strip.h"
#include "res/resource.h"
#include "window_test.h"

namespace jotlets {
namespace {

class WritingTest : public WindowTest {
 protected:
  HWND StartWithNote(const Text& text) {
    if (!StartProgramWith({NoteRecord(u"AA01", {100, 100}, u"List")})) return nullptr;
    Reply(u"set desktop AA01 text " + text);
    const HWND note = NoteTitled(u"List");
    return ClickIntoText(note) ? note : nullptr;
  }
  static HWND Strip(HWND note) { return GetDlgItem(note, FindStrip::kControlId); }
  static bool HasFocus(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != 0 &&
           info.hwndFocus == window;
  }
  // The count that the strip shows.
  static bool Says(HWND note, TextView words) {
    constexpr int kFound = 2;
    return WaitUntil([&] { return TextOfWindow(GetDlgItem(Strip(note), kFound)) == words; });
  }
};

TEST_F(WritingTest, WordsAreLookedForInAStripOfTheNote) {
  const HWND note = StartWithNote(u"milk, eggs, Milk, milk");
  ASSERT_NE(note, nullptr);
  const HWND editor = GetDlgItem(note, BEdit::kControlId);
  PressKeys({VK_CONTROL, VK_HOME});
  const Rect before = BoundsOf(editor);
  PressKeys({VK_CONTROL, 'F'});
  ASSERT_TRUE(WaitUntil([&] { return IsWindowVisible(Strip(note)) != 0; }));
  EXPECT_LT(BoundsOf(editor).bottom, before.bottom);
  TypeText(u"milk");
  EXPECT_TRUE(Says(note, u"1 of 3"));
  PressKeys({VK_RETURN});
  EXPECT_TRUE(Says(note, u"2 of 3"));
  PressKeys({VK_SHIFT, VK_F3});
  PressKeys({VK_SHIFT, VK_RETURN});
  EXPECT_TRUE(Says(note, u"3 of 3"));
  TypeText(u"x");
  EXPECT_TRUE(Says(note, u"none"));
  EXPECT_EQ(TextOf(u"AA01"), u"milk, eggs, Milk, milk") << "keys of the strip are no keys of the text";
  PressKeys({VK_BACK});
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([&] { return HasFocus(editor) && IsWindowVisible(Strip(note)) == 0; }));
  EXPECT_EQ(BoundsOf(editor), before);
}

TEST_F(WritingTest, StylesAreNamedAndAppliedByTheirNames) {
  const HWND note = StartWithNote(u"words");
  ASSERT_NE(note, nullptr);
  EXPECT_EQ(Reply(u"set desktop AA01 style Loud"), u"997 style not found");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, 'A'});
  PressKeys({VK_CONTROL, 'B'});
  PressKeys({VK_APPS});
  ASSERT_TRUE(WaitUntil([&] { return MenuIsOpen(); }));
  // The styles, and the last entry of their menu.
  PressKeys({'Y'});
  PressKeys({'S'});
  const HWND dialog = DialogWith(IDC_STYLE_LIST);
  ASSERT_NE(dialog, nullptr);
  SendMessageW(dialog, WM_COMMAND, IDC_STYLE_FROM_SELECTION, 0);
  SendDlgItemMessageW(dialog, IDC_STYLE_NAME, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Loud"));
  SendMessageW(dialog, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  Reply(u"set desktop AA01 text other");
  EXPECT_EQ(Reply(u"set desktop AA01 style loud"), u"000 OK style set");
  EXPECT_NE(Value(u"get desktop AA01 rtf").find(u"\\b"), Text::npos);
  ASSERT_EQ(Close(), DWORD{0});
  EXPECT_NE(Read(folder_ + Text(kOptionsFileName)).find(EncodeTextFile(u"|Loud|").substr(2)),
            std::string::npos);
}

}  // namespace
}  // namespace jotlets
