// The windows of the notes on the desktop, as the desk sees them. A note is named by its id. Showing a window
// or starting an alarm may let a listener change every list before the call returns.
#pragma once

#include <memory>

#include "base/files.h"
#include "data/jotlet_data.h"
#include "note/monitors.h"
#include "note/note_content.h"

namespace jotlets {

/// What a window does, as the attach pass asks.
struct NoteWindowState {
  Rect bounds;
  bool moving = false;    // by the user, or on an animated way
  bool sounding = false;  // its alarm
  bool waits = false;     // its alarm is due, and its target window is behind another
};

/// The screen that notes are placed on.
struct ScreenFacts {
  Size primary;
  Rect all;  // the virtual screen
  MonitorList monitors;
  std::int32_t dpi = kUsualDpi;  // of the primary screen
};

enum class Showing { kQuietly, kWithFocus };

class NoteWindows {
 public:
  virtual ~NoteWindows() = default;

  /// Opens a window for a record with a place and a size, its content read from its content file, not yet
  /// shown. False, with a log line, when there is none to be had. The record is shared with the window from
  /// here on.
  virtual bool Open(std::shared_ptr<JotletData> record) = 0;
  /// Takes the window away, for good; unsaved content is dropped.
  virtual void Close(TextView id) = 0;
  virtual void Show(TextView id, Showing showing) = 0;
  /// Brings the record up to date with the screen.
  virtual void Sync(TextView id) = 0;
  /// The note has another id.
  virtual void Rename(TextView id, TextView newId) = 0;

  /// Writes the content file when the content has changed since.
  virtual FileStatus SaveContent(TextView id) = 0;
  /// What the note holds; good until its window goes.
  virtual NoteContent& ContentOf(TextView id) = 0;

  /// The text of a new note, if it has one, takes the style that its skin has for such.
  virtual void StyleNewText(TextView id) = 0;

  virtual NoteWindowState StateOf(TextView id) const = 0;
  /// Puts the window somewhere without that being a change worth saving.
  virtual void PlaceAt(TextView id, Point position) = 0;
  virtual void SetOnTop(TextView id) = 0;
  virtual void Attach(TextView id, const Attachment& attachment) = 0;
  /// Starts the alarm without taking the keyboard from another program.
  virtual void StartAlarm(TextView id) = 0;
  /// The target window is in front: the note is shown again, and sounds.
  virtual void EndWaitForWindow(TextView id) = 0;
  virtual ScreenFacts Screen() const = 0;
};

}  // namespace jotlets
