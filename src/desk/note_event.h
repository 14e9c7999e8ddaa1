// What other programs are told of notes, as values: whoever sends one says what happened, and the lines that
// go out and the reference page come from the rows here.
#pragma once

#include <span>
#include <vector>

#include "base/text.h"

namespace jotlets {

enum class EventKind {
  kCreated,         // 500
  kClosed,          // 501
  kDeleted,         // 502
  kExiting,         // 503
  kRestoring,       // 503, before a restore
  kProgramCommand,  // 504
  kNoteCommand,     // 505
  kFocus,           // 506
  kLostFocus,       // 507
  kDeletedClosed,   // 508
  kMoved,           // 509
  kSized,           // 510
};

/// Why a note has come to the desktop or left it.
enum class Reason {
  kNotGiven,
  kApi,
  kUser,
  kClipboard,
  kWelcome,
  kAdopting,
  kImport,
  kWaking,
  kRecurring,
  kAttached,
  kRestored,
  kUnattached,
  kDeleted,
  kSlept,
  kMovedToFile,
  kEndOfTrans,
  kAppExit,
  kStored,
};

/// The word of a reason in events and in the log; empty for one that is not given.
TextView WordOf(Reason reason);

struct NoteEvent {
  EventKind kind;
  Reason reason = Reason::kNotGiven;
  std::vector<Text> ids;  // of the notes that it is about
  Text word;              // of the menu entry that was chosen

  friend bool operator==(const NoteEvent&, const NoteEvent&) = default;
};

/// Where events go. Whoever hears of one may act on any note before the call returns.
class EventSink {
 public:
  virtual ~EventSink() = default;
  virtual void Send(const NoteEvent& event) = 0;
};

/// The line that is sent: the text of its kind, then its reason or word, then the id; several ids are
/// followed by a comma each.
Text EventLine(const NoteEvent& event);

/// Whether an event of this kind may carry this reason, as the reference page has it.
bool IsListed(EventKind kind, Reason reason);

/// One event as the reference page tells of it.
struct EventPageRow {
  Text line;  // what changes in it stands in italics
  Text purpose;
};

std::vector<EventPageRow> EventPage();

}  // namespace jotlets
