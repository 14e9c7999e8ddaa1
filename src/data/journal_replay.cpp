#include "data/journal_replay.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "data/content_files.h"
#include "data/data_folder.h"
#include "data/jotlet_id.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kKeptMark = u".kept-";

struct Frames {
  std::vector<JournalFrame> records;  // the last word on each note, in the order in which it was said
  std::optional<JournalFrame> stacks;
  std::map<Text, std::vector<JournalFrame>> contents;  // by path inside the data folder, folded
  Text installId;
  bool fits = false;     // the journal goes on from the data file that is there
  bool foreign = false;  // it holds what no program of ours writes
};

JotletData Named(const JournalFrame& frame, bool isImage) {
  JotletData named;
  named.id = frame.id;
  named.isImage = isImage ? 1 : 0;
  return named;
}

// An id becomes part of a path.
bool IsOfNote(const JournalFrame& frame) { return IsPlainFileName(frame.id); }

void Collect(Frames& frames, JournalFrame frame, Fingerprint onDisk,
             std::unordered_map<Text, std::size_t>& last) {
  switch (frame.kind) {
    case FrameKind::kBegin:
      frames.installId = FromUtf8(frame.payload);
      frames.fits = frames.fits || frame.base == onDisk;
      return;
    case FrameKind::kSaving:
      if (frame.result != onDisk) return;
      // All that came before is in the data file.
      frames.fits = true;
      frames.records.clear();
      frames.stacks.reset();
      last.clear();
      if (frame.head == 1) frames.contents.clear();
      return;
    case FrameKind::kStacks: frames.stacks = std::move(frame); return;
    case FrameKind::kText:
    case FrameKind::kPicture: {
      if (!IsOfNote(frame)) {
        frames.foreign = true;
        return;
      }
      const Text path = FoldCase(ContentPath(Named(frame, frame.kind == FrameKind::kPicture)));
      frames.contents[path].push_back(std::move(frame));
      return;
    }
    case FrameKind::kRecord:
    case FrameKind::kClosed:
    case FrameKind::kRemoved: break;
  }
  if (!IsOfNote(frame)) {
    frames.foreign = true;
    return;
  }
  const auto [at, fresh] = last.try_emplace(FoldCase(frame.id), frames.records.size());
  if (!fresh) frames.records[at->second].id.clear();
  at->second = frames.records.size();
  frames.records.push_back(std::move(frame));
}

// One list of the file, each note found by its id at once.
class FiledList {
 public:
  explicit FiledList(std::vector<FiledJotlet>& list) : list_(list) {
    for (std::size_t at = 0; at < list.size(); ++at) byId_.try_emplace(FoldCase(list[at].record.id), at);
  }
  void Remove(TextView id) {
    const auto found = byId_.find(FoldCase(id));
    if (found == byId_.end()) return;
    removed_.push_back(found->second);
    byId_.erase(found);
  }
  /// In the place of the note of this id; false when there is none.
  bool Replace(FiledJotlet& jotlet) {
    const auto found = byId_.find(FoldCase(jotlet.record.id));
    if (found == byId_.end()) return false;
    list_[found->second] = std::move(jotlet);
    return true;
  }
  /// Takes the removed ones out, and others in: at the front, the last one first, or at the end.
  void Finish(std::vector<FiledJotlet> added, bool inFront) {
    std::sort(removed_.begin(), removed_.end(), std::greater<>());
    for (const std::size_t at : removed_) list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(at));
    if (inFront) std::reverse(added.begin(), added.end());
    list_.insert(inFront ? list_.begin() : list_.end(), std::make_move_iterator(added.begin()),
                 std::make_move_iterator(added.end()));
  }

 private:
  std::vector<FiledJotlet>& list_;
  std::unordered_map<Text, std::size_t> byId_;
  std::vector<std::size_t> removed_;
};

// Takes the record lines into the lists of the file.
void ApplyRecords(const LoadContext& context, const std::vector<JournalFrame>& frames, DataFile& file,
                  std::vector<JotletData>& gone) {
  JotletData blank;
  blank.Reset(context.options.ForRecords(), RecordTime(context.now.utc), {});
  FiledList open(file.jotlets);
  FiledList closed(file.deleted);
  std::vector<FiledJotlet> opened;
  std::vector<FiledJotlet> justClosed;
  for (const JournalFrame& frame : frames) {
    if (frame.kind == FrameKind::kRemoved) {
      open.Remove(frame.id);
      closed.Remove(frame.id);
      gone.push_back(Named(frame, frame.head == 1));
      continue;
    }
    const bool closes = frame.kind == FrameKind::kClosed;
    const Text text = FromUtf8(frame.payload);
    const Split split = closes ? SplitAtFirst(text, u'|') : Split{{}, text};
    FiledJotlet jotlet = ParseEncodedJotlet(split.tail, blank, context.freshId);
    jotlet.record.id = frame.id;
    jotlet.inlineContent.reset();
    if (closes) jotlet.record.deletedTime = ParseInt(split.head);
    (closes ? open : closed).Remove(frame.id);
    if (!(closes ? closed : open).Replace(jotlet))
      (closes ? justClosed : opened).push_back(std::move(jotlet));
  }
  open.Finish(std::move(opened), false);
  closed.Finish(std::move(justClosed), true);
}

std::vector<StackRecord> ParseStacks(std::string_view payload) {
  const Text text = FromUtf8(payload);
  std::vector<StackRecord> stacks;
  LineReader lines(text);
  TextView line;
  while (lines.Next(line)) {
    if (!line.empty()) stacks.push_back(ParseStackLine(line, NewStackNumber(stacks)));
  }
  return stacks;
}

bool IsWhole(const JournalFrame& frame) { return frame.head == 0 && frame.tail == 0; }

// Where the frames of a content go on from the file as it is: behind the last that made it what it is, at the
// last that began with it, or else at the first that needs nothing of it. `size()` when nothing is to be
// done, nothing when that cannot be.
std::optional<std::size_t> FirstToApply(const std::vector<JournalFrame>& frames, Fingerprint present) {
  for (std::size_t after = frames.size(); after > 0; --after) {
    if (frames[after - 1].result == present) return after;
  }
  for (std::size_t at = frames.size(); at > 0; --at) {
    if (frames[at - 1].base == present) return at - 1;
  }
  const auto whole = std::find_if(frames.begin(), frames.end(), IsWhole);
  if (whole == frames.end()) return std::nullopt;
  return static_cast<std::size_t>(whole - frames.begin());
}

// Whether all frames could be applied. The links of the chain are compared by their numbers; what comes out
// at the end is checked.
bool ApplyChanges(const std::vector<JournalFrame>& frames, std::size_t first, Fingerprint present,
                  std::string& bytes) {
  for (std::size_t at = first; at < frames.size(); ++at) {
    const JournalFrame& frame = frames[at];
    if (IsWhole(frame)) {
      bytes = frame.payload;
    } else {
      const std::size_t kept = static_cast<std::size_t>(frame.head) + frame.tail;
      if (frame.base != present || kept > bytes.size()) return false;
      bytes.replace(frame.head, bytes.size() - kept, frame.payload);
    }
    present = frame.result;
  }
  return FingerprintOf(bytes) == present;
}

enum class ContentOutcome { kNothing, kWritten, kNotWritten, kUnusable };

ContentOutcome ReplayContent(const LoadContext& context, const Text& path,
                             const std::vector<JournalFrame>& frames, Text& fault) {
  FileContent present = context.files.Read(path);
  if (present.state == FileContent::State::kUnreadable) return ContentOutcome::kUnusable;
  const bool isThere = present.state == FileContent::State::kRead;
  const Fingerprint onDisk = isThere ? FingerprintOf(present.bytes) : 0;
  const auto first = FirstToApply(frames, onDisk);
  if (!first) return ContentOutcome::kUnusable;
  if (*first == frames.size()) return ContentOutcome::kNothing;
  const bool known = std::any_of(frames.begin(), frames.end(), [onDisk](const JournalFrame& frame) {
    return frame.base == onDisk || frame.result == onDisk;
  });
  if (!ApplyChanges(frames, *first, onDisk, present.bytes)) return ContentOutcome::kUnusable;
  if (isThere && !known) {
    const Text kept = DatedName(context.files, path, kKeptMark, context.now.local);
    const FileStatus copied = context.files.Copy(path, kept);
    if (!copied) {
      fault = kept + u": " + copied.reason;
      return ContentOutcome::kNotWritten;
    }
    context.log.Write(kLogLifecycle, u"'", path, u"' was changed from outside, kept as '", kept, u"'");
  }
  // It has what lies below things drawn on another picture than this one.
  if (const Text beside = ObjectsPath(path); !beside.empty()) context.files.Remove(beside);
  const FileStatus written = context.files.Write(path, present.bytes);
  if (written) return ContentOutcome::kWritten;
  context.log.Write(kLogLifecycle, u"Unable to write '", path, u"' from the journal: ", written.reason);
  fault = path + u": " + written.reason;
  return ContentOutcome::kNotWritten;
}

// The file of the last spelling of the id.
Text PathOf(TextView folder, const JournalFrame& frame) {
  return Text(folder) + ContentPath(Named(frame, frame.kind == FrameKind::kPicture));
}

}  // namespace

bool HoldsFirstNotes(std::string_view journal) {
  JournalReader reader(journal);
  const auto begin = reader.Next();
  if (!begin || begin->base != 0) return false;
  while (const auto frame = reader.Next()) {
    if (frame->kind == FrameKind::kRecord) return true;
  }
  return false;
}

bool HoldsNews(std::string_view journal) {
  JournalReader reader(journal);
  reader.Next();
  return reader.Length() < journal.size();
}

JournalReplay ReplayJournal(const LoadContext& context, TextView folder, std::string_view journal,
                            Fingerprint onDisk, bool damaged, DataFile& file) {
  JournalReplay replay;
  Frames frames;
  JournalReader reader(journal);
  std::unordered_map<Text, std::size_t> last;
  while (auto frame = reader.Next()) Collect(frames, std::move(*frame), onDisk, last);
  replay.length = reader.Length();
  replay.nextSequence = std::max(reader.NextSequence(), replay.nextSequence);
  replay.keep = reader.StoppedInDamage() || frames.foreign;
  std::size_t records = 0;
  std::size_t contents = 0;
  std::erase_if(frames.records, [](const JournalFrame& frame) { return frame.id.empty(); });
  std::unordered_set<Text> removed;
  for (const JournalFrame& frame : frames.records) {
    if (frame.kind == FrameKind::kRemoved) removed.insert(FoldCase(frame.id));
  }
  if (frames.fits || damaged) {
    if (file.installId.empty()) file.installId = frames.installId;
    if (frames.stacks) file.stacks = ParseStacks(frames.stacks->payload);
    ApplyRecords(context, frames.records, file, replay.gone);
    records = frames.records.size() + (frames.stacks ? 1 : 0);
  } else {
    replay.keep = replay.keep || !frames.records.empty() || frames.stacks;
  }
  for (const auto& [folded, changes] : frames.contents) {
    if (removed.contains(FoldCase(changes.back().id))) continue;
    const ContentOutcome outcome =
        ReplayContent(context, PathOf(folder, changes.back()), changes, replay.unwritten);
    if (outcome == ContentOutcome::kWritten) ++contents;
    if (outcome == ContentOutcome::kUnusable || outcome == ContentOutcome::kNotWritten) replay.keep = true;
  }
  replay.any = records + contents > 0;
  if (replay.any)
    context.log.Write(kLogLifecycle, u"From the journal: ", records, u" changes of notes, ", contents,
                      u" contents");
  return replay;
}

}  // namespace jotlets
