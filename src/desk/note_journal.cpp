#include "desk/note_journal.h"

#include <iterator>
#include <utility>

#include "data/jotlet_line.h"

namespace jotlets {
namespace {

// Up to this size the first frame of a content holds all of it, and can be used whatever has become of its
// file; of larger ones only what has changed is written.
constexpr std::size_t kLargestWhole = 100 * 1024;

void SetChange(JournalFrame& frame, std::string_view before, std::string_view after) {
  const ContentChange change = CompareContents(before, after);
  frame.head = change.head;
  frame.tail = change.tail;
  frame.payload = after.substr(change.head, after.size() - change.head - change.tail);
}

}  // namespace

void NoteJournal::SetFolder(TextView dataFolder, TextView installId) {
  folder_ = dataFolder;
  installId_ = installId;
}

void NoteJournal::GoOn(const JournalReplay& replay, Fingerprint dataFile) {
  sequence_ = replay.nextSequence;
  if (!replay.any) return Reset(dataFile);
  bytes_ = replay.length;
  // Behind a frame that was cut short nothing would be read.
  Report(file_.Truncate(replay.length));
}

void NoteJournal::ForgetChanges() {
  lists_.MoveChangesTo(pending_, ChangeReader::kJournal);
  pending_.clear();
  lists_.stacksChanged = false;
}

bool NoteJournal::WriteChanges(const std::function<bool()>& goesOn) {
  lists_.MoveChangesTo(pending_, ChangeReader::kJournal);
  if (!lists_.stacksChanged && pending_.empty()) return true;
  FileStatus status = CatchUp();
  if (status && lists_.stacksChanged) status = WriteStacks();
  FileStatus lastFault;
  for (auto at = pending_.begin(); status && at != pending_.end() && goesOn();) {
    FileStatus fault;
    status = WriteNote(at->first, at->second, fault);
    if (!fault) lastFault = fault;
    at = status && fault ? pending_.erase(at) : std::next(at);
  }
  Report(status ? lastFault : status);
  return status && pending_.empty();
}

void NoteJournal::BeforeContents(const std::vector<Text>& ids) {
  lists_.MoveChangesTo(pending_, ChangeReader::kJournal);
  FileStatus status;
  bool written = false;
  for (const Text& id : ids) {
    const Text folded = FoldCase(id);
    const auto found = pending_.find(folded);
    if (found == pending_.end() || !contents_.contains(folded)) continue;
    FileStatus fault;
    FileStatus one = CatchUp();
    if (one) one = WriteNote(folded, found->second, fault);
    // A content that cannot be had is not going to be written either.
    if (one && !fault) continue;
    if (one) {
      written = true;
      pending_.erase(folded);
    } else {
      unknown_.insert(folded);
      status = one;
    }
  }
  if (status && written) status = file_.Flush();
  Report(status);
}

// A disk that is full is told of once, not at every key.
void NoteJournal::Report(const FileStatus& status) {
  if (!status && !failureTold_) log_.Write(kLogLifecycle, u"Unable to write the journal: ", status.reason);
  failureTold_ = !status;
}

FileStatus NoteJournal::WriteStacks() {
  JournalFrame frame;
  frame.kind = FrameKind::kStacks;
  for (const StackRecord& stack : lists_.stacks)
    frame.payload.append(ToUtf8(MakeStackLine(stack))).append("\n");
  std::string out;
  AppendFrame(out, frame, sequence_);
  FileStatus status = Append(out, 1);
  if (status) lists_.stacksChanged = false;
  return status;
}

FileStatus NoteJournal::WriteNote(const Text& id, bool isImage, FileStatus& fault) {
  std::string out;
  const JotletData* open = lists_.desktop.Find(id);
  if (open != nullptr) windows_.Sync(open->id);
  const JournalFrame frame = RecordFrame(id, isImage);
  AppendFrame(out, frame, sequence_);
  ContentBytes content;
  if (open != nullptr) content = windows_.ContentOf(open->id).BytesToSave();
  fault = content.status;
  if (!fault) return {};
  JotletData named;
  named.id = frame.id;
  named.isImage = isImage ? 1 : 0;
  if (!content.bytes && unknown_.contains(id) && frame.kind != FrameKind::kRemoved)
    content.bytes = files_.Read(folder_ + ContentPath(named)).bytes;
  const bool changed = content.bytes && AppendContent(out, named, *content.bytes);
  FileStatus status = Append(out, changed ? 2 : 1);
  if (!status) return status;
  unknown_.erase(id);
  if (open == nullptr) {
    contents_.erase(id);
  } else if (changed) {
    contents_.insert_or_assign(id, std::move(*content.bytes));
  }
  return status;
}

JournalFrame NoteJournal::RecordFrame(const Text& id, bool isImage) const {
  JournalFrame frame;
  frame.kind = FrameKind::kRecord;
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr) record = std::as_const(lists_.attached).Find(id);
  if (record == nullptr) record = std::as_const(lists_.sleeping).Find(id);
  if (record == nullptr) {
    record = std::as_const(lists_.closed).Find(id);
    frame.kind = FrameKind::kClosed;
  }
  if (record == nullptr) {
    frame.kind = FrameKind::kRemoved;
    frame.id = id;
    frame.head = isImage ? 1 : 0;
    return frame;
  }
  frame.id = record->id;
  const Text front = frame.kind == FrameKind::kClosed ? IntText(record->deletedTime) + u"|" : Text();
  frame.payload = ToUtf8(front + MakeJotletLine(*record, options_.rolledHasAltPosition));
  return frame;
}

// False when the journal says so already.
bool NoteJournal::AppendContent(std::string& out, const JotletData& record, const std::string& bytes) const {
  JournalFrame frame;
  frame.kind = record.IsImage() ? FrameKind::kPicture : FrameKind::kText;
  frame.id = record.id;
  frame.result = FingerprintOf(bytes);
  const auto known = contents_.find(FoldCase(record.id));
  if (known != contents_.end()) {
    if (known->second == bytes) return false;
    frame.base = FingerprintOf(known->second);
    SetChange(frame, known->second, bytes);
  } else {
    const FileContent file = files_.Read(folder_ + ContentPath(record));
    const bool isThere = file.state == FileContent::State::kRead;
    frame.base = isThere ? FingerprintOf(file.bytes) : 0;
    SetChange(frame, isThere && bytes.size() > kLargestWhole ? file.bytes : std::string(), bytes);
  }
  AppendFrame(out, frame, sequence_ + 1);
  return true;
}

FileStatus NoteJournal::Append(const std::string& frames, std::uint64_t count) {
  FileStatus status = file_.Append(frames);
  if (!status) return status;
  sequence_ += count;
  bytes_ += frames.size();
  hasFrames_ = true;
  return status;
}

void NoteJournal::BeforeSave(Fingerprint dataFile, bool contentsWritten) {
  saving_ = {dataFile, contentsWritten};
  // Without frames there is nothing that could be taken for news.
  if (!hasFrames_) return;
  FileStatus status = CatchUp();
  if (status) status = file_.Flush();
  Report(status);
}

void NoteJournal::Reset(Fingerprint dataFile) {
  contents_.clear();
  unknown_.clear();
  ForgetChanges();
  saving_.reset();
  reset_ = dataFile;
  const FileStatus status = CatchUp();
  Report(status);
  // Of these the data file says nothing: a start after a kill would find contents of nobody's.
  for (const JotletData& record : lists_.discarded)
    pending_.insert_or_assign(FoldCase(record.id), record.IsImage());
  if (status) WriteChanges([] { return true; });
}

// What could not be said in its time is said before anything else: frames that go on from a data file that
// the journal has not heard of would not count.
FileStatus NoteJournal::CatchUp() {
  JournalFrame frame;
  std::string out;
  FileStatus status;
  if (reset_) {
    frame.kind = FrameKind::kBegin;
    frame.base = *reset_;
    frame.payload = ToUtf8(installId_);
    AppendFrame(out, frame, sequence_);
    status = file_.Reset(out);
    if (!status) return status;
    ++sequence_;
    bytes_ = out.size();
    hasFrames_ = false;
    reset_.reset();
  } else if (saving_) {
    frame.kind = FrameKind::kSaving;
    frame.result = saving_->dataFile;
    frame.head = saving_->contentsWritten ? 1 : 0;
    AppendFrame(out, frame, sequence_);
    status = Append(out, 1);
    if (status) saving_.reset();
  }
  return status;
}

}  // namespace jotlets
