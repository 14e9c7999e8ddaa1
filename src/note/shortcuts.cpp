#include "note/shortcuts.h"

#include <algorithm>

#include "note/action_table.h"

namespace jotlets {
namespace {

constexpr std::int32_t kKeyStep = 8;  // pixels

struct KeyName {
  std::uint16_t key;
  TextView name;
};

constexpr KeyName kNames[] = {{kTabKey, u"Tab"}, {kEnterKey, u"Enter"}, {kDeleteKey, u"Del"},
                              {kF2Key, u"F2"},   {kF3Key, u"F3"},       {kMenuKey, u"Menu"},
                              {kCommaKey, u"<"}, {kFullStopKey, u">"},  {kSemicolonKey, u";"}};

}  // namespace

ActionCode ActionFromKey(const Shortcut& pressed) {
  // No key at all is what rows without one have.
  if (pressed == Shortcut{}) return kActionNone;
  const auto row = std::ranges::find(kNoteActions, pressed, &NoteAction::key);
  return row == kNoteActions.end() ? kActionNone : row->code;
}

WindowKey WindowKeyFrom(const Shortcut& pressed) {
  if (pressed.key == kTabKey && pressed.ctrl && !pressed.alt) return {{}, {}, pressed.shift ? -1 : 1};
  if (!pressed.alt || pressed.ctrl || pressed.key < kLeftKey || pressed.key > kDownKey) return {};
  const std::int32_t step = pressed.key == kLeftKey || pressed.key == kUpKey ? -kKeyStep : kKeyStep;
  const bool across = pressed.key == kLeftKey || pressed.key == kRightKey;
  const Point by{across ? step : 0, across ? 0 : step};
  return pressed.shift ? WindowKey{{}, {by.x, by.y}, 0} : WindowKey{by, {}, 0};
}

Text ShortcutText(ActionCode action) {
  const Shortcut& keys = RowOf(action).key;
  if (keys == Shortcut{}) return {};
  Text text;
  if (keys.ctrl) text += u"Ctrl+";
  if (keys.alt) text += u"Alt+";
  if (keys.shift) text += u"Shift+";
  const auto name = std::ranges::find(kNames, keys.key, &KeyName::key);
  return name == std::end(kNames) ? text + static_cast<char16_t>(keys.key) : text + Text(name->name);
}

}  // namespace jotlets
