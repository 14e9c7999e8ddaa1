#include "app/win/commands/found_notes.h"

#include <utility>

namespace jotlets {

FoundNotes::FoundNotes(const Resources& resources, NoteDesk& desk, OpenNotes& notes, ManagedNotes& managed,
                       ProgramSearch& search)
    : desk_(desk), notes_(notes), managed_(managed), search_(search), dialog_(resources, *this) {
  search_.Watch([this](SearchAnswer answer) { dialog_.ShowAnswer(std::move(answer)); });
}

// It may have moved since it was found. Its id, empty when it stays where it is.
Text FoundNotes::BringToDesktop(const IndexedNote& note) {
  const std::optional<NoteList> list = desk_.Lists().WhereIs(note.id);
  if (!list) return note.key > 0 ? desk_.Fetch(note.key) : Text();
  const auto show = [&](ManageView view) {
    const std::optional<ManageAction> action = DefaultAction(view);
    if (action) return managed_.DoManageAction(*action, view, {note.id});
    // An attached note is not torn from its window: it can be seen in the list.
    if (!managed_.Dialog().OpenWindow(true)) managed_.Dialog().Activate();
    managed_.Dialog().ShowNote({view, {}}, note.id);
  };
  switch (*list) {
    case NoteList::kDesktop: show(ManageView::kDesktop); break;
    case NoteList::kAttached: show(ManageView::kAttached); break;
    case NoteList::kSleeping:
      show(note.place == SearchPlace::kRecurring ? ManageView::kRecurring : ManageView::kSleeping);
      break;
    case NoteList::kClosed: show(ManageView::kClosed); break;
  }
  return note.id;
}

void FoundNotes::OpenFoundNote(const IndexedNote& note, TextView words) {
  const Text id = BringToDesktop(note);
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr) return;
  jotlet->BringForward();
  jotlet->FocusNow();
  if (!words.empty()) jotlet->OpenFind(words);
}

void FoundNotes::MakeNoteOf(TextView words) {
  NewNote fresh;
  fresh.reason = Reason::kUser;
  fresh.text = words;
  const Text id = desk_.Create(fresh);
  if (!id.empty()) desk_.Show(id, Showing::kWithFocus);
}

}  // namespace jotlets
