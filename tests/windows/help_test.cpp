// The help, the window of the keys, and what is said of hot keys.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/screen.h"
#include "window_test.h"

namespace jotlets {
namespace {

class HelpTest : public WindowTest {
 protected:
  static HWND Keys() { return FindWindowW(L"#32770", L"Keyboard shortcuts"); }
  static LRESULT Rows() { return SendMessageW(GetDlgItem(Keys(), IDC_KEYS_LIST), LVM_GETITEMCOUNT, 0, 0); }
  static bool HasFocus() {
    return WaitUntil([] { return Keys() != nullptr && GetForegroundWindow() == Keys(); });
  }
  static bool IsGone() {
    return WaitUntil([] { return Keys() == nullptr; });
  }
};

TEST_F(HelpTest, TheWindowOfTheKeysFiltersAsIsTypedAndItsKeysAreItsOwn) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  PressKeys({VK_CONTROL, VK_F1});
  ASSERT_TRUE(HasFocus());
  ASSERT_TRUE(WaitUntil([] { return Rows() > 50; }));
  const LRESULT all = Rows();
  TypeText(u"ALT rescue");
  EXPECT_TRUE(WaitUntil([] { return Rows() == 1; })) << Rows();
  TypeText(u"x");
  EXPECT_TRUE(WaitUntil([] { return Rows() == 0; }));
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(IsGone());
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  PressKeys({VK_CONTROL, VK_F1});
  ASSERT_TRUE(HasFocus());
  EXPECT_TRUE(WaitUntil([all] { return Rows() == all; }));
  PressKeys({VK_MENU, VK_F4});
  EXPECT_TRUE(IsGone());
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
}

// A skin's button has the same command as the key.
TEST_F(HelpTest, APageThatIsMissingIsToldWithItsPlace) {
  const Text moved = scratch_ + u"moved.exe";
  std::filesystem::copy_file(std::filesystem::path(ProgramFile()), std::filesystem::path(moved));
  WriteData({NoteRecord(u"AA01", {300, 300}, u"One")}, kDataFileName, u"Debug=1");
  ASSERT_TRUE(StartProgram({}, moved));
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(ProgramFolder() + u"help.html")));
  const Text said = u"The help page is not where it belongs:\n\n" + scratch_ + u"help.html";
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  PressKeys({VK_F1});
  EXPECT_EQ(AnswerBox(*program_), said);
  ChooseInTrayMenu({'H'});
  EXPECT_EQ(AnswerBox(*program_), said);
  EXPECT_NE(Log().find("There is no help page: "), std::string::npos);
}

TEST_F(HelpTest, ATakenHotKeyIsToldOnceAndTheFirstNoteNamesTheOneThatHolds) {
  const auto balloons = [] {
    const auto all = WindowsOfClass(L"tooltips_class32");
    return std::count_if(all.begin(), all.end(), [](HWND window) { return IsWindowVisible(window) != 0; });
  };
  SetCursorPos(700, 600);  // on the icon it would show the tooltip, which is a window of the same kind
  ASSERT_TRUE(StartProgram());
  EXPECT_TRUE(ShownText(NoteTitled(u"Welcome to Jotlets"))
                  .ends_with(u"Win+Alt+S makes a new note wherever you are. F1 in a note opens the help."));
  EXPECT_EQ(balloons(), 0);
  EXPECT_EQ(Close(), 0u);
  WriteData({NoteRecord(u"AA01", {300, 300}, u"One")}, kDataFileName, u"Debug=1");
  ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_WIN | MOD_ALT, 'S'));
  ASSERT_TRUE(StartProgram());
  EXPECT_TRUE(WaitUntil([&] { return balloons() == 1; }));
  EXPECT_EQ(Log().find("Hot key 11"), std::string::npos) << Log();
  UnregisterHotKey(nullptr, 1);
}

}  // namespace
}  // namespace jotlets
