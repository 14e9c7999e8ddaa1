#include "action/shortcuts.h"

#include <algorithm>

#include "action/action_table.h"
#include "base/key_text.h"

namespace jotlets {
namespace {

constexpr std::int32_t kKeyStep = 8;  // pixels

}  // namespace

ActionCode ActionFromKey(const Shortcut& pressed) {
  // No key at all is what rows without one have.
  if (pressed == Shortcut{}) return kActionNone;
  const auto row = std::ranges::find(kNoteActions, pressed, &NoteAction::key);
  return row == kNoteActions.end() ? kActionNone : row->code;
}

WindowKey WindowKeyFrom(const Shortcut& pressed) {
  if (pressed.key == kTabKey && pressed.ctrl && !pressed.alt) return {{}, {}, pressed.shift ? -1 : 1, 0};
  if (pressed.key == kF6Key && !pressed.ctrl && !pressed.alt) return {{}, {}, 0, pressed.shift ? -1 : 1};
  if (!pressed.alt || pressed.ctrl || pressed.key < kLeftKey || pressed.key > kDownKey) return {};
  const std::int32_t step = pressed.key == kLeftKey || pressed.key == kUpKey ? -kKeyStep : kKeyStep;
  const bool across = pressed.key == kLeftKey || pressed.key == kRightKey;
  const Point by{across ? step : 0, across ? 0 : step};
  return pressed.shift ? WindowKey{{}, {by.x, by.y}, 0, 0} : WindowKey{by, {}, 0, 0};
}

Text ShortcutText(const Shortcut& keys) {
  return KeyText({false, keys.ctrl, keys.alt, keys.shift}, keys.key);
}

Text ShortcutText(ActionCode action) { return ShortcutText(RowOf(action).key); }

}  // namespace jotlets
