#include "backup/backup.h"

#include <algorithm>
#include <array>

#include "data/data_file.h"
#include "data/data_folder.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr std::size_t kNameLength = 12;
constexpr std::int64_t kSecondsPerHour = 3600;
constexpr TextView kPartial = u".partial";

std::optional<DataFile> ReadWhole(const Files& files, const CodePage& ansi, const Text& folder) {
  const FileContent content = files.Read(folder + Text(kDataFileName));
  if (content.state != FileContent::State::kRead) return std::nullopt;
  const TextFile text = DecodeTextFile(content.bytes, ansi);
  Options options;
  DataFile file = ParseDataFile(text.text, {options, [] { return Text(u"unnamed"); }, 0});
  if (!file.IsWhole() || text.damaged) return std::nullopt;
  return file;
}

Text InFolder(TextView backupsFolder, TextView name) {
  return Text(backupsFolder).append(name).append(u"\\");
}

bool IsBackup(const Files& files, const CodePage& ansi, TextView backupsFolder, TextView name) {
  return BackupTime(name) && ReadWhole(files, ansi, InFolder(backupsFolder, name));
}

LocalTime NextMinute(LocalTime t) {
  constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = t.month == 2 && t.year % 4 == 0 && (t.year % 100 != 0 || t.year % 400 == 0);
  if (++t.minute < 60) return t;
  t.minute = 0;
  if (++t.hour < 24) return t;
  t.hour = 0;
  if (++t.day <= kDays[static_cast<std::size_t>(t.month - 1)] + (leap ? 1 : 0)) return t;
  t.day = 1;
  if (++t.month <= 12) return t;
  t.month = 1;
  ++t.year;
  return t;
}

// What a program that was killed during a backup or a removal left.
bool IsPartial(TextView name) {
  return name.ends_with(kPartial) && BackupTime(name.substr(0, name.size() - kPartial.size()));
}

}  // namespace

std::optional<LocalTime> BackupTime(TextView name) {
  if (name.size() != kNameLength || name.find_first_not_of(u"0123456789") != TextView::npos)
    return std::nullopt;
  const auto part = [name](std::size_t at, std::size_t count) { return ParseInt(name.substr(at, count)); };
  const LocalTime time{part(0, 4), part(4, 2), part(6, 2), part(8, 2), part(10, 2), 0};
  const bool valid = time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
                     time.hour < 24 && time.minute < 60;
  return valid ? std::optional(time) : std::nullopt;
}

bool HasReadableData(const Files& files, const CodePage& ansi, TextView folder) {
  return ReadWhole(files, ansi, Text(folder)).has_value();
}

std::vector<Text> ListBackups(const Files& files, const CodePage& ansi, TextView backupsFolder) {
  std::vector<Text> names = files.ListFolders(backupsFolder);
  std::erase_if(names, [&](const Text& name) { return !IsBackup(files, ansi, backupsFolder, name); });
  return names;
}

Backup DescribeBackup(const Files& files, const CodePage& ansi, TextView backupsFolder, TextView name) {
  Backup backup;
  backup.name = name;
  backup.taken = BackupTime(name).value_or(LocalTime{});
  const Text folder = InFolder(backupsFolder, name);
  if (const auto file = ReadWhole(files, ansi, folder)) backup.notes = file->jotlets.size();
  for (const Text& path : DataSetFiles(files, folder)) backup.bytes += files.Size(folder + path);
  return backup;
}

bool IsBackupDue(std::int64_t now, std::optional<std::int64_t> last, std::int32_t periodHours) {
  // Several backups in one minute are named minutes ahead; farther ahead, the clock has been set back.
  if (!last || *last > now + kSecondsPerHour) return true;
  return now > *last + std::max(periodHours, 1) * kSecondsPerHour;
}

Text FreeBackupName(const Files& files, TextView backupsFolder, LocalTime now) {
  Text name = MinuteStamp(now);
  const auto taken = [&](TextView mark) { return files.Exists(Text(backupsFolder) + name + Text(mark)); };
  while (taken({}) || taken(kDamagedBackup)) {
    now = NextMinute(now);
    name = MinuteStamp(now);
  }
  return name;
}

BackupJob::BackupJob(Files& files, const CodePage& ansi, TextView fromFolder, TextView toFolder,
                     Demand demand)
    : files_(files),
      ansi_(ansi),
      from_(fromFolder),
      to_(toFolder),
      partial_(to_ + Text(kPartial)),
      demand_(demand) {}

Job::State BackupJob::Step(std::size_t mostFiles) {
  if (state_ != State::kRunning) return state_;
  if (!begun_) {
    begun_ = true;
    names_ = DataSetFiles(files_, from_);
    // What an interrupted backup left.
    files_.RemoveFolder(partial_);
    if (FileStatus made = MakeContentFolders(files_, partial_ + u"\\"); !made) return Fail(made.reason);
  }
  for (std::size_t count = 0; next_ < names_.size() && count < mostFiles; ++count, ++next_) {
    if (!CopyOne(names_[next_])) return state_;
  }
  if (next_ == names_.size() && !addedNew_) AddNewFiles();
  return next_ < names_.size() ? state_ : Complete();
}

// The data file is copied after the contents, and saved now and then meanwhile: it may name notes whose
// content is younger than our list. Once is enough, since it is not copied again.
void BackupJob::AddNewFiles() {
  addedNew_ = true;
  std::vector<Text> now = DataSetFiles(files_, from_);
  std::sort(names_.begin(), names_.end());
  std::erase_if(now,
                [this](const Text& name) { return std::binary_search(names_.begin(), names_.end(), name); });
  names_.insert(names_.end(), now.begin(), now.end());
}

Job::State BackupJob::Fail(Text reason) {
  reason_ = std::move(reason);
  files_.RemoveFolder(partial_);
  return state_ = State::kFailed;
}

// Notes go on changing while the backup is taken: a file that has gone meanwhile is passed over, and one that
// has changed between copying and comparing is copied again.
bool BackupJob::CopyOne(const Text& name) {
  constexpr int kTries = 3;
  const Text target = partial_ + u"\\" + name;
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const FileStatus copied = files_.Copy(from_ + name, target);
    if (!files_.Exists(from_ + name)) {
      files_.Remove(target);
      return true;
    }
    if (!copied) {
      Fail(name + u": " + copied.reason);
      return false;
    }
    if (files_.SameContent(from_ + name, target)) return true;
  }
  Fail(name + u": the copy differs");
  return false;
}

Job::State BackupJob::Complete() {
  // A data folder that has no data file yet makes a backup that nothing could be restored from.
  if (demand_ == Demand::kReadable && !ReadWhole(files_, ansi_, partial_ + u"\\"))
    return Fail(Text(kDataFileName) + u": cannot be read back");
  if (FileStatus renamed = files_.Rename(partial_, to_); !renamed) return Fail(renamed.reason);
  return state_ = State::kDone;
}

namespace {

// A folder has many spellings, short names and links among them: what is written into one spelling shows up
// in the others.
FileStatus CheckOtherFolder(Files& files, TextView dataFolder, TextView into) {
  constexpr TextView kProbe = u"backup.probe";
  const Text here = Text(dataFolder).append(kProbe);
  const Text probe = Text(into).append(kProbe);
  FileStatus status = files.Remove(here);
  if (status) status = files.Write(probe, "");
  if (status && files.Exists(here)) status = FileStatus::Failed(u"this is the data folder");
  files.Remove(probe);
  return status;
}

}  // namespace

FileStatus BackUpInto(Files& files, const CodePage& ansi, TextView dataFolder, TextView folder) {
  const Text into = WithSeparator(folder);
  if (!IsFullPath(into)) return FileStatus::Failed(u"not a full path");
  if (files.Exists(into)) {
    if (FileStatus other = CheckOtherFolder(files, dataFolder, into); !other) return other;
    FileStatus copied = CopyDataSet(files, dataFolder, into);
    if (copied && !HasReadableData(files, ansi, into)) return FileStatus::Failed(u"cannot be read back");
    return copied;
  }
  BackupJob job(files, ansi, dataFolder, TextView(into).substr(0, into.size() - 1));
  constexpr std::size_t kAtOnce = 1000;
  Job::State state = Job::State::kRunning;
  while (state == Job::State::kRunning) state = job.Step(kAtOnce);
  return state == Job::State::kDone ? FileStatus() : FileStatus::Failed(job.Reason());
}

PruneJob::PruneJob(Files& files, const CodePage& ansi, Log& log, TextView backupsFolder, std::int32_t keep,
                   TextView justTaken)
    : files_(files),
      ansi_(ansi),
      log_(log),
      backups_(backupsFolder),
      keep_(static_cast<std::size_t>(std::max(keep, 1))),
      justTaken_(justTaken),
      names_(files.ListFolders(backupsFolder)) {
  std::erase_if(names_, [](const Text& name) { return !BackupTime(name) && !IsPartial(name); });
  std::reverse(names_.begin(), names_.end());
  // It stays, and takes one of the places.
  if (std::erase(names_, justTaken_) > 0) kept_ = 1;
}

Job::State PruneJob::Step(std::size_t mostFiles) {
  for (std::size_t count = 0; count < mostFiles; ++count) {
    if (!goes_.empty()) {
      RemoveOne();
    } else if (next_ < names_.size()) {
      LookAt(names_[next_++]);
    } else {
      return State::kDone;
    }
  }
  return State::kRunning;
}

void PruneJob::LookAt(const Text& name) {
  if (IsPartial(name)) return BeginRemoval(name);
  if (!IsBackup(files_, ansi_, backups_, name)) return;
  if (kept_ < keep_) {
    ++kept_;
    return;
  }
  log_.Write(kLogDetail, u"Removing backup directory:", name);
  const FileStatus renamed = files_.Rename(backups_ + name, backups_ + name + Text(kPartial));
  if (renamed) return BeginRemoval(name + Text(kPartial));
  log_.Write(kLogLifecycle, u"Unable to remove backup ", name, u": ", renamed.reason);
}

void PruneJob::BeginRemoval(const Text& name) {
  goes_ = backups_ + name;
  for (const Text& path : DataSetFiles(files_, goes_ + u"\\")) goingFiles_.push_back(goes_ + u"\\" + path);
}

void PruneJob::RemoveOne() {
  if (!goingFiles_.empty()) {
    files_.Remove(goingFiles_.back());
    return goingFiles_.pop_back();
  }
  // With whatever else somebody put into it.
  const FileStatus removed = files_.RemoveFolder(goes_);
  if (!removed) log_.Write(kLogLifecycle, u"Unable to remove backup ", goes_, u": ", removed.reason);
  goes_.clear();
}

}  // namespace jotlets
