#include "app/win/program_saving.h"

#include "app/win/system_facts.h"
#include "data/data_folder.h"
#include "res/resource.h"
#include "ui/choice_dialog.h"
#include "ui/system_choosers.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr ULONGLONG kJournalMilliseconds = 200;
constexpr ULONGLONG kSliceMilliseconds = 30;
// The journal has everything already; the system may end the program after five seconds, of which closing the
// windows takes some.
constexpr ULONGLONG kEndMilliseconds = 700;

}  // namespace

void ProgramSaving::OnChanged() {
  StartSaveTimer();
  const ULONGLONG now = GetTickCount64();
  if (journalSince_ == 0) {
    journalSince_ = now;
    window_.Start(ProgramTimer::kJournal);
  } else if (now - journalSince_ > kJournalMilliseconds && !journalPosted_) {
    // Timers wait until there is nothing else to do, which may be never while somebody types.
    journalPosted_ = true;
    window_.Post(kJournalMessage);
  }
}

void ProgramSaving::WriteJournal() {
  window_.Stop(ProgramTimer::kJournal);
  journalPosted_ = false;
  const ULONGLONG begun = GetTickCount64();
  const bool all = journal_.WriteChanges([begun] { return GetTickCount64() - begun < kSliceMilliseconds; });
  journalSince_ = all ? 0 : begun;
  if (!all) window_.Start(ProgramTimer::kJournal);
  if (journal_.IsLarge()) SaveJotlets();
}

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

bool ProgramSaving::SaveAtExit() {
  while (!SaveJotlets()) {
    const Text question = ReplaceAll(resources_.String(IDS_SAVE_FAILED_AT_EXIT), u"%s", saver_.MainPath());
    const Choice choice = BChoiceDlg(IDD_SAVE_FAILED, question).Ask(resources_, window_.Handle());
    if (choice == Choice::kNeither) return false;
    if (choice == Choice::kSecond && SaveToAnotherFolder()) return true;
  }
  return true;
}

// The other folder becomes the data folder: the next start finds everything there.
bool ProgramSaving::SaveToAnotherFolder() {
  const Text folder = ChooseFolder(window_.Handle(), resources_, IDS_MOVE_CHOOSE, desk_.Folder());
  if (folder.empty()) return false;
  FileStatus saved = files_.Exists(folder + Text(kDataFileName))
                         ? FileStatus::Failed(folder + Text(kDataFileName))
                         : CopyDataSet(files_, desk_.Folder(), folder);
  if (saved) saved = saver_.SaveElsewhere(folder);
  if (saved) saved = WriteRegistryPath(folder);
  if (!saved) {
    Tell(window_.Handle(), resources_, IDS_MOVE_FAILED, folder + u"\n\n" + saved.reason);
    return false;
  }
  log_.Write(kLogLifecycle, u"Registry value set to: ", folder);
  return true;
}

void ProgramSaving::SaveAtEndOfSession() {
  const ULONGLONG begun = GetTickCount64();
  saver_.SaveBeforeEnd([begun] { return GetTickCount64() - begun < kEndMilliseconds; });
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
