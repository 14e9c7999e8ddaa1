// Storing open notes from their menu and by key.
#pragma once

#include "app/win/commands/managed_notes.h"
#include "app/win/commands/undo_offers.h"
#include "note/win/action_menu.h"

namespace jotlets {

class StoreCommands {
 public:
  StoreCommands(const Resources& resources, NoteDesk& desk, OpenNotes& notes, ManagedNotes& managed,
                UndoOffers& undo)
      : resources_(resources), desk_(desk), notes_(notes), managed_(managed), undo_(undo) {}

  /// Asks for a category, and stores the notes of a group in it.
  void StoreInAny(BJotlet& jotlet);
  /// Adds the categories to a menu of a note.
  void AddCategories(MenuExtras& extras);
  /// Stores the notes of a group in a category.
  void Store(BJotlet& jotlet, const Text& category);

 private:
  const Resources& resources_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  ManagedNotes& managed_;
  UndoOffers& undo_;
};

}  // namespace jotlets
