// Light and dark as a user sees them, and notes that are arranged: read from the screen and from files.
#include <windows.h>

#include <commctrl.h>

#include "desktop.h"
#include "looks/window_colours.h"
#include "manage/manage_actions.h"
#include "note/papers.h"
#include "note/win/note_shadow.h"
#include "res/resource.h"
#include "ui/window.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr wchar_t kPersonalize[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr wchar_t kLight[] = L"AppsUseLightTheme";
constexpr wchar_t kContrast[] = L"Control Panel\\Accessibility\\HighContrast";
constexpr wchar_t kFlags[] = L"Flags";

class LooksTest : public WindowTest {
 protected:
  void TearDown() override {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kPersonalize, kLight);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kContrast, kFlags);
    WindowTest::TearDown();
  }

  static void SetSystemLight(DWORD light) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kPersonalize, kLight, REG_DWORD, &light, sizeof light);
    SendMessageW(MainWindow(), WM_SETTINGCHANGE, 0, 0);
  }

  static COLORREF PixelAt(Point at) {
    const HDC screen = GetDC(nullptr);
    const COLORREF pixel = GetPixel(screen, at.x, at.y);
    ReleaseDC(nullptr, screen);
    return pixel;
  }

  static bool Shows(Point at, Colour colour) {
    return WaitUntil([&] { return PixelAt(at) == ToCOLORREF(colour); }, 5000);
  }
};

TEST_F(LooksTest, NotesAndWindowsFollowTheSystemWhileRecordsAndFilesStay) {
  JotletData blue = NoteRecord(u"AA01", {300, 200}, u"Blue");
  JotletData own = NoteRecord(u"AA02", {600, 200}, u"Own");
  blue.colour = kPapers[4];
  own.colour = {0xCF, 0xE6, 0xFE};
  ASSERT_TRUE(
      StartProgramWith({blue, own}, u"Debug=0\nSkin=Paper\nTakeBackups=0\nManageWindow=0,420,700,330"));
  const HWND note = NoteTitled(u"Blue");
  ASSERT_NE(note, nullptr);
  constexpr Point kInBlue{400, 290};
  constexpr Point kInOwn{700, 320};
  EXPECT_TRUE(Shows(kInBlue, kPapers[4]));
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, 'M'});
  const HWND manage = DialogWith(IDC_MANAGE_LIST);
  const HWND list = GetDlgItem(manage, IDC_MANAGE_LIST);
  SetWindowPos(manage, nullptr, 0, 420, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  SetSystemLight(0);
  EXPECT_TRUE(Shows(kInBlue, kDarkPapers[4]));
  EXPECT_TRUE(Shows(kInOwn, own.colour)) << "a colour of the user's own stays";
  const WindowColours dark = ColoursOf({.dark = true});
  EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)), ToCOLORREF(dark.field));
  RECT client{};
  GetClientRect(manage, &client);
  POINT corner{client.right - 3, client.bottom - 3};
  ClientToScreen(manage, &corner);
  EXPECT_TRUE(Shows({corner.x, corner.y}, dark.foot));
  ASSERT_TRUE(ClickIntoText(note));
  TypeText(u"more");
  EXPECT_TRUE(WaitUntil([&] { return ShownText(note).find(u"more") != Text::npos; }));
  EXPECT_EQ(Saved(u"AA01").colour, kPapers[4]);
  const std::string file = Read(folder_ + u"rtf\\AA01.rtf");
  EXPECT_NE(file.find("more"), std::string::npos);
  EXPECT_EQ(file.find("\\red240"), std::string::npos) << "the ink of dark paper is not the text's own";
  SetSystemLight(1);
  EXPECT_TRUE(Shows(kInBlue, kPapers[4]));
  EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)), GetSysColor(COLOR_WINDOW));
}

TEST_F(LooksTest, HighContrastTakesTheColoursOfTheSystemWhateverTheSkin) {
  JotletData blue = NoteRecord(u"AA01", {300, 200}, u"Blue");
  blue.colour = kPapers[4];
  blue.transparency = 50;
  ASSERT_TRUE(StartProgramWith({blue}, u"Debug=0\nAppearance=2\nShadows=1\nTakeBackups=0"));
  const HWND note = NoteTitled(u"Blue");
  ASSERT_NE(note, nullptr);
  RegSetKeyValueW(HKEY_CURRENT_USER, kContrast, kFlags, REG_SZ, L"127", 8);
  SendMessageW(MainWindow(), WM_SETTINGCHANGE, 0, 0);
  const auto colour = [](int index) {
    const COLORREF system = GetSysColor(index);
    return Colour{GetRValue(system), GetGValue(system), GetBValue(system)};
  };
  EXPECT_TRUE(Shows({400, 320}, colour(COLOR_WINDOW))) << "nothing shows through";
  EXPECT_TRUE(Shows({301, 270}, colour(COLOR_WINDOWTEXT)));
  ASSERT_TRUE(ClickIntoText(note));
  EXPECT_TRUE(Shows({302, 270}, colour(COLOR_HIGHLIGHT)));
  for (const HWND shadow : WindowsOfClass(kNoteShadowClass, program_->Id()))
    EXPECT_FALSE(IsWindowVisible(shadow));
  EXPECT_EQ(Saved(u"AA01").colour, kPapers[4]);
}

TEST_F(LooksTest, NotesAreArrangedAndBroughtBackInOneStep) {
  const std::vector<JotletData> notes{NoteRecord(u"AA01", {300, 200}, u"A"),
                                      NoteRecord(u"AA02", {540, 210}, u"B"),
                                      NoteRecord(u"AA03", {780, 220}, u"C")};
  ASSERT_TRUE(StartProgramWith(notes, u"Debug=0\nTakeBackups=0"));
  const std::vector<HWND> windows{NoteTitled(u"A"), NoteTitled(u"B"), NoteTitled(u"C")};
  const std::vector<Rect> before{BoundsOf(windows[0]), BoundsOf(windows[1]), BoundsOf(windows[2])};
  ASSERT_TRUE(ClickIntoText(windows[1]));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  for (const WORD key : {'L', 'A', 'S'}) PressKeys({key});
  EXPECT_TRUE(WaitUntil([&] {
    return BoundsOf(windows[0]).TopLeft() == Point{8, 8} && BoundsOf(windows[1]).left == 236 &&
           BoundsOf(windows[2]).left == 464;
  }));
  EXPECT_EQ((Point{Saved(u"AA02").x, Saved(u"AA02").y}), (Point{236, 8}));
  ASSERT_TRUE(ClickIntoText(windows[0]));
  PressKeys({VK_CONTROL, 'M'});
  const HWND manage = DialogWith(IDC_MANAGE_LIST);
  SendDlgItemMessageW(manage, IDC_MANAGE_ACTION + static_cast<int>(ManageAction::kUndo), BM_CLICK, 0, 0);
  for (std::size_t at = 0; at < windows.size(); ++at)
    EXPECT_TRUE(WaitUntil([&] { return BoundsOf(windows[at]) == before[at]; })) << at;
}

}  // namespace
}  // namespace jotlets
