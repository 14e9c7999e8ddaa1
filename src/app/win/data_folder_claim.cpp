#include "app/win/data_folder_claim.h"

#include "app/win/system_facts.h"
#include "data/data_folder.h"
#include "data/journal_replay.h"
#include "data/text_file.h"

namespace jotlets {

bool DataFolderClaim::Claim(TextView folder) {
  folder_ = folder;
  const LockedFile::Opened opened = journal_.Open(folder_ + Text(kJournalName));
  if (opened == LockedFile::Opened::kInUse) return false;
  const FileContent content = journal_.Read();
  if (opened == LockedFile::Opened::kFailed || content.state == FileContent::State::kUnreadable) {
    // Nothing is written over what could not be read.
    journal_.Close();
    fault_ = opened == LockedFile::Opened::kFailed ? journal_.Reason() : content.reason;
    log_.Write(kLogLifecycle, u"There will be no journal: ", fault_);
  }
  if (trialsFile_.Open(folder_ + Text(kTrialsName)) == LockedFile::Opened::kYes) trials_.Open();
  files_.Write(folder_ + Text(kUserFileName), EncodeTextFile(UserAndMachine()));
  return true;
}

Text DataFolderClaim::User() const {
  return DecodeTextFile(files_.Read(folder_ + Text(kUserFileName)).bytes, ansi_).text;
}

void DataFolderClaim::Release() {
  journal_.Close();
  trialsFile_.Close();
  if (trials_.IsEmpty()) files_.Remove(folder_ + Text(kTrialsName));
}

void DataFolderClaim::Leave() {
  files_.Remove(folder_ + Text(kUserFileName));
  Release();
}

void DataFolderClaim::LeaveUntouched() {
  const FileContent content = journal_.Read();
  const bool made = content.state == FileContent::State::kRead && content.bytes.empty();
  Leave();
  if (made) files_.Remove(folder_ + Text(kJournalName));
}

DataFolderClaim::Kept DataFolderClaim::KeepJournal() {
  const Text path = folder_ + Text(kJournalName);
  const Text kept = DatedName(files_, path, kDamagedMark, clock_.Now().local);
  Kept outcome = files_.Write(kept, JournalBytes()) ? Kept::kCopied : Kept::kNot;
  // Another name needs no room on the disk.
  if (outcome == Kept::kNot) {
    journal_.Close();
    if (files_.Rename(path, kept)) outcome = Kept::kMoved;
    if (outcome == Kept::kMoved && journal_.Open(path) != LockedFile::Opened::kYes)
      fault_ = journal_.Reason();
  }
  log_.Write(kLogLifecycle, u"Not all of the journal could be used, ",
             outcome == Kept::kNot ? u"nor be kept as '" : u"kept as '", kept, u"'");
  return outcome;
}

void DataFolderClaim::SetJournalAside() {
  if (HoldsNews(JournalBytes()) && KeepJournal() == Kept::kCopied) journal_.Reset({});
}

void DataFolderClaim::GoOn(NoteJournal& journal, const LoadedData& loaded) {
  switch (loaded.journal.keep ? KeepJournal() : Kept::kCopied) {
    case Kept::kCopied: journal.GoOn(loaded.journal, loaded.fingerprint); break;
    case Kept::kMoved: journal.Reset(loaded.fingerprint); break;
    case Kept::kNot: break;
  }
}

}  // namespace jotlets
