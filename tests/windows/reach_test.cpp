// Notes and stacks as a screen reader has them, from another process, and the keyboard at their buttons.
#include <windows.h>

#include <initguid.h>

#include <oleacc.h>

#include <algorithm>

#include "base/win/ansi_code_page.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/text_file.h"
#include "desktop.h"
#include "note/win/jotlet.h"
#include "schedule/win/stack_window.h"
#include "ui/com_object.h"
#include "window_test.h"

namespace jotlets {
namespace {

VARIANT Child(LONG number) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = number;
  return child;
}

// One part as the client has it.
struct Spoken {
  LONG number = 0;
  Text name;
  Text value;
  LONG role = 0;
  LONG state = 0;
  Rect area;
};

class ReachTest : public WindowTest {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    WindowTest::SetUp();
  }
  void TearDown() override {
    WindowTest::TearDown();
    CoUninitialize();
  }

  static ComPointer<IAccessible> ObjectOf(HWND window) {
    void* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &object);
    return ComPointer<IAccessible>(static_cast<IAccessible*>(object));
  }

  template <typename Ask>
  static Text WordOf(Ask ask) {
    BSTR words = nullptr;
    ask(&words);
    Text text(words == nullptr ? Text() : FromWide(words));
    SysFreeString(words);
    return text;
  }

  static Spoken PartOf(IAccessible& object, LONG number) {
    Spoken part{.number = number};
    part.name = WordOf([&](BSTR* to) { object.get_accName(Child(number), to); });
    part.value = WordOf([&](BSTR* to) { object.get_accValue(Child(number), to); });
    VARIANT asked{};
    if (object.get_accRole(Child(number), &asked) == S_OK) part.role = asked.lVal;
    if (object.get_accState(Child(number), &asked) == S_OK) part.state = asked.lVal;
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    object.accLocation(&left, &top, &width, &height, Child(number));
    part.area = RectAt({left, top}, {width, height});
    return part;
  }

  static std::vector<Spoken> PartsOf(IAccessible& object) {
    std::vector<Spoken> parts;
    LONG count = 0;
    object.get_accChildCount(&count);
    for (LONG number = 1; number <= count; ++number) parts.push_back(PartOf(object, number));
    return parts;
  }

  static Spoken PartNamed(IAccessible& object, const Text& name) {
    for (const Spoken& part : PartsOf(object))
      if (part.name == name) return part;
    ADD_FAILURE() << "no part is called " << ToUtf8(name);
    return {};
  }

  static LONG FocusOf(IAccessible& object) {
    VARIANT focus{};
    return object.get_accFocus(&focus) == S_OK && focus.vt == VT_I4 ? focus.lVal : -1;
  }
};

// What hooks have been told of a window since the last look.
class Listener {
 public:
  explicit Listener(const Process& process) {
    told.clear();
    hook_ = SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_VALUECHANGE, nullptr, Hear, process.Id(), 0,
                            WINEVENT_OUTOFCONTEXT);
  }
  ~Listener() { UnhookWinEvent(hook_); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  bool Hears(DWORD event, HWND window, LONG child) const {
    return WaitUntil([&] { return std::ranges::find(told, Told{event, window, child}) != told.end(); }, 5000);
  }

 private:
  struct Told {
    DWORD event;
    HWND window;
    LONG child;
    friend bool operator==(const Told&, const Told&) = default;
  };
  static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
    if (object == OBJID_CLIENT) told.push_back({event, window, child});
  }
  static inline std::vector<Told> told;
  HWINEVENTHOOK hook_;
};

TEST_F(ReachTest, ANoteIsReadAndUsedFromAnotherProcess) {
  JotletData record = NoteRecord(u"AA01", {300, 200}, u"Shopping");
  record.readOnly = true;
  ASSERT_TRUE(StartProgramWith({record}, u"Debug=3\nTakeBackups=0\nSkin=Paper"));
  const HWND note = NoteTitled(u"Shopping");
  const auto object = ObjectOf(note);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(PartOf(*object, CHILDID_SELF).name, u"Shopping");
  EXPECT_EQ(WordOf([&](BSTR* to) { object->get_accDescription(Child(CHILDID_SELF), to); }), u"Locked");
  for (const Spoken& part : PartsOf(*object)) {
    EXPECT_FALSE(part.name.empty());
    const Rect all = BoundsOf(note);
    const bool there = (part.state & STATE_SYSTEM_INVISIBLE) == 0;
    EXPECT_EQ(there && part.area.left >= all.left && part.area.bottom <= all.bottom, there);
  }
  // The text is the editor's own, at its place.
  const Spoken text = PartNamed(*object, u"Text");
  IDispatch* editor = nullptr;
  EXPECT_EQ(object->get_accChild(Child(text.number), &editor), S_OK);
  if (editor != nullptr) editor->Release();
  VARIANT hit{};
  EXPECT_EQ(object->accHitTest(text.area.left + 9, text.area.top + 9, &hit), S_OK);
  EXPECT_EQ(hit.lVal, text.number);

  const Listener listener(*program_);
  const Spoken pin = PartNamed(*object, u"On top");
  EXPECT_TRUE(pin.role == ROLE_SYSTEM_PUSHBUTTON && (pin.state & STATE_SYSTEM_INVISIBLE) != 0);
  EXPECT_EQ(object->accDoDefaultAction(Child(pin.number)), S_OK);
  EXPECT_TRUE(WaitUntil([&] { return Saved(u"AA01").onTop; }));
  // Being on top is one more state, with a name of its own.
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_REORDER, note, CHILDID_SELF));
  EXPECT_EQ(PartsOf(*object)[2].name, u"On top");
  Reply(u"set desktop AA01 title Errands");
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_NAMECHANGE, note, CHILDID_SELF));
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_VALUECHANGE, note, 1));
  // What is asked of a note that has gone is answered with an error, and the program goes on.
  Reply(u"do desktop AA01 close");
  ASSERT_TRUE(WaitUntil([&] { return IsWindow(note) == 0; }));
  LONG count = 7;
  EXPECT_TRUE(FAILED(object->get_accChildCount(&count)));
  EXPECT_TRUE(FAILED(object->accDoDefaultAction(Child(1))));
  EXPECT_EQ(Close(), 0u);
}

TEST_F(ReachTest, TheKeyboardGoesToTheButtonsAndBack) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Shopping")},
                               u"Debug=3\nTakeBackups=0\nSkin=Paper"));
  const HWND note = NoteTitled(u"Shopping");
  ASSERT_TRUE(ClickIntoText(note));
  const auto object = ObjectOf(note);
  ASSERT_NE(object, nullptr);
  const LONG text = PartNamed(*object, u"Text").number;
  EXPECT_TRUE(WaitUntil([&] { return FocusOf(*object) == text; }));
  const Listener listener(*program_);
  PressKeys({VK_SHIFT, VK_F6});
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_FOCUS, note, 1));
  const LONG pin = PartNamed(*object, u"On top").number;
  while (FocusOf(*object) != pin && FocusOf(*object) > 0) {
    const LONG before = FocusOf(*object);
    PressKeys({VK_RIGHT});
    ASSERT_TRUE(WaitUntil([&] { return FocusOf(*object) != before; }, 5000));
  }
  PressKeys({VK_SPACE});
  EXPECT_TRUE(WaitUntil([&] { return (PartOf(*object, pin + 1).state & STATE_SYSTEM_PRESSED) != 0; }));
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([&] { return FocusOf(*object) == text + 1; }));
  TypeText(u"x");
  EXPECT_TRUE(WaitUntil([&] { return TextOf(u"AA01").find(u'x') != Text::npos; }));
  // F6 alone goes to the bar at the foot, whose buttons follow the caret.
  PressKeys({VK_F6});
  const Spoken bold = PartNamed(*object, u"Bold");
  EXPECT_TRUE(WaitUntil([&] { return FocusOf(*object) == bold.number; }));
  PressKeys({VK_SPACE});
  const auto pressed = [&] { return (PartOf(*object, bold.number).state & STATE_SYSTEM_PRESSED) != 0; };
  EXPECT_TRUE(WaitUntil(pressed));
  PressKeys({VK_ESCAPE});
  TypeText(u"y");
  PressKeys({VK_HOME});
  EXPECT_TRUE(WaitUntil([&] { return !pressed(); }));
  EXPECT_TRUE(Saved(u"AA01").onTop);
}

// Nothing is looked at and no mouse is used: names and roles tell where the keyboard is.
TEST_F(ReachTest, ANoteIsMadeWrittenColouredPutToSleepAndFoundWithoutBeingSeen) {
  ASSERT_TRUE(StartProgramWith({}, u"Debug=3\nTakeBackups=0\nSkin=Paper"));
  const auto said = [] {
    const HWND front = GetForegroundWindow();
    const auto window = ObjectOf(front);
    // A note tells which of its parts it is; a dialog's controls speak for themselves.
    if (window != nullptr && FocusOf(*window) > 0) return PartOf(*window, FocusOf(*window));
    GUITHREADINFO focus{};
    focus.cbSize = sizeof focus;
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(front, nullptr), &focus)) return Spoken();
    const auto object = ObjectOf(focus.hwndFocus);
    return object == nullptr ? Spoken() : PartOf(*object, CHILDID_SELF);
  };
  const auto hears = [&](const Text& name) {
    Spoken heard;
    const bool right = WaitUntil([&] {
      heard = said();
      return heard.name == name;
    });
    EXPECT_TRUE(right) << ToUtf8(heard.name) << " " << heard.role;
    return right;
  };
  PressKeys({VK_LWIN, VK_MENU, 'S'});
  ASSERT_TRUE(hears(u"Text"));
  TypeText(u"Milk and bread");
  ASSERT_TRUE(WaitUntil([&] { return List(u"desktop").size() == 1; }));
  const Text id = List(u"desktop")[0];
  const Colour yellow = Saved(id).colour;
  PressKeys({VK_CONTROL, VK_SHIFT, 'C'});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  PressKeys({VK_RIGHT});
  PressKeys({VK_RETURN});
  ASSERT_TRUE(WaitUntil([&] { return Saved(id).colour != yellow; }));
  // "Remind me", "Sleep": the letters of a menu are told with its entries.
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  PressKeys({'R'});
  ASSERT_TRUE(WaitUntil([this] { return OpenMenus() == 2; }));
  PressKeys({'S'});
  ASSERT_TRUE(hears(u"for:"));
  PressKeys({VK_RETURN});
  ASSERT_TRUE(WaitUntil([this] { return List(u"desktop").empty(); }));
  PressKeys({VK_LWIN, VK_MENU, 'F'});
  ASSERT_TRUE(hears(u"Find in all notes"));
  TypeText(u"bread");
  PressKeys({VK_RETURN});
  // What was looked for is shown where it stands, and the text is one key away.
  ASSERT_TRUE(hears(u"Find"));
  PressKeys({VK_TAB});
  ASSERT_TRUE(hears(u"Previous"));
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(hears(u"Text"));
  EXPECT_EQ(List(u"desktop"), std::vector<Text>{id});
}

TEST_F(ReachTest, AStackTellsItsNotesAndOpensThem) {
  JotletData hidden = NoteRecord(u"AA02", {600, 200}, u"Milk");
  hidden.hidden = true;
  JotletData shown = NoteRecord(u"AA01", {600, 400}, u"Bread");
  shown.stack = hidden.stack = 1;
  WriteData({shown, hidden}, kDataFileName, u"Debug=3\nTakeBackups=0");
  const Text path = folder_ + Text(kDataFileName);
  Text data = DecodeTextFile(Read(path), AnsiCodePage()).text;
  data.insert(data.find(u"[Jotlets]"), u"[Stacks]\n<X>60<Y>60<W>200<H>120<ID>1<TITLE>Shopping\n");
  Write(path, EncodeTextFile(data));
  ASSERT_TRUE(StartProgram());
  const HWND stack = FindWindowW(kStackClass, L"Shopping");
  const auto object = ObjectOf(stack);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(PartNamed(*object, u"Bread").value, u"On the desktop");
  const Spoken milk = PartNamed(*object, u"Milk");
  EXPECT_TRUE(milk.value == u"Hidden" && milk.role == ROLE_SYSTEM_LISTITEM);
  const Listener listener(*program_);
  EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Child(milk.number)), S_OK);
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_FOCUS, stack, milk.number));
  EXPECT_EQ(FocusOf(*object), milk.number);
  EXPECT_EQ(object->accDoDefaultAction(Child(milk.number)), S_OK);
  EXPECT_TRUE(listener.Hears(EVENT_OBJECT_VALUECHANGE, stack, milk.number));
  EXPECT_FALSE(Saved(u"AA02").hidden);
}

}  // namespace
}  // namespace jotlets
