// What a note window needs from whoever owns it. The note speaks to its owner through this and nothing else.
#pragma once

#include <windows.h>

#include "base/geometry.h"

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
  virtual void OnJotletMenu(BJotlet& jotlet, Point screen) = 0;

  /// The font of title bars at a resolution; the owner keeps it.
  virtual HFONT TitleFont(std::int32_t dpi) = 0;
};

}  // namespace jotlets
