// The editor in this process: what its commands make of real text in a real control, read back from it.
#include "editor/win/edit.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

#include "base/win/wide.h"
#include "data/rtf_text.h"
#include "editor/win/edit_drop.h"
#include "editor/win/edit_format.h"
#include "editor/win/edit_text.h"
#include "note/win/edit_actions.h"

namespace jotlets {
namespace {

constexpr Colour kPaper{255, 255, 200};
constexpr Colour kNight{20, 20, 60};
constexpr HighlightColours kColours = {
    {{255, 255, 0}, {255, 0, 255}, {255, 160, 0}, {0, 255, 0}, {0, 255, 255}}};

int changes = 0;
BEdit* shown = nullptr;

LRESULT CALLBACK Parent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) ++changes;
  if (message == WM_NOTIFY) shown->OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
  return DefWindowProcW(window, message, wParam, lParam);
}

class EditorTest : public ::testing::Test, private EditWatcher {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    ASSERT_NE(LoadLibraryW(L"msftedit.dll"), nullptr);
    WNDCLASSW parent{};
    parent.lpfnWndProc = Parent;
    parent.lpszClassName = L"EditorTestParent";
    RegisterClassW(&parent);
    window_ = CreateWindowW(L"EditorTestParent", L"", WS_POPUP | WS_VISIBLE, 100, 100, 300, 80, nullptr,
                            nullptr, nullptr, nullptr);
    shown = &edit_;
    ASSERT_TRUE(edit_.Create(window_, {0, 0, 300, 80}, {kPaper, false, true, false}, *this));
    changes = 0;
  }
  void TearDown() override {
    DestroyWindow(window_);
    OleUninitialize();
  }
  void OnEditScrolled() override {}
  void OnEditMouse() override {}
  void OnEditLink(const Text& target) override { opened_ = target; }
  TypingSettings Typing() override { return typing_; }
  Text Searched() override { return searched_; }
  bool HasDirectionKeys() override { return directionKeys_; }

  bool Do(ActionCode action) { return DoEditAction(edit_, action, context_); }
  void Select(LONG first, LONG last) { edit_.Select({first, last}); }
  CHARFORMAT2W At(LONG position) {
    Select(position, position + 1);
    return CharacterFormat(edit_);
  }
  EditFacts Facts() const { return edit_.Facts(kColours); }
  std::vector<LONG> Points(LONG length) {
    std::vector<LONG> points;
    for (LONG i = 0; i < length; ++i) points.push_back(At(i).yHeight / 20);
    return points;
  }
  void Click(LONG position, WPARAM keys) {
    POINTL at{};
    SendMessageW(edit_.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&at), position);
    const LPARAM where = MAKELPARAM(at.x + 2, at.y + 4);
    SendMessageW(edit_.Handle(), WM_LBUTTONDOWN, keys | MK_LBUTTON, where);
    SendMessageW(edit_.Handle(), WM_LBUTTONUP, keys, where);
  }
  // A key as the message loop hands it on: the character that comes of it follows, `typed` if there is one.
  void Press(WPARAM key, char16_t typed, bool control = false, bool shift = false) {
    BYTE none[256] = {};
    BYTE down[256] = {};
    down[VK_CONTROL] = control ? 0x80 : 0;
    down[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(down);
    SendMessageW(edit_.Handle(), WM_KEYDOWN, key, 0);
    if (typed != 0) SendMessageW(edit_.Handle(), WM_CHAR, typed, 0);
    SetKeyboardState(none);
  }
  void PressWithControl(WPARAM key, bool shift) { Press(key, 0, true, shift); }
  void Type(TextView text) {
    for (const char16_t unit : text) {
      if (unit == u'\n') {
        Press(VK_RETURN, u'\r');
      } else if (unit == u'\t') {
        Press(VK_TAB, u'\t');
      } else {
        Press(VK_PACKET, unit);
      }
    }
  }
  void SetClipboard(UINT format, const void* bytes, std::size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(window_) && EmptyClipboard());
    SetClipboardData(format, memory);
    CloseClipboard();
  }
  LONG Objects() {
    IRichEditOle* ole = nullptr;
    SendMessageW(edit_.Handle(), EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(&ole));
    const ComPointer<IRichEditOle> owned(ole);
    return ole == nullptr ? -1 : ole->GetObjectCount();
  }

  HWND window_ = nullptr;
  BEdit edit_;
  Text opened_;
  std::optional<LiftedFormat> lifted_;
  std::vector<EditStyle> styles_ = {
      {}, {{u"Courier New", 125, false, true, true, false, {200, 0, 10}, 0}, {}, {}}};
  EditContext context_{[] { return Text(u"7 May"); }, styles_, 480, kColours, lifted_, {}, u"BEE"};
  TypingSettings typing_;
  Text searched_;
  bool directionKeys_ = false;
};

TEST_F(EditorTest, EffectsGoOverTheWholeOfAMixedSelection) {
  edit_.SetPlainText(u"one two");
  for (const auto& [action, bit] :
       std::initializer_list<std::pair<ActionCode, DWORD>>{{kActionBold, CFE_BOLD},
                                                           {kActionItalic, CFE_ITALIC},
                                                           {kActionUnderline, CFE_UNDERLINE},
                                                           {kActionStrikethrough, CFE_STRIKEOUT}}) {
    Select(0, 3);
    changes = 0;
    Do(action);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(At(0).dwEffects & bit);
    EXPECT_FALSE(At(5).dwEffects & bit);
    Select(0, 7);
    Do(action);
    EXPECT_TRUE(At(0).dwEffects & At(5).dwEffects & bit);
    Select(0, 7);
    Do(action);
    EXPECT_FALSE((At(0).dwEffects | At(5).dwEffects) & bit);
    Do(kActionUndo);
    EXPECT_TRUE(At(5).dwEffects & bit);
  }
  Select(0, 0);
  changes = 0;
  Do(kActionBold);
  EXPECT_EQ(changes, 0) << "nothing selected, nothing changed";
}

TEST_F(EditorTest, SizesStepRunByRunAlongTheListAndStopAtItsEnds) {
  edit_.SetRtf("{\\rtf1\\fs20 aa\\fs40 b\\fs21 cc\\fs144 d\\fs12 e}");
  Select(1, 7);
  Do(kActionLarger);
  EXPECT_EQ(edit_.Selection().cpMin, 1);
  EXPECT_EQ(edit_.Selection().cpMax, 7);
  EXPECT_EQ(Points(7), (std::vector<LONG>{10, 11, 24, 11, 11, 72, 8}));
  Select(0, 7);
  Do(kActionSmaller);
  Select(0, 7);
  Do(kActionSmaller);
  EXPECT_EQ(Points(7), (std::vector<LONG>{8, 9, 18, 9, 9, 36, 8}));
}

TEST_F(EditorTest, FontsComeFromTheDialogsTermsAndFromSavedStyles) {
  edit_.SetPlainText(u"styled text");
  Select(0, 6);
  Do(kActionApplyStyle1);
  const FontStyle& courier = styles_[1].font;
  EXPECT_EQ(CurrentFont(edit_), courier);
  EXPECT_EQ(FromLogFont(ToLogFont(courier), 125, courier.colour), courier);
  const std::string before = edit_.Rtf().value();
  EXPECT_TRUE(Do(kActionApplyStyle9)) << "not saved, so there is nothing to apply";
  EXPECT_EQ(edit_.Rtf(), before);
  styles_[0] = {{.face = u"Arial", .points10 = 140, .colour = {}},
                Colour{255, 255, 0},
                ParagraphStyle{Alignment::kCenter, 400, 60, 20}};
  Do(kActionApplyStyle0);
  EXPECT_EQ(StyleOfSelection(edit_).back, styles_[0].back);
  EXPECT_EQ(StyleOfSelection(edit_).paragraphs, styles_[0].paragraphs);
  edit_.SetPaper(kNight, {});
  styles_[0].back.reset();
  Do(kActionApplyStyle0);
  EXPECT_EQ(CurrentFont(edit_).colour, kLightInk) << "black text on dark paper cannot be read";
  edit_.SetPlainText({});
  ApplyStyleToAll(edit_, styles_[1]);
  Type(u"new");
  Select(0, 3);
  EXPECT_EQ(CurrentFont(edit_), styles_[1].font);
  const Text longest(40, u'x');
  SetFont(edit_, {.face = longest, .points10 = 90, .colour = {}});
  EXPECT_EQ(CurrentFont(edit_).face, longest.substr(0, 31));
}

TEST_F(EditorTest, ParagraphsAreAlignedTurnedAndListed) {
  edit_.SetPlainText(u"a\r\nb\r\nc");
  Select(2, 2);
  Do(kActionCenter);
  EXPECT_EQ(Facts().alignment, Alignment::kCenter);
  Do(kActionRtl);
  EXPECT_TRUE(Facts().rtl);
  EXPECT_EQ(Facts().alignment, Alignment::kRight);
  Select(0, 3);
  EXPECT_EQ(Facts().alignment, std::nullopt);
  Do(kActionLtr);
  EXPECT_FALSE(Facts().rtl);
  EXPECT_EQ(Facts().alignment, Alignment::kLeft);

  const auto release = [&](LPARAM scanCode) {
    BYTE control[256] = {};
    control[VK_CONTROL] = 0x80;
    SetKeyboardState(control);
    SendMessageW(edit_.Handle(), WM_KEYDOWN, VK_SHIFT, scanCode << 16);
    SendMessageW(edit_.Handle(), WM_KEYUP, VK_SHIFT, scanCode << 16);
    BYTE none[256] = {};
    SetKeyboardState(none);
    return Facts().rtl;
  };
  constexpr LPARAM kLeftShift = 0x2A;
  constexpr LPARAM kRightShift = 0x36;
  Select(0, 0);
  EXPECT_FALSE(release(kRightShift)) << "these keys are off";
  directionKeys_ = true;
  EXPECT_TRUE(release(kRightShift));
  EXPECT_FALSE(release(kLeftShift));

  const auto list = [&](ActionCode action, Bullets bullets) {
    Select(2, 2);
    Do(action);
    const PARAFORMAT2 format = ParagraphFormat(edit_);
    EXPECT_EQ(Facts().bullets, bullets);
    EXPECT_EQ(format.dxStartIndent, 0);
    const LONG indent = action == kActionBulletsNone ? 0 : 480;
    EXPECT_EQ(format.dxOffset, indent);
    EXPECT_EQ(format.wNumberingTab, indent);
  };
  list(kActionBulletsNormal, Bullets::kNormal);
  list(kActionBulletsNumbers, Bullets::kNumbers);
  list(kActionBulletsLetters, Bullets::kLetters);
  Select(0, 3);
  EXPECT_EQ(Facts().bullets, std::nullopt);
  list(kActionBullets, Bullets::kNormal);
  list(kActionBulletsNone, Bullets::kNoBullets);
  list(kActionBullets, Bullets::kNormal);
  Do(kActionBullets);
  EXPECT_EQ(Facts().bullets, Bullets::kNoBullets);
}

TEST_F(EditorTest, TypingBeginsAndEndsListsHeadingsAndBoldAndIsUndoneAtOnce) {
  const auto typed = [&](TextView text) {
    edit_.SetPlainText({});
    Type(text);
    return edit_.PlainText();
  };
  typing_ = {true, 480, {}};
  for (const auto& [marks, bullets] : {std::pair(TextView(u"- "), Bullets::kNormal),
                                       {u"* ", Bullets::kNormal},
                                       {u"1. ", Bullets::kNumbers}}) {
    EXPECT_EQ(typed(marks), u"");
    EXPECT_EQ(Facts().bullets, bullets);
    EXPECT_EQ(ParagraphFormat(edit_).dxOffset, 480);
    Do(kActionUndo);
    EXPECT_EQ(edit_.PlainText(), marks);
    EXPECT_EQ(Facts().bullets, Bullets::kNoBullets);
    Do(kActionRedo);
    EXPECT_EQ(edit_.PlainText(), u"");
    EXPECT_EQ(Facts().bullets, bullets);
    Type(u"x");
    Do(kActionUndo);
    EXPECT_EQ(edit_.PlainText(), u"") << "what was typed since is its own step";
  }
  EXPECT_EQ(typed(u"- a\n\nb"), u"a\r\nb");
  EXPECT_EQ(Facts().bullets, Bullets::kNoBullets);

  typed(u"- a\t\n\nb");
  EXPECT_EQ(ParagraphFormat(edit_).dxStartIndent, 0);

  typed(u"- a\t");
  EXPECT_EQ(edit_.PlainText(), u"a");
  EXPECT_EQ(ParagraphFormat(edit_).dxStartIndent, 480);
  Press(VK_TAB, u'\t', false, true);
  Press(VK_TAB, u'\t', false, true);
  EXPECT_EQ(ParagraphFormat(edit_).dxStartIndent, 0);
  Do(kActionUndo);
  EXPECT_EQ(ParagraphFormat(edit_).dxStartIndent, 480);
  EXPECT_EQ(typed(u"a\t"), u"a\t");

  EXPECT_EQ(typed(u"an **old** word"), u"an old word");
  EXPECT_TRUE(At(3).dwEffects & At(5).dwEffects & CFE_BOLD);
  EXPECT_FALSE((At(2).dwEffects | At(6).dwEffects) & CFE_BOLD);
  typed(u"an **old**");
  Do(kActionUndo);
  EXPECT_EQ(edit_.PlainText(), u"an **old**");
  EXPECT_FALSE(At(6).dwEffects & CFE_BOLD);

  EXPECT_EQ(typed(u"# head"), u"head");
  EXPECT_TRUE(At(0).dwEffects & CFE_BOLD);
  EXPECT_EQ(At(0).yHeight, 280);
  typing_.heading = styles_[1];
  EXPECT_EQ(typed(u"# head\nx"), u"head\r\nx");
  Select(0, 4);
  EXPECT_EQ(CurrentFont(edit_), styles_[1].font);
  Select(6, 7);
  EXPECT_NE(CurrentFont(edit_), styles_[1].font) << "what follows a heading is text";

  typing_.on = false;
  EXPECT_EQ(typed(u"- [] **a** \t\nb"), u"- [] **a** \t\r\nb");
}

TEST_F(EditorTest, CheckListsGoOnAreTickedAndEnd) {
  typing_ = {true, 480, {}};
  const auto text = [&] { return edit_.PlainText(); };
  Type(u"[] a\nb\n\nc");
  EXPECT_EQ(text(), u"\u2610 a\r\n\u2610 b\r\nc");
  edit_.SetPlainText({});
  Type(u"[] ");
  Do(kActionUndo);
  EXPECT_EQ(text(), u"[] ");
  edit_.SetPlainText({});
  Type(u"[] a\n");
  Do(kActionUndo);
  EXPECT_EQ(text(), u"\u2610 a\r\n");

  edit_.SetRtf(edit_.Rtf().value());
  Select(3, 3);
  Press(VK_RETURN, u'\n', true);
  EXPECT_EQ(text(), u"\u2611 a\r\n") << "kept in rich text, and ticked";
  Press(VK_SPACE, u' ', true, true);
  EXPECT_EQ(text(), u"\u2610 a\r\n");
  EXPECT_EQ(edit_.Selection().cpMin, 3);
  EXPECT_FALSE(Facts().strikethrough);
  Click(0, 0);
  EXPECT_EQ(text(), u"\u2611 a\r\n");
  EXPECT_TRUE(Facts().strikethrough) << "what is done";
  Click(2, 0);
  EXPECT_EQ(text(), u"\u2611 a\r\n") << "a click on the words puts the caret there";
  Select(3, 3);
  Type(u"\nb");
  EXPECT_FALSE(Facts().strikethrough) << "the next item is not done";
  Do(kActionUndo);
  edit_.SetRtf(edit_.Rtf().value());
  edit_.SetPlainText(u"\u2610 a\r\n");
  Click(0, 0);
  Do(kActionUndo);
  EXPECT_EQ(text(), u"\u2610 a\r\n");
  Select(3, 3);
  EXPECT_FALSE(Facts().strikethrough) << "all of it in one step";

  edit_.SetPlainText(u"\u2610 " + Text(200, u'w') + u"\r\nplain");
  Select(190, 190);
  EXPECT_TRUE(Facts().checkList) << "further lines of an item belong to it";
  Select(205, 205);
  EXPECT_FALSE(Facts().checkList);

  edit_.SetPlainText(u"one\r\ntwo\r\nthree");
  Select(1, 5);
  Press('X', 0, true, true);
  EXPECT_EQ(text(), u"\u2610 one\r\n\u2610 two\r\nthree");
  Do(kActionUndo);
  EXPECT_EQ(text(), u"one\r\ntwo\r\nthree");
  Do(kActionRedo);
  Select(1, 8);
  Press('X', 0, true, true);
  EXPECT_EQ(text(), u"one\r\ntwo\r\nthree");

  edit_.SetPlainText(u"\u2610 a");
  edit_.SetReadOnly(true);
  Click(0, 0);
  Press(VK_RETURN, u'\n', true);
  EXPECT_EQ(text(), u"\u2610 a");
}

TEST_F(EditorTest, TextWithoutAColourCanBeReadOnAnyPaperAndHighlight) {
  constexpr COLORREF kInk = RGB(240, 240, 240);
  edit_.SetPlainText(u"plain");
  edit_.SetPaper(kNight, {});
  EXPECT_EQ(At(0).crTextColor, kInk);
  edit_.SetRtf("{\\rtf1{\\colortbl;\\red0\\green0\\blue200;}a\\cf1 b}");
  EXPECT_EQ(At(0).crTextColor, kInk);
  EXPECT_EQ(At(1).crTextColor, RGB(111, 111, 255)) << "a lighter shade, which can be read";
  EXPECT_NE(edit_.Rtf()->find("\\blue200;"), std::string::npos) << "what is written is its own";
  edit_.SetPaper({60, 90, 200}, {});
  EXPECT_NE(At(1).crTextColor, RGB(111, 111, 255)) << "on another dark paper another shade";
  edit_.SetPaper(kNight, {});
  EXPECT_EQ(At(1).crTextColor, RGB(111, 111, 255));
  Select(0, 2);
  Do(kActionCopy);
  ASSERT_TRUE(OpenClipboard(window_));
  const HANDLE memory = GetClipboardData(RegisterClipboardFormatW(L"Rich Text Format"));
  const std::string copied = memory == nullptr ? "" : static_cast<const char*>(GlobalLock(memory));
  CloseClipboard();
  EXPECT_NE(copied.find("\\blue200;"), std::string::npos) << "and so is what is copied";
  EXPECT_EQ(copied.find("\\red240"), std::string::npos);
  Select(0, 1);
  Do(kActionHiliteOrange);
  EXPECT_EQ(Facts().highlight, Highlight::kOrange);
  EXPECT_EQ(At(0).crBackColor, RGB(255, 160, 0));
  EXPECT_EQ(At(0).crTextColor, RGB(0, 0, 1));
  Do(kActionHiliteNone);
  EXPECT_EQ(Facts().highlight, Highlight::kNoHighlight);
  EXPECT_EQ(At(0).crTextColor, kInk);
  Select(1, 2);
  Do(kActionHiliteBlue);
  EXPECT_NE(At(1).crTextColor, RGB(0, 0, 1)) << "a colour of its own stays";
  edit_.SetPaper(kPaper, {});
  edit_.SetPlainText(u"plain");
  EXPECT_EQ(At(0).dwEffects & CFE_AUTOCOLOR, CFE_AUTOCOLOR);
}

TEST_F(EditorTest, AFormatIsLiftedAndApplied) {
  edit_.SetRtf("{\\rtf1\\qc\\b\\fs40 X\\b0 Y\\par\\pard\\ql\\i\\fs20 to}");
  Do(kActionApplyFormat);
  Select(0, 2);
  Do(kActionLiftFormat);
  ASSERT_TRUE(lifted_);
  Select(3, 5);
  Do(kActionApplyFormat);
  EXPECT_EQ(At(3).yHeight, 400);
  EXPECT_FALSE(At(3).dwEffects & (CFE_ITALIC | CFE_BOLD)) << "bold was mixed and is not lifted";
  EXPECT_EQ(Facts().alignment, Alignment::kCenter);
}

TEST_F(EditorTest, FindingGoesRoundAndScrolls) {
  Text text = u"Bee\r\n";
  for (int i = 0; i < 40; ++i) text += u"line\r\n";
  edit_.SetPlainText(text + u"a bee");
  Select(0, 0);
  const auto found = [&] { return edit_.Selection().cpMin; };
  Do(kActionFindTextAgain);
  EXPECT_EQ(found(), 0);
  Do(kActionFindTextAgain);
  EXPECT_GT(found(), 200);
  EXPECT_GT(edit_.ScrollPosition().y, 100);
  Do(kActionFindTextAgain);
  EXPECT_EQ(found(), 0);
  searched_ = u"bee";
  Press(VK_F3, 0, false, true);
  EXPECT_GT(found(), 200);
  const LONG before = found();
  EXPECT_EQ(FindText(edit_, u"bees", FindStep::kNext).count, 0u);
  EXPECT_EQ(found(), before);
  const FoundText second = FindText(edit_, u"BEE", FindStep::kStay);
  EXPECT_EQ(found(), before);
  EXPECT_TRUE(second.number == 2 && second.count == 2);
  // Counting anew while the text changes leaves the selection; other words that are not there end it.
  const auto selected = [&] { return edit_.Selection().cpMax - edit_.Selection().cpMin; };
  for (const TextView words : {u"line", u"wasp"}) FindText(edit_, words, FindStep::kNowhere);
  EXPECT_EQ(selected(), 3);
  FindText(edit_, u"wasp", FindStep::kStay);
  EXPECT_EQ(selected(), 0);

  edit_.SetScrollPosition({0, 0});
  Do(kActionScrollUp);
  EXPECT_EQ(edit_.ScrollPosition().y, 0);
  Do(kActionScrollDown);
  EXPECT_EQ(edit_.ScrollPosition().y, 16);
  for (int i = 0; i < 40; ++i) Do(kActionPageDown);
  EXPECT_EQ(edit_.ScrollPosition().y, edit_.TextHeight() - edit_.PageHeight());
}

TEST_F(EditorTest, LinksOpenOnlyWhenAskedForAndSurviveSaving) {
  constexpr TextView kText = u"see www.a.example now, news:x or b.example";
  edit_.SetPlainText(kText);
  edit_.SetRtf(edit_.Rtf().value());
  EXPECT_EQ(edit_.PlainText(), kText);
  Click(6, 0);
  EXPECT_EQ(opened_, u"") << "a click there places the caret";
  Click(6, MK_CONTROL);
  EXPECT_EQ(opened_, u"http://www.a.example");
  Click(26, MK_CONTROL);
  EXPECT_EQ(opened_, u"http://www.a.example") << "the control finds news: links";
  opened_.clear();
  edit_.SetReadOnly(true);
  Click(6, 0);
  EXPECT_EQ(opened_, u"http://www.a.example");
  opened_.clear();
  OpenOrMakeLink(edit_);
  EXPECT_EQ(opened_, u"http://www.a.example") << "opening is no editing";
  Select(33, 42);
  OpenOrMakeLink(edit_);
  EXPECT_EQ(edit_.PlainText(), kText);
  edit_.SetReadOnly(false);
  OpenOrMakeLink(edit_);
  EXPECT_EQ(edit_.PlainText(), u"see www.a.example now, news:x or http://b.example");
  EXPECT_TRUE(At(35).dwEffects & CFE_LINK);
  OpenOrMakeLink(edit_);
  EXPECT_EQ(opened_, u"http://b.example");
}

TEST_F(EditorTest, PicturesAndObjectsStayOutside) {
  constexpr const char* kObject =
      "{\\rtf1 x{\\object\\objemb{\\*\\objclass Package}{\\*\\objdata 0105000002000000080000005061636b616765"
      "00000000000000000004000000aabbccdd0105000000000000}{\\result{"
      "\\pict\\wmetafile8\\picw100\\pich100\\picwgoal100\\pichgoal100 010009000003}}}y}";
  EXPECT_FALSE(edit_.SetRtf(kObject)) << "the caller keeps the file";
  EXPECT_EQ(edit_.PlainText(), u"xy");
  EXPECT_EQ(Objects(), 0);
  EXPECT_TRUE(edit_.SetRtf("{\\rtf1 abc}"));
  const BITMAPINFOHEADER picture{sizeof picture, 1, 1, 1, 32, BI_RGB, 4, 0, 0, 0, 0};
  std::string bytes(reinterpret_cast<const char*>(&picture), sizeof picture);
  SetClipboard(CF_DIB, (bytes + "1234").data(), bytes.size() + 4);
  EXPECT_FALSE(Facts().canPaste);
  SendMessageW(edit_.Handle(), WM_PASTE, 0, 0);
  EXPECT_EQ(Objects(), 0);
  const std::string_view rtf(kObject);
  SetClipboard(RegisterClipboardFormatW(L"Rich Text Format"), rtf.data(), rtf.size() + 1);
  EXPECT_TRUE(Facts().canPaste);
  Do(kActionPaste);
  EXPECT_EQ(Objects(), 0);
  EXPECT_EQ(edit_.PlainText().substr(0, 2), u"xy");
}

TEST_F(EditorTest, TheClipboardAndUndoing) {
  edit_.SetRtf("{\\rtf1\\b bold}");
  Do(kActionSelectAll);
  EXPECT_TRUE(Facts().hasSelection);
  Do(kActionCut);
  EXPECT_EQ(edit_.PlainText(), u"");
  Do(kActionCopy);
  edit_.SetPlainText(u"-");
  Select(1, 1);
  PressWithControl('V', true);
  EXPECT_EQ(edit_.PlainText(), u"-bold") << "copying nothing leaves the clipboard alone";
  EXPECT_FALSE(At(1).dwEffects & CFE_BOLD);
  Do(kActionSelectAll);
  PressWithControl('V', false);
  EXPECT_EQ(edit_.PlainText().substr(0, 4), u"bold");
  EXPECT_TRUE(At(0).dwEffects & CFE_BOLD);
  edit_.SetPlainText(u"ab");
  EXPECT_FALSE(Facts().canUndo);
  Select(1, 2);
  Do(kActionInsertDate);
  EXPECT_EQ(edit_.PlainText(), u"a7 May");
  EXPECT_TRUE(Facts().canUndo);
  Do(kActionUndo);
  EXPECT_EQ(edit_.PlainText(), u"ab");
  EXPECT_TRUE(Facts().canRedo);
  Do(kActionRedo);
  Do(kActionSelectAll);
  Do(kActionClear);
  EXPECT_EQ(edit_.PlainText(), u"");
}

TEST_F(EditorTest, AReadOnlyNoteKeepsItsTextAndItsLooks) {
  SetClipboard(CF_UNICODETEXT, L"new", 8);
  edit_.SetRtf("{\\rtf1\\b bold}");
  edit_.SetReadOnly(true);
  Select(0, 2);
  lifted_ = LiftFormat(edit_);
  lifted_->characters.dwEffects = 0;
  changes = 0;
  const std::string before = edit_.Rtf().value();
  for (std::int32_t code = 1; code < kActionEnd; ++code) Do(static_cast<ActionCode>(code));
  SendMessageW(edit_.Handle(), WM_PASTE, 0, 0);
  EXPECT_EQ(edit_.Rtf(), before);
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(Facts().canPaste);
  EXPECT_FALSE(Do(kActionClose));
}

TEST_F(EditorTest, ALinkThatIsPutInIsUndone) {
  edit_.SetPlainText(u"see my plan");
  edit_.Select({4, 6});
  InsertText(edit_, u"http://example.org");
  EXPECT_EQ(edit_.PlainText(), u"see http://example.org plan");
  // The mark of the link may be a step of its own.
  for (int i = 0; i < 2 && edit_.PlainText() != u"see my plan"; ++i) Undo(edit_);
  EXPECT_EQ(edit_.PlainText(), u"see my plan");
}

TEST_F(EditorTest, TheBeginningOfALargeTextCannotBeEdited) {
  std::string rtf = "{\\rtf1 ";
  for (int i = 0; i < 3000; ++i) rtf += "{\\b line} of a long text, one of many\\par ";
  edit_.ShowWords(RtfTextStart(rtf, 64 * 1024), u"Only the beginning");
  EXPECT_EQ(edit_.TextBetween({0, 25}), u"Only the beginning\rline o");
  EXPECT_TRUE(edit_.PlainText().starts_with(u"line of a long"));
  EXPECT_LT(edit_.PlainText().size(), 65600u);
  edit_.SetReadOnly(false);
  edit_.Recreate({kPaper, false, false, false});
  EXPECT_TRUE(edit_.ShowsBeginning() && edit_.IsReadOnly() && IsReadOnlyEdit(edit_.Handle()));
  edit_.SetPlainText(u"other");
  EXPECT_FALSE(edit_.IsReadOnly() || IsReadOnlyEdit(edit_.Handle()));
}

// A text file and another one in the clipboard, which gives the same data as a drop.
TEST_F(EditorTest, DroppedFilesBecomeTextOrPaths) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / L"dropped.TXT";
  std::ofstream(file, std::ios::binary) << "\xEF\xBB\xBF"
                                           "caf\xC3\xA9";
  struct {
    DROPFILES head{sizeof(DROPFILES), {}, FALSE, TRUE};
    wchar_t names[300]{};
  } list;
  std::wstring names = file.wstring() + std::wstring(1, L'\0') + L"C:\\other.exe";
  std::copy(names.begin(), names.end(), list.names);
  SetClipboard(CF_HDROP, &list, sizeof list);
  IDataObject* data = nullptr;
  ASSERT_TRUE(SUCCEEDED(OleGetClipboard(&data)));
  const ComPointer<IDataObject> owned(data);
  edit_.SetPlainText(u"ab");
  POINT at{2, 4};
  ClientToScreen(edit_.Handle(), &at);
  const ComPointer<IDropTarget> target = MakeDropTarget(edit_.Handle());
  const auto drop = [&] {
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragEnter(data, 0, {at.x, at.y}, &effect);
    target->Drop(data, 0, {at.x, at.y}, &effect);
    return effect;
  };
  EXPECT_EQ(drop(), DWORD{DROPEFFECT_COPY});
  EXPECT_EQ(edit_.PlainText(), u"caf\u00E9\r\nC:\\other.exeab");
  edit_.SetReadOnly(true);
  EXPECT_EQ(drop(), DWORD{DROPEFFECT_NONE});
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace jotlets
