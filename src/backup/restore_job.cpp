#include "backup/restore_job.h"

#include "data/data_folder.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kUnderWayName = u"restore.ini";

}  // namespace

Text RestoreUnderWay(const Files& files, const CodePage& ansi, TextView dataFolder) {
  return DecodeTextFile(files.Read(Text(dataFolder).append(kUnderWayName)).bytes, ansi).text;
}

RestoreJob::RestoreJob(Files& files, const CodePage& ansi, TextView dataFolder, TextView backupsFolder,
                       TextView name, TextView presentName)
    : files_(files), data_(dataFolder), from_(Text(backupsFolder).append(name).append(u"\\")) {
  if (!HasReadableData(files, ansi, from_)) {
    Fail(u"the backup cannot be read");
  } else if (!DataSetFiles(files, data_).empty()) {
    const bool readable = HasReadableData(files, ansi, data_);
    const Text kept = Text(backupsFolder).append(presentName).append(readable ? TextView() : kDamagedBackup);
    keeping_.emplace(files, ansi, data_, kept,
                     readable ? BackupJob::Demand::kReadable : BackupJob::Demand::kAsItIs);
  }
}

RestoreJob RestoreJob::Finishing(Files& files, const CodePage& ansi, TextView dataFolder, TextView fromFolder,
                                 TextView keptFolder) {
  RestoreJob job(files, dataFolder, fromFolder);
  // On a medium that is not there any more it has no files.
  if (DataSetFiles(files, fromFolder).empty()) {
    job.reason_ = fromFolder;
    job.End(State::kFailed);
  } else {
    const Text kept = Text(keptFolder).append(kDamagedBackup);
    job.keeping_.emplace(files, ansi, dataFolder, kept, BackupJob::Demand::kAsItIs);
  }
  return job;
}

int RestoreJob::Percent() const {
  if (keeping_) return keeping_->Percent() / 2;
  return 50 + PercentOf(removed_ + copied_, removals_.size() + names_.size()) / 2;
}

Job::State RestoreJob::Step(std::size_t mostFiles) {
  if (state_ != State::kRunning) return state_;
  if (keeping_ && !StepKeeping(mostFiles)) return state_;
  if (!begun_) {
    if (const FileStatus begun = Begin(from_); !begun) return Fail(begun.reason);
  }
  for (std::size_t count = 0; count < mostFiles; ++count) {
    FileStatus status;
    if (removed_ < removals_.size()) {
      status = files_.Remove(removals_[removed_++]);
    } else if (copied_ < names_.size()) {
      status = PutOne(names_[copied_++]);
    } else {
      return End(goingBack_ ? State::kFailed : State::kDone);
    }
    // On the way back, as much as possible is put back.
    if (!status && !goingBack_) return Fail(status.reason);
  }
  return state_;
}

// Whether the present state is safe.
bool RestoreJob::StepKeeping(std::size_t mostFiles) {
  const State kept = keeping_->Step(mostFiles);
  if (kept == State::kFailed) Fail(u"the present state could not be kept: " + keeping_->Reason());
  if (kept != State::kDone) return false;
  keptFolder_ = keeping_->Folder() + u"\\";
  keeping_.reset();
  return true;
}

FileStatus RestoreJob::Begin(Text fromFolder) {
  begun_ = true;
  from_ = std::move(fromFolder);
  names_ = DataSetFiles(files_, from_);
  removals_.clear();
  removed_ = copied_ = 0;
  for (const auto& [folder, extension] : kContentFolders) {
    const Text path = data_ + Text(folder);
    for (const Text& name : files_.List(path, extension)) removals_.push_back(path + name);
  }
  // A store that the backup lacks knows notes whose contents go; half a change of it must not be undone in
  // another one's file.
  for (const TextView name : {kStoreFileName, kStoreJournalName})
    if (Text path = data_ + Text(name); files_.Exists(path)) removals_.push_back(std::move(path));
  return files_.Write(data_ + Text(kUnderWayName), EncodeTextFile(from_));
}

Job::State RestoreJob::End(State state) {
  const Text underWay = data_ + Text(kUnderWayName);
  if (!files_.Remove(underWay)) files_.Write(underWay, {});
  return state_ = state;
}

// The data file is what makes everything else known: it is flushed to the disk and replaced in one step.
FileStatus RestoreJob::PutOne(const Text& path) {
  if (path != kDataFileName) return files_.Copy(from_ + path, data_ + path);
  const FileContent content = files_.Read(from_ + path);
  if (content.state != FileContent::State::kRead) return FileStatus::Failed(path + u": cannot be read");
  return files_.Write(data_ + path, content.bytes);
}

Job::State RestoreJob::Fail(Text reason) {
  if (reason_.empty()) reason_ = std::move(reason);
  if (!begun_) return state_ = State::kFailed;
  if (goingBack_ || keptFolder_.empty()) return End(State::kFailed);
  goingBack_ = true;
  Begin(keptFolder_);
  return state_;
}

}  // namespace jotlets
