// Notes attached to the windows of other programs: the pass that brings them, moves them and puts them away.
#pragma once

#include <optional>
#include <vector>

#include "base/log.h"
#include "desk/jotlet_lists.h"
#include "note/win/jotlet.h"
#include "schedule/win/attach_dialog.h"
#include "schedule/win/foreign_windows.h"

namespace jotlets {

class CMainFrame;

class Attachments {
 public:
  Attachments(CMainFrame& frame, JotletLists& lists) : frame_(frame), lists_(lists) {}

  /// One pass; does nothing while no note is attached, and while a pass is under way.
  void Pass();
  /// Attaches the note. Where it is now, as seen from the window chosen, is where it will be shown from now
  /// on; if none matches, it keeps its own place.
  void Attach(BJotlet& jotlet, const AttachChoice& choice);
  /// The user has moved a note: an attached one is held to its window from its new place.
  void OnMoved(BJotlet& jotlet);
  /// Whether a note on the desktop is attached to a window that is there but not the active one.
  bool IsTargetBehind(const JotletData& record);

  FrontWindow& Front() { return front_; }

 private:
  std::vector<WindowFacts> Look();
  void Run(std::int32_t now);
  void Bring(const Text& id, std::optional<Point> position, bool alarmDue);
  void PutOnScreen(JotletData& record, Point position);
  void PutAway(const Text& id);

  CMainFrame& frame_;
  JotletLists& lists_;
  FrontWindow front_;
  bool busy_ = false;
};

}  // namespace jotlets
