// What a note window needs from whoever owns it. The note speaks to its owner through this and nothing else.
#pragma once

#include <windows.h>

#include <memory>

#include "base/geometry.h"
#include "note/actions.h"
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
  virtual void OnJotletFocus(BJotlet& jotlet, bool gained) = 0;
  virtual void OnJotletClose(BJotlet& jotlet) = 0;
  /// A command that is not the note's own affair; false when it is none. The note may be gone when the call
  /// returns.
  virtual bool OnJotletAction(BJotlet& jotlet, ActionCode action) = 0;
  /// Whether a command can be carried out now.
  virtual bool IsActionEnabled(BJotlet& jotlet, ActionCode action) = 0;
  virtual void OnJotletMenu(BJotlet& jotlet, Point screen) = 0;

  /// The skin of a name, or the default one for an empty name; never null.
  virtual std::shared_ptr<const LoadedSkin> SkinOf(TextView name) = 0;
  virtual SkinRenderer& Renderer() = 0;
  /// A time in the user's own form, from seconds since 1970 UTC; now for 0.
  virtual Text ShownTime(std::int32_t utc) = 0;
  /// The name of a stack, empty for none.
  virtual Text StackName(std::int32_t number) = 0;
};

}  // namespace jotlets
