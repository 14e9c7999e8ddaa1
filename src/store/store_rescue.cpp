#include "store/store_rescue.h"

#include <algorithm>
#include <limits>
#include <string>

#include "data/data_folder.h"
#include "data/jotlet_id.h"
#include "data/jotlet_line.h"

namespace jotlets {
namespace {

constexpr TextView kBeingMade = u".rescue";
constexpr TextView kMade = u".rescued";
constexpr std::int64_t kAtOnce = 200;
constexpr std::int64_t kNoKey = 0;
// As far behind the last key that could be read, when nobody can tell which was given out last.
constexpr std::int64_t kFurther = 10'000;
// Keys that were never given out are nothing to look for, whatever the damaged file says.
constexpr std::int64_t kWidestGap = 100'000;

bool IsThere(const Files& files, const Text& path) { return files.Exists(path) && files.Size(path) > 0; }

}  // namespace

bool StoreIsGone(const Files& files, TextView dataFolder) {
  const Text path = Text(dataFolder) + Text(kStoreFileName);
  if (IsThere(files, path)) return false;
  if (files.Exists(path + Text(kMade))) return true;
  const Text indexPath = Text(dataFolder) + Text(kSearchIndexName);
  SearchIndex index;
  return files.Exists(indexPath) && index.OpenToSearch(indexPath) && index.HoldsStored();
}

StoreRescue::StoreRescue(Files& files, Log& log, TextView dataFolder, TextView stamp, TextView category)
    : files_(files),
      log_(log),
      folder_(dataFolder),
      path_(folder_ + Text(kStoreFileName)),
      stamp_(stamp),
      category_(category) {}

Job::State StoreRescue::Fail(Text reason) {
  insert_ = {};
  isThere_ = {};
  new_.Close();
  reason_ = std::move(reason);
  log_.Write(kLogLifecycle, u"The store '", path_, u"' could not be rescued: ", reason_);
  return State::kFailed;
}

Job::State StoreRescue::Step(std::size_t mostFiles) {
  State state = State::kRunning;
  while (mostFiles-- > 0 && state == State::kRunning) state = StepOnce();
  return state;
}

Job::State StoreRescue::StepOnce() {
  bool more = false;
  switch (phase_) {
    case Phase::kBegin:
      if (!Begin()) return Fail(new_.Fault());
      break;
    case Phase::kForward: more = ReadForward(); break;
    case Phase::kBackward: more = ReadBackward(); break;
    case Phase::kBetween: more = ReadBetween(); break;
    case Phase::kIndex: more = ReadIndex(); break;
    case Phase::kList: ListFiles(); break;
    case Phase::kFiles: more = ReadFiles(); break;
    case Phase::kEnd: return End() ? State::kDone : Fail(reason_);
  }
  if (!reason_.empty()) return Fail(reason_);
  if (!more) phase_ = static_cast<Phase>(static_cast<int>(phase_) + 1);
  return State::kRunning;
}

bool StoreRescue::Begin() {
  damaged_ = IsThere(files_, path_);
  // The last step of a rescue that was killed is all that is left to do.
  if (!damaged_ && files_.Exists(path_ + Text(kMade))) {
    phase_ = Phase::kFiles;
    return true;
  }
  for (const TextView left : {kBeingMade, kMade})
    if (files_.Exists(path_ + Text(left))) files_.Remove(path_ + Text(left));
  if (new_.Open(path_ + Text(kBeingMade), true) != DatabaseResult::kDone || !MakeStoreForm(new_) ||
      new_.Run("BEGIN") != DatabaseResult::kDone)
    return false;
  insert_ = new_.Prepare(
      "INSERT OR IGNORE INTO jotlets (key, category, text, flags, record) VALUES (?, ?, ?, ?, ?)");
  isThere_ = new_.Prepare("SELECT key FROM jotlets WHERE text = ?");
  // Locked once, not for each of the many questions that have no answer.
  if (damaged_ && old_.Open(path_, false) == DatabaseResult::kDone) old_.Run("BEGIN");
  const Text index = folder_ + Text(kSearchIndexName);
  if (files_.Exists(index) && index_.OpenToSearch(index)) counts_.known = index_.Count();
  return true;
}

bool StoreRescue::Insert(std::int64_t key, TextView category, TextView id, std::int64_t flags,
                         TextView line) {
  if (key <= kNoKey || key > kLargestStoredKey) return false;
  insert_.Reset();
  insert_.Bind(key).Bind(category).Bind(FoldCase(id)).Bind(flags).Bind(line);
  if (!insert_.Run()) {
    reason_ = new_.Fault();
    return false;
  }
  counts_.saved += new_.Changed();
  return new_.Changed() > 0;
}

bool StoreRescue::IsIn(TextView id) {
  isThere_.Reset();
  isThere_.Bind(FoldCase(id));
  return isThere_.Step() == DatabaseResult::kRow;
}

std::int64_t StoreRescue::NextKey() { return new_.Number("SELECT max(key) FROM jotlets", 0) + 1; }

bool StoreRescue::Copy(const Statement& row) {
  const StoredNote note = StoredNoteAt(row);
  // A row that has been written over names no note.
  if (note.record.id.empty()) return true;
  const auto insert = [&](std::int64_t key) {
    return Insert(key, note.category, note.record.id, row.NumberAt(2), row.TextAt(3));
  };
  if (!insert(note.key) && !IsIn(note.record.id)) insert(NextKey());
  return reason_.empty();
}

bool StoreRescue::Add(std::int64_t key, TextView category, std::int64_t flags, const JotletData& record) {
  if (IsIn(record.id)) return true;
  if (!IsPlainFileName(record.id) || !files_.Exists(folder_ + ContentPath(record))) return true;
  const std::int64_t all = flags | (record.IsImage() ? kStoredImage : 0);
  const Text line = MakeJotletLine(record, true);
  // A key may have been given to another note meanwhile.
  const bool added =
      Insert(key, category, record.id, all, line) || Insert(NextKey(), category, record.id, all, line);
  if (added) ++counts_.found;
  return reason_.empty();
}

bool StoreRescue::ReadForward() {
  Statement select =
      old_.Prepare((std::string(kSelectStored) + "WHERE key > ? ORDER BY key LIMIT ?").c_str());
  select.Bind(keys_.last).Bind(kAtOnce);
  std::int64_t rows = 0;
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow && Copy(select); result = select.Step(), ++rows)
    keys_.last = select.NumberAt(0);
  if (result == DatabaseResult::kDone && rows == kAtOnce) return true;
  // Nothing is left to be read from the other end.
  if (result == DatabaseResult::kDone || !old_.IsOpen()) phase_ = Phase::kBetween;
  keys_.last = std::max(keys_.last, kNoKey);
  constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max() - 1;
  const std::int64_t given = old_.Number("SELECT seq FROM sqlite_sequence WHERE name = 'jotlets'",
                                         std::min(keys_.last, kLast - kFurther) + kFurther);
  keys_.next =
      std::min(result == DatabaseResult::kDone ? keys_.last : std::max(given, keys_.last), kLast) + 1;
  return false;
}

bool StoreRescue::ReadBackward() {
  Statement select = old_.Prepare(
      (std::string(kSelectStored) + "WHERE key < ? AND key > ? ORDER BY key DESC LIMIT ?").c_str());
  select.Bind(keys_.next).Bind(keys_.last).Bind(kAtOnce);
  std::int64_t rows = 0;
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow && Copy(select); result = select.Step(), ++rows)
    keys_.next = select.NumberAt(0);
  return result == DatabaseResult::kDone && rows == kAtOnce;
}

// Each by itself: a page that cannot be read takes only its own notes with it.
bool StoreRescue::ReadBetween() {
  Statement select = old_.Prepare((std::string(kSelectStored) + "WHERE key = ?").c_str());
  if (keys_.next - keys_.last > kWidestGap) keys_.next = keys_.last + kWidestGap;
  for (std::int64_t step = 0; step < kAtOnce && keys_.last + 1 < keys_.next; ++step) {
    select.Reset();
    select.Bind(++keys_.last);
    if (select.Step() == DatabaseResult::kRow && !Copy(select)) return false;
  }
  return old_.IsOpen() && keys_.last + 1 < keys_.next;
}

bool StoreRescue::ReadIndex() {
  if (!index_.IsOpen()) return false;
  const auto notes = index_.NotesAfter(lastId_, static_cast<std::size_t>(kAtOnce));
  if (!notes || notes->empty()) return false;
  for (const IndexedNote& note : *notes) {
    lastId_ = FoldCase(note.id);
    ++counts_.seen;
    if (note.place != SearchPlace::kStored) continue;
    JotletData record;
    record.id = note.id;
    record.isImage = note.image ? 1 : 0;
    record.title = note.title;
    record.colour = note.colour;
    record.created = record.modified = note.changed;
    if (!Add(note.key, note.category, kStoredLeaving, record)) return false;
  }
  return true;
}

void StoreRescue::ListFiles() {
  index_.Close();
  if (damaged_) contents_ = ContentFiles(files_, folder_).Unclaimed();
}

bool StoreRescue::ReadFiles() {
  const std::size_t end = std::min(contents_.size(), content_ + static_cast<std::size_t>(kAtOnce));
  for (; content_ < end; ++content_) {
    JotletData record;
    record.id = contents_[content_].id;
    record.isImage = contents_[content_].isImage ? 1 : 0;
    if (!Add(kNoKey, category_, kStoredLeaving, record)) return false;
  }
  return content_ < contents_.size();
}

// With what a change that was cut off has left beside it, which would be applied to the new file.
bool StoreRescue::PutOldAside() {
  const Text aside = path_ + u".damaged-" + stamp_;
  for (const TextView part : {TextView(u"-journal"), TextView()}) {
    if (!files_.Exists(path_ + Text(part))) continue;
    const FileStatus kept = files_.Rename(path_ + Text(part), aside + Text(part));
    reason_ = kept.reason;
    if (!kept) return false;
  }
  if (damaged_) log_.Write(kLogLifecycle, u"The store '", path_, u"' is damaged and kept as '", aside, u"'");
  return true;
}

// The new file is beside the old one, under a name that says that it is whole, until that is out of the way.
bool StoreRescue::End() {
  const Text made = path_ + Text(kMade);
  if (new_.IsOpen()) {
    insert_ = {};
    isThere_ = {};
    if (new_.Run("COMMIT") != DatabaseResult::kDone) return reason_ = new_.Fault(), false;
    new_.Close();
    old_.Close();
    const FileStatus named = counts_.saved == 0 ? files_.Remove(path_ + Text(kBeingMade))
                                                : files_.Rename(path_ + Text(kBeingMade), made);
    if (!named) return reason_ = named.reason, false;
    log_.Write(kLogLifecycle, IntText(counts_.saved), u" stored notes are there again, ",
               IntText(counts_.found), u" of them by their content files");
  }
  if (!PutOldAside()) return false;
  if (!files_.Exists(made)) return true;
  const FileStatus placed = files_.Rename(made, path_);
  reason_ = placed.reason;
  return placed.ok;
}

int StoreRescue::Percent() const {
  const std::int64_t sum = keys_.next + counts_.known + static_cast<std::int64_t>(contents_.size());
  const std::int64_t done = keys_.last + counts_.seen + static_cast<std::int64_t>(content_);
  return std::min(
      PercentOf(static_cast<std::size_t>(std::max<std::int64_t>(done, 0)), static_cast<std::size_t>(sum)),
      100);
}

}  // namespace jotlets
