// Notes attached to the windows of other programs: the pass that brings them, moves them and takes them away,
// as the rules decide it, carried out on the desk.
#pragma once

#include <span>

#include "desk/note_desk.h"
#include "schedule/attach_pass.h"

namespace jotlets {

class AttachedNotes {
 public:
  AttachedNotes(NoteDesk& desk, NoteWindows& windows, const Options& options, const Clock& clock,
                WindowWatcher& watcher)
      : desk_(desk), windows_(windows), options_(options), clock_(clock), watcher_(watcher) {}

  /// One pass; does nothing while no note is attached, and while a pass is under way.
  void Pass();
  /// Attaches an open note to what its patterns say. Where it is now, as seen from the first of `windows`
  /// that matches, is where it will be shown from now on; if none matches, it keeps its own place.
  void Attach(TextView id, const Attachment& wanted, std::span<const WindowFacts> windows);
  /// The user has moved a note: an attached one is held to its window from its new place.
  void OnMoved(const JotletData& record);
  /// Whether a note is attached to a window that is there but not the active one.
  bool IsTargetBehind(const JotletData& record);

 private:
  void Run(std::int32_t now);

  NoteDesk& desk_;
  NoteWindows& windows_;
  const Options& options_;
  const Clock& clock_;
  WindowWatcher& watcher_;
  bool busy_ = false;
};

}  // namespace jotlets
