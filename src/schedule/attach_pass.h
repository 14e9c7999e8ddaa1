// Which attached notes come to the desktop, follow their window or leave again: a decision over records and
// one look at the windows of other programs. Windows are read, and notes moved, elsewhere.
#pragma once

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "data/jotlet_data.h"
#include "schedule/text_pattern.h"

namespace jotlets {

/// No more of a window's title or class is looked at.
inline constexpr std::size_t kMaxWindowText = 260;

/// A top-level window of another program.
struct WindowFacts {
  Text title;
  Text className;
  bool minimised = false;
  bool visible = false;
  bool foreground = false;
  Rect bounds;  // where it would be restored to while it is minimised
};

/// The windows of other programs, from the topmost down.
class WindowWatcher {
 public:
  virtual ~WindowWatcher() = default;
  virtual std::vector<WindowFacts> Look() = 0;
};

/// What a note's patterns and requirements find among the windows.
struct AttachMatch {
  std::optional<std::size_t> target;  // the uppermost visible window that matches
  bool any = false;                   // some window matches, seen or not
  bool active = false;                // a visible one that matches is in the foreground
};

/// Finds the windows of attached notes. However many notes share a pattern, a window is compared with it
/// once.
class AttachMatcher {
 public:
  /// `windows` from the topmost down; they outlive the matcher.
  explicit AttachMatcher(std::span<const WindowFacts> windows);

  const AttachMatch& Find(const Attachment& attachment);
  const WindowFacts& Window(std::size_t index) const { return windows_[index]; }

 private:
  using Hits = std::vector<bool>;
  const Hits& WithText(std::unordered_map<Text, Hits>& known, const std::vector<Text>& folded,
                       const Text& pattern);

  std::span<const WindowFacts> windows_;
  std::vector<Text> titles_;   // folded
  std::vector<Text> classes_;  // folded
  std::unordered_map<Text, Hits> byTitle_;
  std::unordered_map<Text, Hits> byClass_;
  std::unordered_map<Text, AttachMatch> byRule_;
};

/// An attached note that is on the desktop.
struct AttachedNote {
  const JotletData* record = nullptr;
  Point position;        // of its window
  bool dragged = false;  // by the user, now
  bool alarmSounds = false;
  bool alarmWaits = false;  // until its window is in front
};

/// What is to be done, each by the place in the list it comes from, in list order.
struct AttachDecision {
  struct Arrival {
    std::size_t waiting = 0;
    std::optional<Point> position;  // by its window, also off the screen; nothing when it keeps its own
    bool alarmDue = false;
    friend bool operator==(const Arrival&, const Arrival&) = default;
  };
  struct Move {
    std::size_t note = 0;
    Point to;
    friend bool operator==(const Move&, const Move&) = default;
  };
  std::vector<Arrival> arrivals;     // waiting records that come to the desktop
  std::vector<Move> moves;           // notes that follow their window
  std::vector<std::size_t> alarms;   // notes whose alarm may sound now
  std::vector<std::size_t> departs;  // notes that no window is left for
};

/// The pass. `screen` is the virtual screen: no note follows a window off it. Deliberately, a window that is
/// not visible brings no note and leads none, but keeps the one that has come: what a program hides for a
/// moment, it shows again. A note that is being dragged stays until it is let go, and one whose alarm sounds
/// or waits does not leave either.
AttachDecision DecideAttachPass(std::span<const JotletData* const> waiting,
                                std::span<const AttachedNote> desktop, AttachMatcher& windows,
                                const Rect& screen, std::int32_t now);

/// Where a note of position type 1 belongs whose target is at `target`; nothing for the other types, which
/// keep their own place.
std::optional<Point> AttachedPosition(const Attachment& attachment, const Rect& target);

/// Whether the window of a note is there but not in the foreground, whatever else the note requires of it.
/// Its alarm then waits.
bool IsTargetBehind(const Attachment& attachment, AttachMatcher& windows);

/// Writes down where a note is now, as seen from its target.
void HoldToTarget(Attachment& attachment, Point position, const Rect& target);

}  // namespace jotlets
