// The note commands that reach beyond the note: dialogs, files, other notes, the program.
#pragma once

#include <windows.h>

#include <vector>

#include "action/action_state.h"
#include "app/win/commands/skin_commands.h"
#include "app/win/commands/store_commands.h"
#include "app/win/commands/time_commands.h"
#include "app/win/commands/tray_commands.h"
#include "command/custom_commands.h"
#include "desk/attached_notes.h"
#include "desk/win/note_contents.h"
#include "note/win/action_menu.h"
#include "schedule/win/foreign_windows.h"
#include "ui/resources.h"

namespace jotlets {

/// What the commands of a note reach beyond the note.
struct NoteCommandTools {
  const Resources& resources;
  const Clock& clock;
  Log& log;
  Options& options;
  NoteDesk& desk;
  OpenNotes& notes;
  OpenStacks& stacks;
  AttachedNotes& attached;
  FrontWindow& front;
  NoteContents& contents;
  SkinCommands& skins;
  ProgramSaving& saving;
  TrayCommands& program;
  StoreCommands& store;
  UndoOffers& undo;
  EventSink& events;
  CustomMenus& menus;
  const ProgramWindow& window;
  const ProgramState& state;
};

class NoteCommands {
 public:
  explicit NoteCommands(const NoteCommandTools& tools)
      : tools_(tools),
        sleep_(tools.resources, tools.clock, tools.log, tools.options, tools.desk, tools.notes, tools.saving,
               tools.undo, tools.window, tools.state) {}

  /// Closes a note for the user, who is told when that is not possible.
  void CloseForUser(const Text& id);

  /// Asks whether Alt+F4 in a note is meant for that alone, and does what is chosen.
  void LeaveOrClose(BJotlet& jotlet);
  /// A sounding note is to sound again later.
  void Snooze(const Text& id);

  /// A colour has been chosen that is to be offered again.
  void RememberColour(Colour colour);

  /// Carries out one command for the note with this id; false for commands that are none of these.
  bool Do(const Text& id, ActionCode action);

  /// What the rule of the commands' states asks of a note.
  ActionFacts FactsOf(const BJotlet& jotlet) const;

 private:
  struct Handler;
  static const Handler kHandlers[];

  void Close(BJotlet& jotlet);
  void Delete(BJotlet& jotlet);
  void EditTitle(BJotlet& jotlet);
  void EditUserString(BJotlet& jotlet);
  void ChooseColour(BJotlet& jotlet);
  void ChooseSkin(BJotlet& jotlet);
  void ChooseFont(BJotlet& jotlet);
  void Styles(BJotlet& jotlet);
  void EditLink(BJotlet& jotlet);
  void Save(BJotlet& jotlet);
  void CopyToFile(BJotlet& jotlet);
  void MoveToFile(BJotlet& jotlet);
  /// Says what is about to become of a note; whether the user agrees.
  bool Agrees(const BJotlet& jotlet, UINT question);
  void ImportFromFile(BJotlet& jotlet);
  void OpenLog(BJotlet& jotlet);
  void OpenIni(BJotlet& jotlet);
  void Solo(BJotlet& jotlet);
  void JotletMenu(BJotlet& jotlet);
  void TextMenu(BJotlet& jotlet);
  void OrphanCheck(BJotlet& jotlet);
  void Properties(BJotlet& jotlet);
  void Sleep(BJotlet& jotlet) { sleep_.Sleep(jotlet); }
  void Recur(BJotlet& jotlet) { sleep_.Recur(jotlet); }
  void Alarm(BJotlet& jotlet) { sleep_.Alarm(jotlet); }
  void PlayAlarm(BJotlet&) { sleep_.PlayAlarm(); }
  void Attach(BJotlet& jotlet);
  void StoreInCategory(BJotlet& jotlet) { tools_.store.StoreInAny(jotlet); }
  void ShowParent(BJotlet& jotlet);

  MenuExtras ExtrasOf(const BJotlet& jotlet);
  ColourEntry PapersOf(const JotletData& record);
  void SetColour(BJotlet& jotlet, Colour colour);
  void AddTextExtras(const BJotlet& jotlet, MenuExtras& extras);
  void SetFace(BJotlet& jotlet, const Text& face);
  void RememberFont(const Text& face);
  void Unattach(BJotlet& jotlet);
  void ShowFile(BJotlet& jotlet);

  /// Shows a menu of a note and carries out what is chosen.
  void ShowMenu(BJotlet& jotlet, NoteMenu which);
  /// Saves a note's content into a file that the user chooses; whether it was written.
  bool SaveToFile(BJotlet& jotlet);

  NoteCommandTools tools_;
  TimeCommands sleep_;
};

}  // namespace jotlets
