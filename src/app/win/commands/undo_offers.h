// Offers to undo what has just become of notes, by a strip on the screen; the manage window can undo the same
// steps. What was deleted is kept until the offer ends.
#pragma once

#include "app/win/commands/managed_notes.h"
#include "app/win/undo_strip.h"
#include "desk/win/open_notes.h"

namespace jotlets {

class UndoOffers {
 public:
  UndoOffers(const Resources& resources, const Options& options, NoteDesk& desk, ManagedNotes& managed);

  /// Whether steps are offered at all.
  bool IsOn() const { return options_.undoStrip; }
  /// Offers to undo a step; `place` is where the note was, `words` what is told instead of the
  /// usual, with "%n" for the note or notes.
  void Offer(UndoKind kind, std::vector<Text> ids, const Rect& place, const Text& words = {});
  /// Notes are about to be moved away from these places.
  void OfferPlaces(std::vector<Text> ids, std::vector<Point> places, const Rect& place);
  /// Closes a note for the user, deletes it, and each is offered to be undone; false when that failed.
  bool Close(const Text& id, const Rect& place, const Text& words = {});
  bool Delete(const Text& id, const Rect& place);
  /// Follows what is pressed in notes. Ctrl+Z takes the offer when it is the first since that was made, and
  /// else belongs to the text; whether it has.
  bool ServeKey(const MSG& message, OpenNotes& notes);
  /// Ends the offer; the manage window can still undo the step.
  void End();
  /// The same, and what was deleted is gone for good.
  void Forget();

 private:
  void OfferNamed(UndoKind kind, std::vector<Text> ids, const Text& title, const Rect& place,
                  const Text& words);
  Text NameOf(std::size_t count, const Text& title) const;
  void ShowOffer(UndoKind kind, int number, const Rect& place, const Text& words);
  void OnUndone(int number);

  const Resources& resources_;
  const Options& options_;
  NoteDesk& desk_;
  ManagedNotes& managed_;
  UndoStrip strip_{resources_.Look()};
  int number_ = 0;  // of the step on offer
  UndoKind kind_ = UndoKind::kClosed;
  ULONGLONG offered_ = 0;  // when, in the system's milliseconds
  bool isLast_ = false;    // nothing has been done in a note since
};

}  // namespace jotlets
