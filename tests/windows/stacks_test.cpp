// Stacks, built and used with the mouse and the keyboard.
#include <windows.h>

#include "base/win/ansi_code_page.h"
#include "base/win/wide.h"
#include "data/text_file.h"
#include "desktop.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "schedule/win/stack_window.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr TextView kOptions = u"Debug=3\nSnap=0,10,2\nTakeBackups=0\nAnimationSpeed=5";

class StacksTest : public WindowTest {
 protected:
  static HWND Stack(const Text& title) {
    HWND stack = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
      stack = FindWindowW(kStackClass, Wide(title));
      return stack != nullptr && IsWindowVisible(stack);
    })) << ToUtf8(title);
    return stack;
  }
  static bool IsShown(const Text& title) {
    return IsWindowVisible(FindWindowW(kJotletClass, Wide(title))) != 0;
  }
  static std::vector<Text> Shown(std::initializer_list<TextView> titles) {
    std::vector<Text> shown;
    for (const TextView title : titles) {
      if (IsShown(Text(title))) shown.emplace_back(title);
    }
    return shown;
  }
  // In the built-in skin: the button that spreads and gathers, the cross, and the rows of the list.
  static Point SpreadButton(HWND stack) { return {BoundsOf(stack).right - 13, BoundsOf(stack).bottom - 11}; }
  static Point Cross(HWND stack) { return {BoundsOf(stack).right - 7, BoundsOf(stack).top + 6}; }
  static Point Row(HWND stack, int row) {
    return {BoundsOf(stack).left + 60, BoundsOf(stack).top + 22 + 20 * row};
  }
  static Point Label(HWND stack) { return {BoundsOf(stack).left + 60, BoundsOf(stack).bottom - 10}; }

  DataFile SavedFile() {
    Reply(u"do saveini");
    return ParseData();
  }
  std::int32_t StackOf(TextView id) { return Saved(id).stack; }
  bool AnswerDialog(WORD key) const {
    const HWND dialog = DialogInFront();
    PressKeys({VK_MENU, key});
    return dialog != nullptr && WaitUntil([&] { return !IsWindow(dialog); });
  }
  void StartWithStacks(const Text& stackLines, const std::vector<JotletData>& notes) {
    WriteData(notes, kDataFileName, kOptions);
    const Text path = folder_ + Text(kDataFileName);
    Text text = DecodeTextFile(Read(path), AnsiCodePage()).text;
    text.insert(text.find(u"[Jotlets]"), u"[Stacks]\n" + stackLines + u"\n");
    Write(path, EncodeTextFile(text));
    ASSERT_TRUE(StartProgram());
  }
};

JotletData Member(TextView id, Point place, std::int32_t stack) {
  JotletData record = NoteRecord(id, place, id);
  record.stack = stack;
  return record;
}

TEST_F(StacksTest, FiveNotesAreStackedUsedAndFoundAsTheyWere) {
  std::vector<JotletData> notes;
  notes.reserve(5);
  for (int each = 0; each < 5; ++each)
    notes.push_back(NoteRecord(u"AA0" + IntText(each + 1), {500 + 30 * each, 60 + 150 * (each % 4)},
                               u"AA0" + IntText(each + 1)));
  ASSERT_TRUE(StartProgramWith(notes, kOptions));
  // Three of them are selected; a new stack takes them in.
  Select({u"AA01", u"AA02", u"AA03"});
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  PressKeys({'A'});
  ASSERT_TRUE(WaitUntil([this] { return OpenMenus() == 2; }))
      << OpenMenus() << " of " << WindowsOfClass(L"#32768").size() << ", keys go to "
      << GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
  PressKeys({'N'});
  const HWND stack = Stack(u"Stack 1");
  EXPECT_EQ(Value(u"get list stacks"), u"1,");
  EXPECT_TRUE(WaitUntil([] { return Shown({u"AA01", u"AA02", u"AA03", u"AA04", u"AA05"}).size() == 2; }));
  // The others are dropped on it, one with Shift and one without.
  const auto drop = [&](const Text& title) {
    const HWND note = NoteTitled(title);
    const Point to = Row(stack, 4);
    return Drag(note, Title(note), {to.x - Title(note).x, to.y - Title(note).y});
  };
  ASSERT_TRUE(drop(u"AA05"));
  EXPECT_EQ(StackOf(u"AA05"), -1);
  HoldKey(VK_SHIFT, true);
  EXPECT_TRUE(drop(u"AA04"));
  EXPECT_TRUE(drop(u"AA05"));
  HoldKey(VK_SHIFT, false);
  EXPECT_TRUE(WaitUntil([&] { return StackOf(u"AA04") == 1 && StackOf(u"AA05") == 1; }));
  EXPECT_TRUE(WaitUntil([] { return Shown({u"AA01", u"AA02", u"AA03", u"AA04", u"AA05"}).empty(); }));

  // Spread out; a click on a row puts its note away, and one drags its note out.
  EXPECT_TRUE(ClickUntil(
      [] {
        return Shown({u"AA01", u"AA02", u"AA03", u"AA04", u"AA05"}).size() == 5;
      },
      SpreadButton(stack)));
  const HWND first = FindWindowW(kJotletClass, L"AA01");
  const Rect beside = BoundsOf(stack);
  EXPECT_TRUE(WaitUntil(
      [&] { return BoundsOf(first).left == beside.right + 2 || BoundsOf(first).right == beside.left - 2; }));
  EXPECT_TRUE(ClickUntil([] { return !IsShown(u"AA02"); }, Row(stack, 1)));
  const Point from = Row(stack, 2);
  ASSERT_TRUE(Drag(stack, from, {BoundsOf(stack).right < 700 ? 420 : -420, 250}));
  EXPECT_TRUE(WaitUntil([&] { return StackOf(u"AA03") == -1; }));
  EXPECT_TRUE(IsShown(u"AA03"));

  // Named, on top, moved and rolled up.
  ASSERT_TRUE(Drag(stack, Label(stack), {-7, 13}));
  PressKeys({VK_F2});
  ASSERT_TRUE(WaitUntil([&] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }));
  TypeText(u"House & garden");
  PressKeys({VK_RETURN});
  ASSERT_EQ(Stack(u"House & garden"), stack);
  EXPECT_EQ(Value(u"get stack 1 utitle"), HexTitle(u"House & garden"));
  PressKeys({VK_CONTROL, VK_SHIFT, 'T'});
  EXPECT_TRUE(WaitUntil([&] { return (GetWindowLongPtrW(stack, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }));
  PressKeys({VK_CONTROL, VK_SHIFT, 'U'});
  EXPECT_TRUE(WaitUntil([&] { return BoundsOf(stack).Height() == 25; }));
  const Rect bounds = BoundsOf(stack);
  const std::vector<Text> shown = Shown({u"AA01", u"AA02", u"AA03", u"AA04", u"AA05"});
  const DataFile before = SavedFile();
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(StartProgram());
  const HWND again = Stack(u"House & garden");
  EXPECT_EQ(BoundsOf(again), bounds);
  EXPECT_NE(GetWindowLongPtrW(again, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  EXPECT_EQ(Shown({u"AA01", u"AA02", u"AA03", u"AA04", u"AA05"}), shown);
  const DataFile after = SavedFile();
  EXPECT_TRUE(before.stacks == after.stacks && before.stacks.size() == 1);
  EXPECT_TRUE(before.stacks.at(0).unp && before.stacks.at(0).onTop);
  for (std::size_t each = 0; each < before.jotlets.size(); ++each)
    EXPECT_TRUE(before.jotlets[each].record == after.jotlets[each].record);
}

TEST_F(StacksTest, ClosingAsksWhatBecomesOfTheNotes) {
  StartWithStacks(
      u"<X>60<Y>60<W>200<H>120<ID>1<TITLE>One\n<X>60<Y>300<W>200<H>120<ID>2<TITLE>Two\n<X>60<Y>500<ID>3<"
      u"TITLE>None\n",
      {Member(u"AA01", {400, 60}, 1), Member(u"AA02", {650, 60}, 2)});
  // An empty one goes without a question.
  EXPECT_TRUE(ClickUntil([&] { return Value(u"get list stacks") == u"1,2,"; }, Cross(Stack(u"None"))));
  EXPECT_TRUE(
      ClickUntil([&] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }, Cross(Stack(u"One"))));
  EXPECT_TRUE(AnswerDialog('C'));
  EXPECT_EQ(Value(u"get list stacks"), u"1,2,");
  EXPECT_TRUE(
      ClickUntil([&] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }, Cross(Stack(u"One"))));
  EXPECT_TRUE(AnswerDialog('L'));
  EXPECT_TRUE(
      ClickUntil([&] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }, Cross(Stack(u"Two"))));
  EXPECT_TRUE(AnswerDialog('O'));
  EXPECT_TRUE(WaitUntil([&] { return Value(u"get list stacks").empty(); }));
  EXPECT_EQ(List(u"desktop"), std::vector<Text>{u"AA01"});
  EXPECT_EQ(List(u"closed"), std::vector<Text>{u"AA02"});
  EXPECT_EQ(StackOf(u"AA01"), -1);
  EXPECT_TRUE(SavedFile().stacks.empty());
  for (const char* line : {"BStackDlg::OnClose()", "stack deleted"})
    EXPECT_NE(Log().find(line), std::string::npos);
}

TEST_F(StacksTest, AStackOffTheScreenIsSeenKeepsItsPlaceAndIsRescued) {
  StartWithStacks(u"<X>99999<Y>-99999<W>-5<H>2000000000<ID>7<TITLE>Far\n", {Member(u"AA01", {400, 60}, 7)});
  EXPECT_EQ(SavedFile().stacks.at(0).x, 99999) << "shown elsewhere, kept where it was";
  EXPECT_TRUE(IsWindowVisible(Stack(u"Far")));
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(StartProgram(u"-rescue"));
  const Rect rescued = BoundsOf(Stack(u"Far"));
  EXPECT_EQ(rescued.left, 640 - rescued.Width() / 2);
  EXPECT_EQ(SavedFile().stacks.at(0).x, rescued.left);
  EXPECT_NE(Log().find("Rescued a stack"), std::string::npos);
}

}  // namespace
}  // namespace jotlets
