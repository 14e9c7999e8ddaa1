// When the data file and the options are written, and what the user is told when that fails.
#pragma once

#include "app/win/program_window.h"
#include "data/options_keeper.h"
#include "desk/note_desk.h"
#include "ui/resources.h"

namespace jotlets {

class ProgramSaving {
 public:
  ProgramSaving(const Resources& resources, Files& files, Log& log, const ProgramWindow& window,
                const ProgramState& state, OptionsKeeper& options, NoteDesk& desk)
      : resources_(resources),
        files_(files),
        log_(log),
        window_(window),
        state_(state),
        options_(options),
        saver_(desk.Saver()),
        journal_(desk.Journal()),
        desk_(desk) {}

  /// A note or a list has changed: it is in the journal a fifth of a second later, and saved ten seconds
  /// later. So the options.
  void OnChanged();
  /// Brings the journal up to date, in slices when there is much.
  void WriteJournal();
  void SetOptionsDirty();

  /// The main save, now.
  bool SaveJotlets();
  /// The main save of an end that the user has asked for. When it fails, the user has it tried again, has
  /// everything saved to another folder, or stays, and this is false.
  bool SaveAtExit();
  /// The main save of a session that ends, of which only some seconds are left.
  void SaveAtEndOfSession();
  /// A copy of the data file to another path.
  bool SaveCopy(TextView path);
  /// The main save, when anything is dirty; the user is told when it fails.
  void SaveIfDirty();
  /// Options and notes, when they have changed; false when the notes could not be written.
  bool SaveForBackup();
  void SaveOptions() { options_.Save(); }
  void SaveOptionsIfDirty() { options_.SaveIfDirty(); }
  Text MainPath() const { return saver_.MainPath(); }

 private:
  void StartSaveTimer() { window_.Start(ProgramTimer::kSave); }
  bool SaveToAnotherFolder();

  const Resources& resources_;
  Files& files_;
  Log& log_;
  const ProgramWindow& window_;
  const ProgramState& state_;
  OptionsKeeper& options_;
  NoteSaver& saver_;
  NoteJournal& journal_;
  NoteDesk& desk_;
  ULONGLONG journalSince_ = 0;  // the first change that is not in the journal, 0 for none
  bool journalPosted_ = false;
  bool failureTold_ = false;
};

}  // namespace jotlets
