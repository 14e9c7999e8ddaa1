// What a note window needs from whoever owns it. The note speaks to its owner through this and nothing else.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "base/clock.h"
#include "base/geometry.h"
#include "data/options.h"
#include "note/actions.h"
#include "note/animation.h"
#include "note/monitors.h"
#include "note/win/edit_actions.h"
#include "skin/win/skin_renderer.h"

namespace jotlets {

class BJotlet;

class JotletOwner {
 public:
  virtual ~JotletOwner() = default;

  /// The note or its content has changed and wants to be saved.
  virtual void OnJotletChanged() = 0;
  /// The user has finished moving or sizing the note.
  virtual void OnJotletMoved(BJotlet& jotlet) = 0;
  virtual void OnJotletSized(BJotlet& jotlet) = 0;
  /// The mouse is moving the note, with Shift held or not.
  virtual void OnJotletDragged(BJotlet& jotlet, bool shift) = 0;
  /// The mouse has let go of the note, or lost it; `shift` only for a drop. Before `OnJotletMoved`.
  virtual void OnJotletDropped(BJotlet& jotlet, bool shift) = 0;
  virtual void OnJotletFocus(BJotlet& jotlet, bool gained) = 0;
  /// A command that is not the note's own affair; false when it is none. The note may be gone when the call
  /// returns.
  virtual bool OnJotletAction(BJotlet& jotlet, ActionCode action) = 0;
  /// Whether a command can be carried out now.
  virtual bool IsActionEnabled(BJotlet& jotlet, ActionCode action) = 0;

  /// The note begins or ends to sound.
  virtual void OnAlarm(BJotlet& jotlet, bool sounding) = 0;

  virtual const Options& NoteOptions() const = 0;
  /// What the editor's commands need to know from outside.
  virtual EditContext EditingContext() = 0;
  /// An address that the user wants opened.
  virtual void OnJotletLink(const Text& target) = 0;
  /// The line above the beginning of a text that is too large to be shown.
  virtual Text BeginningNotice() = 0;
  /// The notes that are selected together with this one, itself included.
  virtual std::vector<BJotlet*> GroupOf(BJotlet& jotlet) = 0;
  /// The mouse was pressed on the note's frame; with Ctrl it joins or leaves the selection.
  virtual void OnJotletPressed(BJotlet& jotlet, bool ctrl) = 0;
  /// The other windows that this one snaps to: the shown notes in list order, then the stacks.
  virtual std::vector<Rect> WindowsToSnapTo(const BJotlet& jotlet) = 0;
  virtual const MonitorSetup& Screens() = 0;
  /// An animated move has begun: `BJotlet::TickAnimation` is to be called until it says no more.
  virtual void OnAnimationBegun(BJotlet& jotlet) = 0;
  /// An animated move that ends the note has ended.
  virtual void OnAnimationEnded(BJotlet& jotlet, AnimationKind kind) = 0;

  /// The skin of a name, or the default one for an empty name; never null.
  virtual std::shared_ptr<const LoadedSkin> SkinOf(TextView name) = 0;
  virtual SkinRenderer& Renderer() = 0;
  /// The local time of seconds since 1970 UTC; now for 0.
  virtual LocalTime ToLocal(std::int32_t utc) = 0;
  /// Whether the note is attached to a window that is there, but behind another.
  virtual bool IsTargetBehind(BJotlet& jotlet) = 0;
  /// Whether there is a stack of this number.
  virtual bool HasStack(std::int32_t number) const = 0;
  /// The name of a stack, empty for none.
  virtual Text StackName(std::int32_t number) = 0;
};

}  // namespace jotlets
