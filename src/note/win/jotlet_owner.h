// What a note window tells and asks whoever owns it. What else it needs is in its `NoteContext`.
#pragma once

#include <vector>

#include "action/action_state.h"
#include "base/geometry.h"
#include "note/animation.h"

namespace jotlets {

class BJotlet;
struct PictureAnswer;

/// What has become of a note.
enum class JotletEvent {
  kChanged,  // the note or its content, which wants to be saved
  kMoved,    // by the user, who has finished
  kSized,
  kClicked,
  kDeserted,  // another program is being worked with
  kFocused,
  kUnfocused,
  kSounding,
  kSilent,
  kHeightUnknown,  // what it is now was computed
  kAnimated,       // `BJotlet::TickAnimation` is to be called until it says no more
};

/// What the mouse does with the frame of a note.
enum class JotletMouse {
  kPressed,  // with Ctrl it joins or leaves the selection
  kDragged,  // the note follows
  kDropped,  // or the mouse was lost; with Shift only for a drop. Before `JotletEvent::kMoved`
};

class JotletOwner {
 public:
  virtual ~JotletOwner() = default;

  virtual void OnJotletEvent(BJotlet& jotlet, JotletEvent event) = 0;
  /// `key`: Ctrl is held at a press, Shift after it.
  virtual void OnJotletMouse(BJotlet& jotlet, JotletMouse mouse, bool key) = 0;
  /// An animated move that ends the note has ended.
  virtual void OnAnimationEnded(BJotlet& jotlet, AnimationKind kind) = 0;
  /// A command that is not the note's own affair; false when it is none. The note may be gone when the call
  /// returns.
  virtual bool OnJotletAction(BJotlet& jotlet, ActionCode action) = 0;
  /// The note sounds, and is to sound again later; it may be gone when the call returns.
  virtual void Snooze(BJotlet& jotlet) = 0;
  /// A colour was picked from the note's picture, or words are to be asked for.
  virtual void OnPictureAnswer(BJotlet& jotlet, const PictureAnswer& answer) = 0;
  /// What the states of the note's commands depend on.
  virtual ActionFacts FactsOf(const BJotlet& jotlet) = 0;
  /// The notes that are selected together with this one, itself included.
  virtual std::vector<BJotlet*> GroupOf(BJotlet& jotlet) = 0;
  /// The other windows that this one snaps to: the shown notes in list order, then the stacks.
  virtual std::vector<Rect> WindowsToSnapTo(const BJotlet& jotlet) = 0;
  /// Whether the note is attached to a window that is there, but behind another.
  virtual bool IsTargetBehind(BJotlet& jotlet) = 0;
};

}  // namespace jotlets
