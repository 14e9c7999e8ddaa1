#include "note/shortcuts.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

enum Key : std::uint16_t {
  kTab = 0x09,
  kEnter = 0x0D,
  kLeft = 0x25,
  kUp = 0x26,
  kRight = 0x27,
  kDown = 0x28,
  kDelete = 0x2E,
  kF2 = 0x71,
  kF3 = 0x72,
  kF4 = 0x73,
  kApps = 0x5D,
  kSemicolon = 0xBA,
  kComma = 0xBC,
  kFullStop = 0xBE,
};

struct KeyRow {
  ActionCode action;
  Shortcut keys;
};

constexpr Shortcut Plain(std::uint16_t key) { return {key, false, false, false}; }
constexpr Shortcut Ctrl(std::uint16_t key) { return {key, true, false, false}; }
constexpr Shortcut CtrlShift(std::uint16_t key) { return {key, true, true, false}; }
constexpr Shortcut Alt(std::uint16_t key) { return {key, false, false, true}; }

constexpr std::array kKeys = {
    KeyRow{kActionNewJotlet, Ctrl('N')},
    KeyRow{kActionNewFromClipboard, CtrlShift('N')},
    KeyRow{kActionClose, Ctrl('W')},
    KeyRow{kActionDelete, CtrlShift(kDelete)},
    KeyRow{kActionEditTitle, Plain(kF2)},
    KeyRow{kActionProperties, Alt(kEnter)},
    KeyRow{kActionRoll, CtrlShift('U')},
    KeyRow{kActionOnTop, CtrlShift('T')},
    KeyRow{kActionLock, CtrlShift('K')},
    KeyRow{kActionGoAway, Ctrl('H')},
    KeyRow{kActionColour, CtrlShift('C')},
    KeyRow{kActionAlarm, CtrlShift('A')},
    KeyRow{kActionOpenJotletContext, Ctrl(kApps)},
    KeyRow{kActionSave, Ctrl('S')},
    KeyRow{kActionUndo, Ctrl('Z')},
    KeyRow{kActionRedo, Ctrl('Y')},
    KeyRow{kActionCut, Ctrl('X')},
    KeyRow{kActionCopy, Ctrl('C')},
    KeyRow{kActionPaste, Ctrl('V')},
    KeyRow{kActionSelectAll, Ctrl('A')},
    KeyRow{kActionFont, Ctrl('D')},
    KeyRow{kActionBold, Ctrl('B')},
    KeyRow{kActionItalic, Ctrl('I')},
    KeyRow{kActionUnderline, Ctrl('U')},
    KeyRow{kActionStrikethrough, Ctrl('T')},
    KeyRow{kActionLarger, CtrlShift(kFullStop)},
    KeyRow{kActionSmaller, CtrlShift(kComma)},
    KeyRow{kActionLeft, Ctrl('L')},
    KeyRow{kActionCenter, Ctrl('E')},
    KeyRow{kActionRight, Ctrl('R')},
    KeyRow{kActionBulletsNormal, CtrlShift('L')},
    KeyRow{kActionBulletsNone, CtrlShift('O')},
    KeyRow{kActionInsertDate, Ctrl(kSemicolon)},
    KeyRow{kActionHyperlink, Ctrl('K')},
    KeyRow{kActionLiftFormat, CtrlShift('P')},
    KeyRow{kActionApplyFormat, CtrlShift('Y')},
    KeyRow{kActionFindText, Ctrl('F')},
    KeyRow{kActionFindTextAgain, Plain(kF3)},
    KeyRow{kActionApplyStyle0, Alt('0')},
    KeyRow{kActionApplyStyle1, Alt('1')},
    KeyRow{kActionApplyStyle2, Alt('2')},
    KeyRow{kActionApplyStyle3, Alt('3')},
    KeyRow{kActionApplyStyle4, Alt('4')},
    KeyRow{kActionApplyStyle5, Alt('5')},
    KeyRow{kActionApplyStyle6, Alt('6')},
    KeyRow{kActionApplyStyle7, Alt('7')},
    KeyRow{kActionApplyStyle8, Alt('8')},
    KeyRow{kActionApplyStyle9, Alt('9')},
};

constexpr std::int32_t kKeyStep = 8;  // pixels

struct KeyName {
  std::uint16_t key;
  TextView name;
};

constexpr KeyName kNames[] = {{kTab, u"Tab"},    {kEnter, u"Enter"}, {kDelete, u"Del"}, {kF2, u"F2"},
                              {kF3, u"F3"},      {kF4, u"F4"},       {kApps, u"Menu"},  {kComma, u"<"},
                              {kFullStop, u">"}, {kSemicolon, u";"}};

}  // namespace

ActionCode ActionFromKey(const Shortcut& pressed) {
  const auto row =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const KeyRow& r) { return r.keys == pressed; });
  return row == kKeys.end() ? kActionNone : row->action;
}

WindowKey WindowKeyFrom(const Shortcut& pressed) {
  if (pressed.key == kTab && pressed.ctrl && !pressed.alt) return {{}, {}, pressed.shift ? -1 : 1};
  if (!pressed.alt || pressed.ctrl || pressed.key < kLeft || pressed.key > kDown) return {};
  const std::int32_t step = pressed.key == kLeft || pressed.key == kUp ? -kKeyStep : kKeyStep;
  const bool across = pressed.key == kLeft || pressed.key == kRight;
  const Point by{across ? step : 0, across ? 0 : step};
  return pressed.shift ? WindowKey{{}, {by.x, by.y}, 0} : WindowKey{by, {}, 0};
}

Text ShortcutText(ActionCode action) {
  const auto row =
      std::find_if(kKeys.begin(), kKeys.end(), [=](const KeyRow& r) { return r.action == action; });
  if (row == kKeys.end()) return {};
  Text text;
  if (row->keys.ctrl) text += u"Ctrl+";
  if (row->keys.alt) text += u"Alt+";
  if (row->keys.shift) text += u"Shift+";
  const auto name = std::find_if(std::begin(kNames), std::end(kNames),
                                 [&](const KeyName& n) { return n.key == row->keys.key; });
  return name == std::end(kNames) ? text + static_cast<char16_t>(row->keys.key) : text + Text(name->name);
}

}  // namespace jotlets
