// Quick find as the program answers it: what is found is opened wherever it is.
#pragma once

#include "app/win/commands/managed_notes.h"
#include "app/win/program_search.h"
#include "desk/win/open_notes.h"
#include "manage/win/quick_find.h"

namespace jotlets {

class FoundNotes final : private QuickFindOwner {
 public:
  FoundNotes(const Resources& resources, NoteDesk& desk, OpenNotes& notes, ManagedNotes& managed,
             ProgramSearch& search);

  BQuickFindDlg& Dialog() { return dialog_; }

 private:
  void AskForNotes(TextView typed, std::size_t maximum) override { search_.Ask(typed, maximum); }
  void OpenFoundNote(const IndexedNote& note, TextView words) override;
  void MakeNoteOf(TextView words) override;
  Text BringToDesktop(const IndexedNote& note);

  NoteDesk& desk_;
  OpenNotes& notes_;
  ManagedNotes& managed_;
  ProgramSearch& search_;
  BQuickFindDlg dialog_;
};

}  // namespace jotlets
