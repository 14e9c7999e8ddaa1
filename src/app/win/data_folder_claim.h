// The data folder as this program's alone: the journal that is held open in it, and who works with it, for
// whoever finds it in use.
#pragma once

#include "base/clock.h"
#include "base/code_page.h"
#include "base/log.h"
#include "base/win/locked_file.h"
#include "desk/load_trials.h"
#include "desk/note_journal.h"

namespace jotlets {

class DataFolderClaim {
 public:
  DataFolderClaim(Files& files, const CodePage& ansi, const Clock& clock, Log& log)
      : files_(files), ansi_(ansi), clock_(clock), log_(log), trials_(trialsFile_) {}

  JournalFile& Journal() { return journal_; }
  LoadTrials& Trials() { return trials_; }

  /// False when somebody else has the folder; `User` then says who. One in which no file can be held open is
  /// worked with all the same, without a journal.
  bool Claim(TextView folder);
  Text User() const;
  /// Why there is no journal; empty when there is one.
  const Text& JournalFault() const { return fault_; }
  /// Gives the folder up to a new start of the program, or to others for good.
  void Release();
  void Leave();
  /// The same, with the folder as it was before.
  void LeaveUntouched();

  /// All that the journal holds.
  std::string JournalBytes() const { return journal_.Read().bytes; }
  /// Other data has taken the place of what the journal goes on from: what it knows of that is kept under
  /// another name, and it is emptied.
  void SetJournalAside();
  /// The journal goes on from what was loaded; what of it could not be used is kept first.
  void GoOn(NoteJournal& journal, const LoadedData& loaded);

 private:
  enum class Kept { kNot, kCopied, kMoved };
  Kept KeepJournal();

  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  Text folder_;
  LockedFile journal_;
  LockedFile trialsFile_;
  Text fault_;
  LoadTrials trials_;
};

}  // namespace jotlets
