// The desk: it owns every list of notes and alone moves a note from one to another. Commands, the manage
// window, the clock, attachments and imports call its verbs; none of them knows another.
//
// A move is one step for whoever looks: content saved, the note leaves its list, its record changes, it
// enters the other list; only then its window goes, the data counts as changed, listeners are told, and what
// fell off the end of the closed notes is deleted. So a listener that acts from inside an event finds every
// note in exactly one list, and may remove any of them: the verbs look notes up again by id after each call
// that lets one run.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "desk/note_admission.h"
#include "desk/note_maker.h"
#include "desk/note_saver.h"
#include "desk/search_recorder.h"
#include "schedule/sleep_times.h"
#include "store/note_store.h"

namespace jotlets {

/// What the desk needs from outside; all of it outlives the desk.
struct DeskContext {
  Files& files;
  const Clock& clock;
  Log& log;
  const Options& options;
  NoteWindows& windows;
  JournalFile& journal;
  EventSink& events;
  NoteStore& store;
  std::function<void()> changed;  // something wants to be saved, and lists to be shown anew
  std::uint32_t instance = 0;     // tells this process from others
};

/// Notes that were deleted last and can still be had back.
inline constexpr std::size_t kKeptDiscarded = 1000;

class NoteDesk {
 public:
  explicit NoteDesk(DeskContext context);

  /// The data folder is known, and whose it is.
  void SetFolder(TextView dataFolder, TextView installId);
  /// Puts the notes of a data file where they belong. Those of the desktop get windows, not yet shown; one
  /// that gets none sleeps, and is tried again.
  void Load(DataFile file);

  const NoteLists& Lists() const { return lists_; }
  NoteMaker& Maker() { return maker_; }
  NoteSaver& Saver() { return saver_; }
  NoteJournal& Journal() { return journal_; }
  SearchRecorder& Searched() { return recorder_; }
  const Text& Folder() const { return folder_; }

  /// Makes a new note and shows it; its id, empty when that failed.
  Text Create(const NewNote& fresh);
  /// Makes a text note in the store, without a window; its key, nothing when that failed, which the log
  /// tells.
  std::optional<std::int64_t> CreateStored(NewNote fresh, TextView category);
  /// Puts a picture on the desktop that is in all else like a note; its id, empty when that failed.
  Text CreatePicture(const JotletData& source, std::string png);
  /// Puts a copy of a sleeping note on the desktop, under an id of its own; false when it gets no window.
  bool CreateCopy(const JotletData& source, const WakeFlags& flags);
  /// Makes a note of its encoded form, see `AdmitEncodedNote`, asleep or where it belongs; its id, empty when
  /// that failed.
  Text Admit(TextView encoded, bool asleep, Reason reason);

  /// Moves an open note to the closed ones. False when there is none, or its content could not be written:
  /// then it stays.
  bool Close(TextView id, Reason reason);
  /// Moves sleeping and waiting notes to the closed ones; the ids of those that were there.
  std::vector<Text> CloseWaiting(const std::vector<Text>& ids);
  /// Tells of it, then deletes an open note for good; false when it is not there (any more).
  bool Delete(TextView id, Reason reason);
  /// The same, but the note can be had back until `ForgetDiscarded`, or until `kKeptDiscarded` others were
  /// discarded after it. False also when its content could not be
  /// written: then it stays.
  bool Discard(TextView id, Reason reason);
  /// Opens such a note where it was; false when it is not there, or cannot be.
  bool Undelete(TextView id);
  /// What was discarded is gone for good.
  void ForgetDiscarded();
  /// Deletes closed notes for good.
  void DeleteClosed(const std::vector<Text>& ids);
  /// Opens closed notes where they were before; how many could not be opened and are closed still.
  std::size_t Restore(const std::vector<Text>& ids);
  /// Puts closed notes back to sleep or to wait; how many were not among the closed.
  std::size_t BringBack(const std::vector<Text>& ids, NoteList to);

  /// Moves an open note into a category of the store, and tells of it; its key. Nothing when there is no such
  /// note, or the store or the content could not be written: then it stays.
  std::optional<std::int64_t> Store(TextView id, TextView category);
  /// Brings a stored note back to the desktop, where it stood; its id, empty when there is none of this key,
  /// or it gets no window and stays.
  Text Fetch(std::int64_t key);
  /// Deletes stored notes for good; how many were not stored.
  std::size_t DeleteStored(const std::vector<Text>& ids);

  /// Puts an open note to sleep until `wakeTime` (seconds since 1970 UTC), whatever the time is now. False
  /// when it is not there, or its content could not be written: then it stays.
  bool Sleep(TextView id, std::int64_t wakeTime, const WakeFlags& flags);
  /// Makes an open note a sleeping one that comes again and again, from `start` until `end` (`kNone`: for
  /// good). False also when the rule gives no time.
  bool Recur(TextView id, const WakeRule& rule, std::int64_t start, std::int64_t end, const WakeFlags& flags);
  /// Brings a sleeping note to the desktop and does what `flags` ask for but the sound; false when it gets no
  /// window and sleeps on.
  bool Wake(TextView id, const WakeFlags& flags);
  /// Changes the record of a sleeping note; false when there is none.
  bool ChangeSleeping(TextView id, const std::function<void(JotletData&)>& change);
  /// A recurrence has ended: the note is deleted for good.
  void RemoveFinished(TextView id);

  /// The window that a waiting note is attached to has come: the note is shown, at `position` when there is
  /// one, unless it has to wait to sound. False when it gets no window.
  bool Arrive(TextView id, std::optional<Point> position, bool shown);
  /// That window has gone: the note waits for it, off the desktop.
  bool Depart(TextView id);
  /// Waiting notes become plain ones of the desktop, as do those that are there already; how many did not.
  std::size_t Unattach(const std::vector<Text>& ids);

  /// Gives an open note another id and its content another file; the old one goes with the next save.
  Renamed Rename(TextView id, TextView newId);
  /// The record of a note in any list or in the store; nothing when there is none.
  std::optional<JotletData> RecordOf(TextView id) const;
  /// Gives a note that is not open another text. False, with a log line where it could not be written, when
  /// there is no such note, or it is a picture.
  bool ChangeText(TextView id, std::string_view rtf);
  /// Writes the unsaved content of an open note; false, with a log line, when that failed, and when there is
  /// none.
  bool SaveContent(TextView id);
  /// Shows an open note, unless it is hidden or all are.
  void Show(TextView id, Showing showing);
  /// Ends the desktop with the program: every open note is told of and loses its window.
  void CloseAll();

  void AddStack(const StackRecord& stack);
  void ChangeStack(const StackRecord& stack);
  void RemoveStack(std::int32_t number);
  /// No note without a window belongs to the stack any more; those that were hidden in it will be seen again.
  void LeaveStack(std::int32_t number);

  /// Something that is saved has changed; a note, or its content.
  void Changed();
  void Changed(TextView id);

 private:
  void ForgetDiscarded(TextView id);
  using Change = std::function<void(JotletData&)>;

  RecordList& ListOf(NoteList list);
  bool OpenWindow(JotletData record);
  bool ToDesktop(NoteList from, TextView id, const Change& change);
  std::size_t ManyToDesktop(NoteList from, const std::vector<Text>& ids, Reason reason, const Change& change);
  /// The ids of the closed notes that fell off the end by that, to be told of at the end; nothing when the
  /// note stays.
  std::optional<std::vector<Text>> FromDesktop(TextView id, NoteList to, const Change& change);
  std::vector<Text> EnterClosed(JotletData record, std::int32_t closedAt);
  void TellCreated(const Text& id, Reason reason);
  void TellDropped(const std::vector<Text>& dropped);
  void SettleStore(DataFile& file);
  void FinishWaking(const Text& id, Reason reason, const WakeFlags& flags);
  std::int32_t Now() const { return RecordTime(context_.clock.Now().utc); }

  DeskContext context_;
  NoteLists lists_;
  NoteMaker maker_;
  NoteJournal journal_;
  NoteSaver saver_;
  SearchRecorder recorder_;
  Text folder_;
};

}  // namespace jotlets
