#include "app/win/program_saving.h"

#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {

void ProgramSaving::StartSaveTimer() { window_.Start(ProgramTimer::kSave); }

void ProgramSaving::SetOptionsDirty() {
  options_.SetDirty();
  window_.Start(ProgramTimer::kOptions);
}

bool ProgramSaving::SaveJotlets() {
  // A command may still be under way when the session ends inside one of its events.
  if (state_.notesGone) return false;
  const bool saved = saver_.SaveJotlets(saver_.MainPath(), true);
  if (saved) window_.Stop(ProgramTimer::kSave);
  failureTold_ = failureTold_ && !saved;
  return saved;
}

bool ProgramSaving::SaveCopy(TextView path) { return !state_.notesGone && saver_.SaveJotlets(path, false); }

void ProgramSaving::SaveIfDirty() {
  if (saver_.SaveIfDirty()) {
    failureTold_ = false;
    return;
  }
  // Told once, tried again until it works: a box every ten seconds would not let the user mend the cause. The
  // next try does not wait for the box to be answered.
  StartSaveTimer();
  if (failureTold_) return;
  failureTold_ = true;
  Tell(window_.Handle(), resources_, IDS_SAVE_FAILED, saver_.MainPath());
}

bool ProgramSaving::SaveForBackup() {
  options_.SaveIfDirty();
  const bool saved = saver_.SaveIfDirty();
  if (!saved) StartSaveTimer();
  return saved;
}

}  // namespace jotlets
