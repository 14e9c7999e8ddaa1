// When the data file and the options are written, and what the user is told when that fails.
#pragma once

#include "app/win/program_window.h"
#include "data/options_keeper.h"
#include "desk/note_saver.h"
#include "ui/resources.h"

namespace jotlets {

class ProgramSaving {
 public:
  ProgramSaving(const Resources& resources, const ProgramWindow& window, const ProgramState& state,
                OptionsKeeper& options, NoteSaver& saver)
      : resources_(resources), window_(window), state_(state), options_(options), saver_(saver) {}

  /// A note or a list has changed: it is saved ten seconds later. So the options.
  void StartSaveTimer();
  void SetOptionsDirty();

  /// The main save, now.
  bool SaveJotlets();
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
  const Resources& resources_;
  const ProgramWindow& window_;
  const ProgramState& state_;
  OptionsKeeper& options_;
  NoteSaver& saver_;
  bool failureTold_ = false;
};

}  // namespace jotlets
