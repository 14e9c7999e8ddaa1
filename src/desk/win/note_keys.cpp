#include "desk/win/note_keys.h"

#include "action/action_table.h"
#include "action/shortcuts.h"
#include "base/win/pressed_key.h"
#include "desk/win/open_notes.h"

namespace jotlets {
namespace {

// Typing quietens a note, as any command does; opening its menu is not typing.
bool Quietens(WPARAM key) { return key != VK_APPS && key != VK_CONTROL && key != VK_SHIFT && key != VK_MENU; }

void GoTo(BJotlet* jotlet) {
  if (jotlet == nullptr) return;
  jotlet->BringForward();
  jotlet->FocusNow();
}

void Serve(OpenNotes& desktop, BJotlet& jotlet, const WindowKey& key) {
  if (key.toNote != 0) return GoTo(desktop.Neighbour(jotlet, key.toNote));
  if (key.toParts != 0) return jotlet.GoToParts(key.toParts < 0);
  if (key.move != Point{}) return jotlet.MoveByKey(key.move);
  jotlet.GrowByKey(key.grow);
}

}  // namespace

bool ServeNoteKey(OpenNotes& desktop, const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  const Shortcut pressed = PressedShortcut(message.wParam);
  const ActionCode action = ActionFromKey(pressed);
  const WindowKey window = WindowKeyFrom(pressed);
  const bool isOurs = action != kActionNone || window != WindowKey{};
  if (!isOurs && !desktop.IsAnySounding()) return false;
  // A dialog of ours may be open over the notes; its keys are its own.
  BJotlet* jotlet = desktop.FindWindowOwner(message.hwnd);
  if (jotlet == nullptr || jotlet->IsTitleEdited() || jotlet->OwnsKeysOf(message.hwnd)) return false;
  if (jotlet->IsSounding() && message.wParam == VK_ESCAPE) {
    if (pressed.shift) {
      desktop.Snooze(*jotlet);
    } else {
      jotlet->StopAlarm();
    }
    return true;
  }
  // On the way to the buttons that quieten it, and on them, no key does so by itself.
  if (Quietens(message.wParam) && window.toParts == 0 && !jotlet->IsAtParts()) jotlet->StopAlarm();
  // The letters of tools are letters in a text.
  const bool ofPicture = RowOf(action).needs == ActionNeeds::kPicture;
  if (!isOurs || (ofPicture && !jotlet->StoredRecord().IsImage())) return false;
  if (action != kActionNone) return jotlet->DoAction(action, {});
  Serve(desktop, *jotlet, window);
  return true;
}

}  // namespace jotlets
