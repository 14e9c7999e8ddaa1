// What a stack window tells and asks whoever owns it. What else it needs is in its `NoteContext`.
#pragma once

#include <optional>
#include <vector>

#include "action/actions.h"
#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

class BStackDlg;

class StackOwner {
 public:
  virtual ~StackOwner() = default;

  /// The stack's record has changed and wants to be saved.
  virtual void OnStackChanged(BStackDlg& stack) = 0;
  /// A command that is not the stack's own affair; false when it is none of a stack. The stack may be gone
  /// when the call returns.
  virtual bool OnStackAction(BStackDlg& stack, ActionCode action) = 0;
  /// The user asks for the menu; `member` is the note whose row it was asked for.
  virtual void OnStackMenu(BStackDlg& stack, const std::optional<Text>& member) = 0;
  /// A note was clicked in the list: it is to be shown, or hidden.
  virtual void OnMemberClicked(BStackDlg& stack, const Text& id) = 0;
  /// A note is being dragged out of the list, the button still held: from here on the note follows the mouse.
  virtual void OnMemberDraggedOut(BStackDlg& stack, const Text& id) = 0;
  virtual void OnMemberTakenOut(BStackDlg& stack, const Text& id) = 0;

  /// The other windows that this one snaps to: the shown notes, then the other stacks.
  virtual std::vector<Rect> WindowsToSnapTo(const BStackDlg& stack) = 0;
  /// What an empty list says.
  virtual Text EmptyHint() const = 0;
};

}  // namespace jotlets
